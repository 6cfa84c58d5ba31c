// SPDX-License-Identifier: MIT
// Users, devices and preferences from the command line.

#include "cli/desk_test.h"
#include "output/failure.h"
#include "pictures/png_file.h"
#include "pictures/stored_page.h"

namespace zerdix::test {
namespace {

using namespace app;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int get_board = 1007;

using People = desk_test;

TEST_F(People, LogOnWithTheRightPasswordOnly) {
    fails("user show -U nobody", exit_no_permission, "the user nobody is unknown");
    fails("user show -U meier", exit_no_permission, "wrong password for the user meier");
    fails("user show --password-file", exit_no_input, "can't be opened", {"/nowhere"});
    const std::string long_one = write("long", std::string(25, 'x') + "\r\n");
    const auto changed = zerdix("password --new-file " + long_one);
    EXPECT_EQ(changed.status, 0);
    EXPECT_THAT(changed.errors, HasSubstr("the new password is cut to 20 characters"));
    EXPECT_THAT(changed.errors, HasSubstr("the settings still give the old password"));
    fails("user show", exit_no_permission, "wrong password");
    done("user show --password-file", {write("cut", std::string(20, 'x'))});
    done("passwd --new-file " + path("password") + " --old-file " + long_one);
    EXPECT_EQ(answer("user show")["user"], "zerdix");
    fails("password --new-file", exit_usage, "an empty password", {write("none", "\n")});
    std::ofstream(server_.settings(), std::ios::app) << "Password=zerdix\n";
    fails("user show", exit_no_permission, "holds a password and others may read it");
    std::filesystem::permissions(server_.settings(), std::filesystem::perms::owner_read);
    done("user show");
}

TEST_F(People, AreListedWithTheirGroupsAndDevices) {
    server_.add_users(65);
    EXPECT_EQ(answer("user list").size(), 67U);
    EXPECT_EQ(answer("user show meier")["comment"], "Jonas Meier");
    fails("user show nobody", exit_no_receiver, "there is no user nobody");
    EXPECT_EQ(answer("user groups --member").at(0)["member"], true);
    EXPECT_EQ(answer("printer list").size(), 3U);
    EXPECT_EQ(answer("scanners ls").size(), 2U);
    EXPECT_EQ(answer("scanner list --free --for scan,fine").at(0)["state"], "free");
    EXPECT_EQ(answer("scanner list --for telex").size(), 0U);
    fails("scanner list --for magic", exit_usage, "\"magic\" isn't one of normal,fine");
}

TEST_F(People, SetTheirPreferences) {
    done("preferences set --printer laser2 --features fine,halftone --priority 7 "
         "--actions voice-receive,print-error");
    shows("prefs show", {{"printer", "laser2"},
                         {"scanner", "empfang"}, // what isn't named stays
                         {"features", {"fine", "halftone"}},
                         {"actions", {"print-error", "voice-receive"}},
                         {"priority", 7}});
    fails("preferences set --priority 1 --paper 1=9999", exit_no_input,
          "there is no document 9999");
    for (const std::string none : {"nix", "lase"})
        fails("preferences set --priority 1 --printer " + none, exit_no_input,
              "no printer " + none);
    fails("preferences set --paper 10=0", exit_usage, "SOURCE=DOCUMENT");
    fails("preferences set --actions sing", exit_usage, "\"sing\" isn't one of");
    EXPECT_EQ(answer("preferences show")["priority"], 7) << "nothing is set by halves";
    EXPECT_THAT(answer("preferences set --actions none")["actions"], ElementsAre());
}

TEST_F(People, NameWhoStandsIn) {
    fails("replacement set nobody", exit_no_receiver, "there is no user nobody");
    fails("replacement set zerdix", exit_refused, "nobody can stand in for themselves");
    done("replacement set meier");
    fails("replacement set zerdix" + as_meier(), exit_refused, "round in a circle");
    done("replacement off");
    EXPECT_EQ(answer("replacement show")["in_force"], false);
    done("replacement set zerdix@alpha" + as_meier());
    EXPECT_EQ(zerdix("replacement off").output, "no replacement was in force for zerdix\n");
    EXPECT_EQ(answer("user show meier")["replacement"], "zerdix");
}

// 13 pixels wide, so that the last byte of a row isn't full.
TEST_F(People, KeepTheirSignatureAsAPageIsKept) {
    fails("signature get -o x.png", exit_no_input, "zerdix has no signature");
    const page_picture drawn{13, 2, {0x80, 0x08, 0x01, 0x00}};
    write_png(path("hand.png"), drawn);
    EXPECT_EQ(answer("signature put " + path("hand.png"))["width"], 16);
    const std::string bytes = server_.store().signatures.whole("zerdix");
    EXPECT_THAT(bytes, testing::StartsWith("\x1f\x9d\x90"));
    const page_picture kept =
        expand_page(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    EXPECT_EQ(kept.width, 16U);
    EXPECT_EQ(kept.bits, drawn.bits);
    done("signature get -o " + path("back.png"));
    done("signature put " + path("back.png"));
    EXPECT_EQ(server_.store().signatures.whole("zerdix"), bytes);

    write_png(path("wide.png"), {1736, 1, std::vector<unsigned char>(217)});
    fails("signature put", exit_bad_data, "more than 1728 by 2286", {path("wide.png")});
    fails("signature put", exit_bad_data, "can't be read as a PNG", {path("password")});
    done("signature none");
    EXPECT_EQ(server_.store().signatures.whole("zerdix"), "");
}

TEST_F(People, ReadTheBoard) {
    EXPECT_EQ(answer("board list").size(), 3U);
    server_.drop(get_board);
    fails("board list", exit_unavailable, "reading the bulletin board failed");
}

} // namespace
} // namespace zerdix::test
