// SPDX-License-Identifier: MIT
// The program itself: its start, its end, and what a hard end leaves.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <rpc/rpc.h>
#include <sysexits.h>

#include "alphad/sending/drawn_page.h"
#include "desk.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;
using ::testing::HasSubstr;

class Program : public testing::Test {
  protected:
    bool is_registered() {
        sockaddr_in here = loopback();
        return pmap_getport(&here, environment.program(), 1, IPPROTO_TCP) != 0;
    }

    // Arguments and results with bytes and chains, so that a leak would show at the end.
    void use_it() {
        desk_client client(environment.program());
        const std::int32_t document = client.create();
        EXPECT_TRUE(client.put_block(document, 1, 0, "page"));
        EXPECT_EQ(client.page_part(document, 1, 0, 100), "page");
        EXPECT_TRUE(client.put_log(document, "line"));
        EXPECT_EQ(client.get_log(document, 0).lines.size(), 1u);
        EXPECT_EQ(client.call(o_get_tgroupl_1{}, {{}, {}, id("alle"), {1}}).count, 12);
    }

    scratch_folder folder;
    client_environment environment{folder.path()};
    std::filesystem::path data = folder.path() / "data";
};

TEST_F(Program, TellsWhenItIsReadyAndGoesInGoodOrder) {
    for (const int signal : {SIGTERM, SIGINT}) {
        alphad_program program(data);
        EXPECT_TRUE(program.ready_line().starts_with("alphad: listening on 127.0.0.1 port "));
        EXPECT_TRUE(program.ready_line().ends_with(
            ", program " + std::to_string(environment.program()) + " version 1"));
        EXPECT_TRUE(is_registered());
        use_it();
        EXPECT_EQ(program.stop(signal), 0);
        EXPECT_FALSE(is_registered());
    }
}

TEST_F(Program, LosesNothingThatItAcknowledgedWhenKilled) {
    std::int32_t document = 0;
    {
        alphad_program program(data);
        desk_client client(environment.program());
        document = client.create();
        for (std::int16_t page = 1; page <= 20; ++page)
            ASSERT_TRUE(client.put_block(document, page, 0, std::string(9000, char('a' + page))));
        ASSERT_TRUE(client.put_log(document, "the last line"));
        EXPECT_EQ(program.stop(SIGKILL), -SIGKILL);
    }
    EXPECT_TRUE(is_registered()); // the dead one's entry, to be replaced
    alphad_program program(data);
    desk_client client(environment.program());
    EXPECT_EQ(client.masks(document), std::vector<std::int32_t>(20, 1));
    for (std::int16_t page = 1; page <= 20; ++page)
        EXPECT_EQ(client.page_part(document, page, 0, 16384), std::string(9000, char('a' + page)));
    EXPECT_EQ(client.get_log(document, 0).lines, std::vector<std::string>{"the last line"});
    EXPECT_GT(client.create(), document);
}

// Killed between the end of the work in the store and that in the spool folder.
TEST_F(Program, FinishesItsFilesAtTheNextStart) {
    alphad_program(data).stop();
    const auto spool = data / "spool";
    {
        alphad::store store(data / alphad::store_file);
        store.file_changes.put({"000001-1.tif", true});
        store.file_changes.put({"000002-2.tif", true});
        store.file_changes.put({"000003-3.tif", false});
        for (const char* file : {".000001-1.tif.part", "000002-2.tif", "000003-3.tif",
                                 ".000004-4.tif.part", "000005-5.tif"})
            std::ofstream(spool / file) << "picture";
    }
    alphad_program program(data);
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator{spool})
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"000001-1.tif", "000002-2.tif", "000005-5.tif"}));
    EXPECT_TRUE(alphad::store(data / alphad::store_file).file_changes.all().empty());
}

TEST_F(Program, SaysWhyItDoesNotStart) {
    alphad_program first(data);
    alphad_program second(folder.path() / "other");
    EXPECT_EQ(second.ready_line(), "");
    EXPECT_EQ(second.wait(), EX_UNAVAILABLE);
    EXPECT_THAT(second.errors(),
                HasSubstr("is already registered by a server that answers on port"));
    EXPECT_TRUE(is_registered());
    first.stop();

    alphad::database(data / alphad::store_file).run("PRAGMA user_version = 99");
    alphad_program newer(data);
    EXPECT_EQ(newer.wait(), EX_CANTCREAT);
    EXPECT_THAT(newer.errors(), HasSubstr("newer version of alphad"));
    std::ofstream(data / alphad::store_file) << std::string(5000, 'x');
    alphad_program broken(data);
    EXPECT_EQ(broken.wait(), EX_CANTCREAT);
    EXPECT_EQ(run_alphad({"--port", "many"}).status, EX_USAGE);
}

