// A print job whose own lines in the trace file can be looked at.
#ifndef ZERDIX_TESTS_JOB_TRACE_H
#define ZERDIX_TESTS_JOB_TRACE_H

#include <memory>

#include <zerdix/trace.h>

#include "sendfax/job_fixture.h"

namespace zerdix::testing {

using lines = std::vector<std::string>;

class JobTrace : public PrintJob {
  protected:
    JobTrace() { begin_tracing("1"); }
    ~JobTrace() override { begin_tracing("0"); }

    // The print job's own lines since the last look, as "Level: text".
    lines traced() {
        std::ifstream file{server.folder() / "FAXTRACE.LOG"};
        file.seekg(seen_);
        lines found;
        for (std::string line; std::getline(file, line); seen_ = file.tellg())
            if (const auto room = line.find(" sendfax: : "); room != std::string::npos)
                found.push_back(level_of(line) + line.substr(room + 12, text_end(line, room)));
        return found;
    }

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
    // The switch is read when the tracer comes up, as at the start of a process.
    void begin_tracing(const char* on) {
        std::ofstream{server.settings()}
            << "[Zerdix]\nHost=127.0.0.1\nUser=zerdix\nLogDir=" << server.folder().string()
            << "\nTrace=" << on << '\n';
        std::destroy_at(&TTrace);
        std::construct_at(&TTrace);
    }

    // "(4183075) Entry:  sendfax: : ..." has its level behind the ticks.
    static std::string level_of(const std::string& line) {
        const std::size_t begin = line.find(") ") + 2;
        return line.substr(begin, line.find(':', begin) + 1 - begin) + ' ';
    }

    // Length of the text without the blanks that fill the line.
    static std::size_t text_end(const std::string& line, std::size_t room) {
        return line.find_last_not_of(' ') + 1 - (room + 12);
    }

    test::environment_value width_{"TRACE_WRAP_WIDTH", "200"};
    std::streamoff seen_ = 0;
};

} // namespace zerdix::testing

#endif
