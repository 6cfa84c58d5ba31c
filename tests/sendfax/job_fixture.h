// SPDX-License-Identifier: MIT
// A print job against the stand-in server, as a driver makes one.
#ifndef ZERDIX_TESTS_JOB_FIXTURE_H
#define ZERDIX_TESTS_JOB_FIXTURE_H

#include <cstring>
#include <gmock/gmock.h>

#include "pages/codec_calls.h"
#include "sendfax/job.h"
#include "sendfax/send_dialog.h"
#include "support/test_server.h"
#include "trace/tracing.h"

namespace zerdix::testing {

// A driver's page block: header, then rows of one byte value.
inline std::vector<unsigned char> driver_block(std::uint32_t width, std::uint32_t height,
                                               unsigned char fill = 0xFF) {
    std::vector<unsigned char> block = codec::page_header(width, height);
    block.resize(8 + std::size_t{width} / 8 * height, fill);
    return block;
}

inline std::int32_t store(const std::vector<unsigned char>& block) {
    return StoreFaxPage(block.data(), static_cast<std::int32_t>(block.size()), 0, 0);
}

inline std::int32_t store_page() {
    return store(driver_block(80, 100));
}

inline std::int32_t merge(std::string_view text) {
    return SetFaxMergeData(text.data(), static_cast<std::int32_t>(text.size()));
}

// A group "team" with these members. Those of a net type get their entries too.
inline void add_team(alphad::store& store, std::initializer_list<o_tebul> members) {
    const o_tgroup team{{"team"}, {}, {}, {}, {}, {}};
    ASSERT_TRUE(store.phone_books.put_group(team));
    for (const o_tebul& each : members) {
        ASSERT_TRUE(each.nettype == 0 || store.phone_books.put_entry(each));
        ASSERT_TRUE(store.phone_books.put_member({team.groupid, each.tbookid, each.teleid}));
    }
}

// The user of the dialog puts the document onto this desk.
inline void pick_desk(const char* user) {
    static const char* picked;
    picked = user;
    sendfax::install_send_dialog([](void*) {
        std::strcpy(userid, picked);
        return send_dialog_accepted;
    });
}

class PrintJob : public ::testing::Test {
  protected:
    PrintJob() { sendfax::install_send_dialog(nullptr); }
    ~PrintJob() override {
        if (pzerdix != nullptr)
            DeleteFaxDoc();
        if (pzerdix != nullptr)
            sendfax::close_job();
        sendfax::install_send_dialog(nullptr);
    }

    // Each forgets the calls until then. A job without pages, and one of two small ones.
    void open_job(std::string_view merge_data = "", bool fax = true) {
        ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", fax ? 1 : 0), 0);
        ASSERT_EQ(merge(merge_data), 0);
        server.clear_calls();
    }
    void open_job_with_pages(std::string_view merge_data) {
        open_job(merge_data);
        ASSERT_EQ(store_page(), 0);
        ASSERT_EQ(store_page(), 0);
        server.clear_calls();
    }

    std::string error_log() const { return server.files().read("FAXERROR.LOG"); }

    test::test_server server;
};

using lines = std::vector<std::string>;

// A print job whose own lines in the trace file can be looked at.
class JobTrace : public PrintJob {
  protected:
    // The print job's own lines since the last look, as "Level: text".
    lines traced() { return trace_.lines(); }

    // One of the lines since the last look. Errors, and errors alone, stand in the error log too,
    // which is taken away afterwards.
    void expect_told(const std::string& line) {
        EXPECT_THAT(traced(), ::testing::Contains(line));
        const std::string log = error_log();
        EXPECT_EQ(!log.empty(), line.starts_with("Error: ")) << log;
        EXPECT_TRUE(log.empty() || log.find(line.substr(7)) != std::string::npos) << log;
        std::filesystem::remove(server.folder() / "FAXERROR.LOG");
    }

  private:
    tests::room_trace trace_{server.settings(), server.folder(), "sendfax",
                             "Host=127.0.0.1\nUser=zerdix\n"};
};

} // namespace zerdix::testing

#endif
