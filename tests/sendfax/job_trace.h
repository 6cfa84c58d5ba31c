// SPDX-License-Identifier: MIT
// A print job whose own lines in the trace file can be looked at.
#ifndef ZERDIX_TESTS_JOB_TRACE_H
#define ZERDIX_TESTS_JOB_TRACE_H

#include "sendfax/job_fixture.h"
#include "trace/room_trace.h"

namespace zerdix::testing {

using lines = std::vector<std::string>;

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

    std::string document() { return std::to_string(server.desk("zerdix").at(0).id); }

  private:
    tests::room_trace trace_{server.settings(), server.folder(), "sendfax",
                             "Host=127.0.0.1\nUser=zerdix\n"};
};

} // namespace zerdix::testing

#endif
