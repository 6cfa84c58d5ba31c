// A test server, and what ZERDIX writes into the trace meanwhile.
#ifndef ZERDIX_TESTS_TRACE_FIXTURE_H
#define ZERDIX_TESTS_TRACE_FIXTURE_H

#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <regex>

#include <zerdix/trace.h>
#include <zerdix/zerdix.h>

#include "support/test_server.h"

namespace zerdix::testing {

inline void restart_tracer() {
    TTrace.~T_TRACE();
    new (&TTrace) T_TRACE;
}

class TraceLines : public ::testing::Test {
  protected:
    test::test_server server;
    test::environment_variable width{"TRACE_WRAP_WIDTH", "200"};

    TraceLines() {
        switch_tracing("1");
        session().setUserId("meier");
        session().setAlphaserver("127.0.0.1");
    }
    ~TraceLines() override {
        session().CleanupHostConnection();
        switch_tracing("0");
    }

    ZERDIX& session() { return session_; }

    // The lines since the call before, each as its label and text. Socket errors are all "n".
    std::vector<std::string> lines() {
        std::ifstream file{server.folder() / "traced"};
        file.seekg(read_);
        std::vector<std::string> found;
        for (std::string line; std::getline(file, line);) {
            read_ += static_cast<std::streamoff>(line.size() + 1);
            if (const std::size_t text = line.find(" zerdix: : "); text != std::string::npos)
                found.push_back(line.substr(line.find(") ") + 2, 6) + line.substr(text + 11));
        }
        for (std::string& line : found) {
            line.erase(line.find_last_not_of(' ') + 1);
            line = std::regex_replace(line, std::regex{"Socket rc: <[0-9]+>"}, "Socket rc: <n>");
        }
        return found;
    }

  private:
    void switch_tracing(const char* on) {
        const auto settings = server.folder() / "tracing.ini";
        std::ofstream{settings} << "[Zerdix]\nTrace=" << on
                                << "\nTracefile=" << (server.folder() / "traced").string()
                                << "\nErrorfile=" << (server.folder() / "errors").string() << "\n";
        const test::environment_variable named{"ZERDIX_INI", settings};
        restart_tracer();
        TTrace.traceSetName(nullptr);
    }

    std::streamoff read_ = 0;
    ZERDIX session_;
};

} // namespace zerdix::testing

#endif
