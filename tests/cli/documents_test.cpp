// SPDX-License-Identifier: MIT
// Documents by the real program, as a user works with them.

#include <algorithm>

#include <tiffio.h>

#include "alphad/demo/demo_data.h"
#include "cli/desk_test.h"
#include "output/failure.h"

namespace zerdix::test {
namespace {

using namespace app;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

class Documents : public desk_test {
  protected:
    Documents() { alphad::add_demo_documents(server_.store()); }

    // The outgoing document that a quiet print makes. It waits, unless it goes at once.
    int printed(const std::string& when = "2037-12-31 20:15") {
        const auto quiet = zerdix("print --to 123 --quiet --at", {when, SAMPLE_PDF});
        EXPECT_EQ(quiet.status, 0);
        EXPECT_EQ(quiet.output + quiet.errors, "");
        return server_.jobs().back().record.faxid;
    }

    // Ids of a list, for example "doc list incoming --new".
    std::vector<int> ids(const std::string& words) {
        std::vector<int> all;
        for (const json& document : answer(words))
            all.push_back(document.at("id"));
        return all;
    }

    std::vector<std::uint32_t> tiff_widths(const std::string& name) {
        std::vector<std::uint32_t> widths;
        TIFF* file = TIFFOpen(path(name).c_str(), "r");
        if (file == nullptr)
            return widths;
        do {
            std::uint32_t width = 0;
            TIFFGetField(file, TIFFTAG_IMAGEWIDTH, &width);
            widths.push_back(width);
        } while (TIFFReadDirectory(file) == 1);
        TIFFClose(file);
        return widths;
    }
};

TEST_F(Documents, AreListedByPoolSelectionAndBlock) {
    const int job = printed();
    server_.store().configuration.set("JOURNALBLK", "2");
    std::vector<int> made;
    for (int i = 0; i < 5; ++i)
        made.push_back(server_.store().documents.create(TOPF_P, "zerdix", "many"));
    const std::vector<int> desk = ids("doc list desk");
    EXPECT_THAT(desk, testing::IsSupersetOf(made));
    EXPECT_TRUE(std::is_sorted(desk.begin(), desk.end())) << "blocks come in order, none twice";
    EXPECT_THAT(ids("doc list desk --block 2 --from " + std::to_string(made[1])),
                ElementsAre(made[1], made[2]));
    EXPECT_THAT(ids("doc list"), testing::IsSupersetOf({job, made[0], ids("doc ls in").front()}));
    EXPECT_THAT(ids("status"), ElementsAre(job));
    EXPECT_THAT(ids("doc list out --errors"), ElementsAre());
    EXPECT_EQ(zerdix("lpstat --errors").output, "no such documents\n");
    EXPECT_THAT(zerdix("doc list outgoing").output, HasSubstr("2037-12-31 20:15"));
    const int unread = ids("doc list incoming --new").front();
    done("doc read " + std::to_string(unread));
    EXPECT_THAT(ids("doc list incoming --new"), testing::Not(testing::Contains(unread)));
    fails("doc list out --new", exit_usage, "--new is for");
    fails("doc list --block 3", exit_usage, "needs a pool");
}

TEST_F(Documents, AreTakenFromOneDeskToAnother) {
    const std::string in = std::to_string(ids("doc list incoming").front());
    const json copy = answer("doc copy in:" + in);
    const std::string id = std::to_string(copy.at("id").get<int>());
    EXPECT_EQ(answer("doc comment " + id, {"Übersicht"}).at("title"), "Übersicht");
    EXPECT_EQ(answer("doc public " + id + " on").at("public"), true);
    EXPECT_THAT(ids("doc list desk --public"), testing::Contains(copy.at("id").get<int>()));
    const json info = answer("doc info " + id + " in:" + in);
    EXPECT_EQ(info.at(0).at("pages"), info.at(1).at("pages"));
    EXPECT_EQ(info.at(0).at("page_types").at(0).at("types").at(0), "picture");
    EXPECT_EQ(answer("doc combine " + id + ":1 in:" + in + ":1").at("pages"), 2);
    constexpr int copy_page = 16;
    server_.fail(copy_page, 2);
    fails("doc combine " + id + ":1 in:" + in + ":1", exit_unavailable,
          "was made, but only 1 of 2 pages could be copied to it");
    done("doc forward " + id + " --to meier");
    write("password", "meier\n");
    EXPECT_THAT(zerdix("doc list incoming --new -U meier").output, HasSubstr("Übersicht"));
    fails("doc delete -U meier " + id, exit_refused, "by its owner alone");
    write("password", "zerdix\n");
    fails("doc forward " + id + " --to nobody", exit_refused, "no user nobody");
    fails("doc public in:" + in + " on", exit_usage, "only desk documents");
    fails("doc combine " + id + ":99", exit_no_input, "has only");
    EXPECT_EQ(fails("doc delete 999999 " + id, exit_no_input, "there is no document 999999").output,
              "desk document " + id + " deleted\n")
        << "the rest is done";
    fails("doc info x:1", exit_usage, "the pools are");
}

TEST_F(Documents, GiveTheirPagesAsFiles) {
    const std::string id = std::to_string(printed());
    done("doc page " + id + " -o " + path("all.tif"));
    EXPECT_THAT(tiff_widths("all.tif"), ElementsAre(1728, 1728, 1728));
    const json files = answer("doc page " + id + " 3,1-2 -o " + path("p%2d.png"));
    EXPECT_THAT(files.at("pages"), ElementsAre(3, 1, 2));
    EXPECT_THAT(read("p03.png"), testing::StartsWith("\x89PNG"));
    // The old command writes the same picture.
    done("page " + id + " 3 --pool out -o " + path("old.png"));
    EXPECT_EQ(read("old.png"), read("p03.png"));
    fails("doc page " + id + " -o " + path("x.png"), exit_usage, "must be a TIFF");
    fails("doc page " + id + " 1 -o x.jpg", exit_usage, "pages are written as");
    fails("doc page " + id + " 4 -o " + path("x.tif"), exit_no_input, "only 3");
    fails("doc page " + id + " 3-2 -o x.tif", exit_usage, "names no pages");
    fails("doc page " + id + " 1 -o " + path("no/x.tif"), exit_no_output, "x.tif");
    fails("doc page " + id + " 1 -o " + path("x.txt"), exit_no_input, "no text");
    constexpr int get_page = 59;
    server_.drop(get_page, 4);
    fails("doc page " + id + " -o " + path("half.tif"), exit_unavailable,
          "connection to the server broke");
    EXPECT_FALSE(std::filesystem::exists(path("half.tif"))) << "half a file is taken away";
}

TEST_F(Documents, HaveSendJobsThatCanBeChanged) {
    const std::string id = std::to_string(printed());
    done("doc change --at night --priority 50 --retries 3 --resolution fine --title", {"Neu", id});
    shows("doc info " + id, {{"title", "Neu"},
                             {"priority", 50},
                             {"retries_allowed", 3},
                             {"resolution", "fine"},
                             {"night", true},
                             {"send_at", nullptr}});
    done("doc change --no-night --at 2037-07-01T08:30 " + id);
    shows("doc info " + id, {{"title", "Neu"}, // what isn't named stays
                             {"night", false},
                             {"send_at", "2037-07-01T08:30:00+02:00"}});
    fails("doc change --night --no-night " + id, exit_usage, "excludes");
    answer("doc comment " + id + " Neuer");
    EXPECT_EQ(answer("status").at(0).at("title"), "Neuer");
    EXPECT_EQ(zerdix("cancel " + id).output, "outgoing document " + id + " cancelled\n");
    fails("doc cancel " + id, exit_refused, "cancelled already");
    done("doc restart " + id);
    const std::string gone = std::to_string(printed("now"));
    fails("cancel " + gone, exit_refused, "gone out already");
    fails("doc change " + gone + " --at 23:59x", exit_usage, "--at");
    fails("doc change " + gone, exit_usage, "nothing is named");
    fails("doc log", exit_usage, "ID is required");
    EXPECT_THAT(answer("doc log " + gone).dump(), HasSubstr("123"));
    const std::size_t lines = answer("doc log " + gone).size();
    for (int i = 0; i < 1500; ++i) // more than the library gives at once, twice
        server_.store().logs.add(std::stoi(gone), std::to_string(i) + std::string(90, 'x'));
    const json log = answer("doc log " + gone);
    EXPECT_EQ(log.size(), lines + 1500);
    EXPECT_THAT(log.back().get<std::string>(), testing::StartsWith("1499x"));
}

TEST_F(Documents, GoToPrintersAndComeFromScanners) {
    const std::string in = std::to_string(ids("doc list incoming").front());
    const json print = answer("doc print in:" + in + " -d laser1 --pages 1 -n 2");
    EXPECT_EQ(print.at("copies"), 2);
    fails("doc print in:" + in + " -d laser1 --pages 1-99", exit_no_input, "page 99");
    fails("doc print in:" + in + " -d nobody", exit_refused, "no printer nobody");
    const json scan = answer("doc scan --scanner empfang --title Vertrag");
    ASSERT_TRUE(scan.at("id").is_number());
    EXPECT_EQ(answer("doc info desk:" + scan.at("id").dump()).at(0).at("title"), "Vertrag");
    fails("doc scan --scanner nobody", exit_refused, "no scanner nobody");
    fails("doc scan --scanner vertrieb", exit_refused, "busy");
}

} // namespace
} // namespace zerdix::test