// Puts tables as the second version made them in the place of the present ones.
void make_second_version(alphad::database& store) {
    store.run("DROP TABLE file_changes; DROP TABLE picture_blocks; DROP TABLE pictures;"
              "CREATE TABLE pictures (document INTEGER NOT NULL REFERENCES documents "
              "ON DELETE CASCADE, page INTEGER NOT NULL, type INTEGER NOT NULL, "
              "block INTEGER NOT NULL, ended INTEGER NOT NULL, data BLOB NOT NULL, "
              "PRIMARY KEY (document, page, type));"
              "INSERT INTO pictures VALUES (1, 2, 6, 4, 0, x'74657874');"
              "INSERT INTO pictures VALUES (1, 2, 0, 4, 0, x'746578740000');"
              "UPDATE documents SET pages = 2;"
              "PRAGMA user_version = 2");
    execute(store, "INSERT INTO pictures VALUES (1, 1, 0, 16384, 1, ?)",
            std::string(70'000, '\0') + "end");
}

void make_first_version(alphad::database& store) {
    make_second_version(store);
    for (const char* table : {"passwords", "preferences", "signatures", "user_members",
                              "user_groups", "printers", "scanners", "board", "users"})
        store.run((std::string{"DROP TABLE "} + table).c_str());
    for (const char* column : {"nettype", "number", "tsi", "error", "forwarder"})
        store.run((std::string{"ALTER TABLE documents DROP COLUMN "} + column).c_str());
    store.run("CREATE TABLE users (userid BLOB PRIMARY KEY, name BLOB NOT NULL) WITHOUT ROWID;"
              "INSERT INTO users VALUES (x'7a6572646978', x'436c617261');"
              "PRAGMA user_version = 1");
}

TEST_F(Program, BringsOlderStoresUpToDate) {
    for (const auto& make_older : {make_first_version, make_second_version}) {
        const bool first = make_older == make_first_version;
        SCOPED_TRACE(first ? "first version" : "second version");
        data = folder.path() / (first ? "first" : "second");
        const std::string path = data / alphad::store_file;
        alphad_program(data, {"--no-demo"}).stop();
        {
            alphad::store store(path);
            store.documents.create(TOPF_P, "zerdix", "old");
            store.users.add("zerdix", "Clara");
            alphad::send_job job{1, "1", {}, false, "000002-1.tif"};
            job.record.faxid = store.documents.create(TOPF_S, "zerdix");
            store.jobs.put(job);
            make_older(store.database());
        }
        EXPECT_EQ(run_alphad({"jobs", "--data", data}).status, EX_CANTCREAT) << "only looks";
        const auto spool = folder.path() / "elsewhere";
        std::filesystem::create_directory(spool);
        std::ofstream(spool / "000002-1.tif") << "picture";
        alphad_program program(data, {"--spool", spool});
        EXPECT_THAT(run_alphad({"jobs", "--data", data}).output,
                    HasSubstr((spool / "000002-1.tif").string()));
        EXPECT_EQ(program.errors().find("no passwords yet") != std::string::npos, first)
            << program.errors();
        desk_client client(environment.program());
        EXPECT_EQ(client.call(o_get_user_1{}, {{}, id("zerdix")}).comment, "Clara");
        EXPECT_EQ(client.call(a_get_p_1{}, {id("zerdix"), 1}).p_text, "old");
        EXPECT_EQ(client.login("zerdix", "").status, 8);
        EXPECT_EQ(client.masks(1), (std::vector<std::int32_t>{1, 64}));
        EXPECT_EQ(client.page_size(1, 1), 70003);
        EXPECT_EQ(client.page_part(1, 1, 69998, 100), std::string(2, '\0') + "end");
        EXPECT_FALSE(client.put_block(1, 2, 4, "continues nothing"));
        EXPECT_TRUE(client.remove(1));
    }
}

TEST_F(Program, AddsUsersAndMessagesWhileItRuns) {
    alphad_program program(data);
    desk_client client(environment.program());
    const auto run = [&](std::vector<std::string> words) {
        words.insert(words.end(), {"--data", data});
        return run_alphad(words);
    };
    const std::string secret = folder.path() / "secret";
    std::ofstream(secret) << "Grüß\nnot this\n";
    EXPECT_EQ(run({"user", "add", "neu", "--name", "Jürgen"}).status, 0);
    EXPECT_EQ(run({"user", "add", "neu", "--name", "again"}).status, EX_DATAERR);
    EXPECT_EQ(run({"user", "add", "elevenchars", "--name", "x"}).status, EX_DATAERR);
    EXPECT_EQ(run({"user", "password", "nobody", "--password-file", secret}).status, EX_DATAERR);
    EXPECT_THAT(run({"user", "list"}).output, HasSubstr("neu\talpha\tJürgen\tno password\n"));
    EXPECT_EQ(client.login("neu", "").status, 8);
    EXPECT_EQ(run({"user", "password", "neu", "--password-file", secret}).status, 0);
    EXPECT_EQ(client.login("neu", "Gr\xfc\xdf").status, 0);
    const auto barcode = [&](std::string digits) {
        return run({"user", "barcode", "neu", std::move(digits)}).status;
    };
    const auto& user_record = client.call(o_get_user_1{}, {{}, id("neu")});
    EXPECT_EQ(barcode("3023125900"), 0);
    EXPECT_EQ(client.call(o_get_user_1{}, {{}, id("neu")}).barcode, "3023125900");
    EXPECT_EQ(user_record.comment, "J\xfcrgen");
    for (const char* wrong : {"12a", "-1", "123456789012345678901"})
        EXPECT_NE(barcode(wrong), 0) << wrong;
    EXPECT_EQ(run({"user", "barcode", "nobody", "1"}).status, EX_DATAERR);
    EXPECT_EQ(barcode(""), 0);
    EXPECT_EQ(client.call(o_get_user_1{}, {{}, id("neu")}).barcode, "");
    const std::int32_t stamp = client.call(a_get_board_1{}, {}).stamp;
    EXPECT_EQ(run({"board", "add", "new"}).status, 0);
    EXPECT_EQ(client.call(a_get_board_1{}, {0, stamp, {}}).first->text, "new");
    EXPECT_EQ(run({"user"}).status, EX_USAGE);
    // What the program brings along beside the tests' data.
    EXPECT_TRUE(client.call(a_is_bif_1{}, {id("meier"), TOPF_E}));
    const std::int32_t user = client.login("zerdix", "zerdix").loginid;
    const auto& incoming = client.call(a_get_elist_1{}, {user, 0});
    EXPECT_EQ(incoming.count, 2);
    EXPECT_EQ(incoming.first->record.e_value2, 2);
}

TEST_F(Program, ShowsWhereTheFilesOfJobsLie) {
    const auto elsewhere = folder.path() / "elsewhere";
    const auto send = [&](std::vector<std::string> arguments) {
        alphad_program program(data, arguments);
        desk_client client(environment.program());
        const std::int32_t document = client.create();
        EXPECT_TRUE(client.put_block(document, 1, 0, alphad::drawn_page("x", {})));
        return spool_name(client.send_fax(document, "1"), "1");
    };
    const auto shows = [&](const std::filesystem::path& file, std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"jobs", "--data", data});
        return run_alphad(more).output.find("  " + file.string() + "\n") != std::string::npos;
    };
    const std::string first = send({"--spool", elsewhere / ""});
    EXPECT_TRUE(std::filesystem::exists(elsewhere / first));
    EXPECT_TRUE(shows(elsewhere / first));
    const std::string second = send({});
    EXPECT_TRUE(shows(elsewhere / first));
    EXPECT_TRUE(std::filesystem::exists(data / "spool" / second));
    EXPECT_TRUE(shows(data / "spool" / second));
    for (const std::string& file : {first, second})
        EXPECT_TRUE(shows(folder.path() / "moved" / file, {"--spool", folder.path() / "moved"}));
}

