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
    expect_failure("user show -U nobody", exit_no_permission, "the user nobody is unknown");
    expect_failure("user show -U meier", exit_no_permission, "wrong password for the user meier");
    expect_failure("user show --password-file", exit_no_input, "can't be opened", {"/nowhere"});
    const std::string long_one = write("long", std::string(25, 'x') + "\r\n");
    const outcome changed = zerdix("password --new-file " + long_one);
    EXPECT_EQ(changed.status, 0);
    EXPECT_THAT(changed.errors, HasSubstr("the new password is cut to 20 characters"));
    EXPECT_THAT(changed.errors, HasSubstr("the settings still give the old password"));
    expect_failure("user show", exit_no_permission, "wrong password");
    EXPECT_EQ(zerdix("user show --password-file", {write("cut", std::string(20, 'x'))}).status, 0);
    EXPECT_EQ(zerdix("passwd --new-file " + path("password") + " --old-file " + long_one).status,
              0);
    EXPECT_EQ(answer("user show")["user"], "zerdix");
    expect_failure("password --new-file", exit_usage, "an empty password", {write("none", "\n")});
}

TEST_F(People, AreListedWithTheirGroupsAndDevices) {
    server_.add_users(65);
    EXPECT_EQ(answer("user list").size(), 67U);
    EXPECT_EQ(answer("user show meier")["comment"], "Jonas Meier");
    expect_failure("user show nobody", exit_no_receiver, "there is no user nobody");
    EXPECT_EQ(answer("user groups --member").at(0)["member"], true);
    EXPECT_EQ(answer("printer list").size(), 3U);
    EXPECT_EQ(answer("scanners ls").size(), 2U);
    EXPECT_EQ(answer("scanner list --free --for scan,fine").at(0)["state"], "free");
    EXPECT_EQ(answer("scanner list --for telex").size(), 0U);
    expect_failure("scanner list --for magic", exit_usage, "\"magic\" isn't one of normal,fine");
}

TEST_F(People, SetTheirPreferences) {
    EXPECT_EQ(zerdix("preferences set --printer laser2 --features fine,halftone --priority 7 "
                     "--actions voice-receive,print-error")
                  .status,
              0);
    const auto preferences = answer("prefs show");
    EXPECT_EQ(preferences["printer"], "laser2");
    EXPECT_EQ(preferences["scanner"], "empfang") << "what isn't named stays";
    EXPECT_THAT(preferences["features"], ElementsAre("fine", "halftone"));
    EXPECT_THAT(preferences["actions"], ElementsAre("print-error", "voice-receive"));
    EXPECT_EQ(preferences["priority"], 7);
    expect_failure("preferences set --priority 1 --paper 1=9999", exit_no_input,
                   "there is no document 9999");
    expect_failure("preferences set --priority 1 --printer nix", exit_no_input, "no printer nix");
    expect_failure("preferences set --paper 10=0", exit_usage, "SOURCE=DOCUMENT");
    expect_failure("preferences set --actions sing", exit_usage, "\"sing\" isn't one of");
    EXPECT_EQ(answer("preferences show")["priority"], 7) << "nothing is set by halves";
    EXPECT_THAT(answer("preferences set --actions none")["actions"], ElementsAre());
}

TEST_F(People, NameWhoStandsIn) {
    const std::string meier = " -U meier --password-file " + write("meier", "meier\n");
    expect_failure("replacement set nobody", exit_no_receiver, "there is no user nobody");
    expect_failure("replacement set zerdix", exit_refused, "nobody can stand in for themselves");
    EXPECT_EQ(zerdix("replacement set meier").status, 0);
    expect_failure("replacement set zerdix" + meier, exit_refused, "round in a circle");
    EXPECT_EQ(zerdix("replacement off").status, 0);
    EXPECT_EQ(answer("replacement show")["in_force"], false);
    EXPECT_EQ(zerdix("replacement set zerdix@alpha" + meier).status, 0);
    EXPECT_EQ(zerdix("replacement off").output, "no replacement was in force for zerdix\n");
    EXPECT_EQ(answer("user show meier")["replacement"], "zerdix");
}

// 13 pixels wide, so that the last byte of a row isn't full.
TEST_F(People, KeepTheirSignatureAsAPageIsKept) {
    expect_failure("signature get -o x.png", exit_no_input, "zerdix has no signature");
    const page_picture drawn{13, 2, {0x80, 0x08, 0x01, 0x00}};
    write_png(path("hand.png"), drawn);
    EXPECT_EQ(answer("signature put " + path("hand.png"))["width"], 16);
    const std::string bytes = server_.store().signatures.whole("zerdix");
    EXPECT_THAT(bytes, testing::StartsWith("\x1f\x9d\x90"));
    const page_picture kept =
        expand_page(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    EXPECT_EQ(kept.width, 16U);
    EXPECT_EQ(kept.bits, drawn.bits);
    EXPECT_EQ(zerdix("signature get -o " + path("back.png")).status, 0);
    EXPECT_EQ(zerdix("signature put " + path("back.png")).status, 0);
    EXPECT_EQ(server_.store().signatures.whole("zerdix"), bytes);

    write_png(path("wide.png"), {1736, 1, std::vector<unsigned char>(217)});
    expect_failure("signature put", exit_bad_data, "more than 1728 by 2286", {path("wide.png")});
    expect_failure("signature put", exit_bad_data, "can't be read as a PNG", {path("password")});
    EXPECT_EQ(zerdix("signature none").status, 0);
    EXPECT_EQ(server_.store().signatures.whole("zerdix"), "");
}

TEST_F(People, ReadTheBoard) {
    EXPECT_EQ(answer("board list").size(), 3U);
    server_.drop(get_board);
    expect_failure("board list", exit_unavailable, "reading the bulletin board failed");
}

} // namespace
} // namespace zerdix::test