TEST_F(Program, ShowsJobsAndSettingsWhileItRuns) {
    alphad_program program(data);
    EXPECT_EQ(run_alphad({"jobs", "--data", data}).output, "no send jobs\n");
    {
        alphad::store store((data / alphad::store_file).string());
        alphad::send_job job{7, "common:lager", {}, false, "000001-950.tif"};
        job.record.faxid = store.documents.create(TOPF_S, "zerdix");
        job.record.pages = 3;
        job.record.comment.assign("T\xfcr zu \"uns\"\n");
        job.record.phone.assign("950");
        store.jobs.put(job);
        store.logs.add(job.record.faxid, "a line");
    }
    const std::string table = run_alphad({"jobs", "--data", data}).output;
    for (const char* part :
         {"common:lager", "950", "Tür zu \"uns\" ", "spooled", "000001-950.tif", "a line"})
        EXPECT_THAT(table, HasSubstr(part));
    const std::string json = run_alphad({"jobs", "--json", "--data", data}).output;
    EXPECT_THAT(json, HasSubstr("\"title\": \"Tür zu \\\"uns\\\" \""));

    EXPECT_EQ(run_alphad({"config", "COVER", "12", "--data", data}).status, 0);
    for (const char* wrong : {"-30", "30x", " 30", "4000000000"})
        for (const char* size : {"PHONEBOOKB", "JOURNALBLK"})
            EXPECT_EQ(run_alphad({"config", "--data", data, "--", size, wrong}).status, EX_DATAERR);
    EXPECT_EQ(run_alphad({"config", "--data", data, "PHONEBOOKB", "7"}).status, 0);
    EXPECT_EQ(run_alphad({"config", "--data", data, "JOURNALBLK", ""}).status, 0);
    desk_client client(environment.program());
    EXPECT_EQ(client.call(a_get_config_1{}, {id("PHONEBOOKB"), 1}), "7");
    EXPECT_EQ(client.call(a_get_config_1{}, {id("COVER"), 1}), "12");
    EXPECT_NE(run_alphad({"jobs", "--data", folder.path() / "none"}).status, 0);
}

} // namespace
} // namespace zerdix
