// SPDX-License-Identifier: MIT
// What one room writes into the trace file of a test.
#ifndef ZERDIX_TESTS_TRACE_ROOM_TRACE_H
#define ZERDIX_TESTS_TRACE_ROOM_TRACE_H

#include <regex>

#include "trace/tracing.h"

namespace zerdix::tests {

// While it lives, tracing is on as from the start of a process, into FAXTRACE.LOG of the folder.
class room_trace {
  public:
    // The settings file is written anew: the folder for logs, the switch, and these lines.
    room_trace(const std::string& settings, const std::string& folder, const std::string& room,
               const std::string& more = "")
        : settings_(settings), file_(folder + "/FAXTRACE.LOG"), mark_(" " + room + ": : "),
          lines_("[Zerdix]\nLogDir=" + folder + "\n" + more) {
        begin("1");
    }
    ~room_trace() { begin("0"); }
    room_trace(const room_trace&) = delete;
    room_trace& operator=(const room_trace&) = delete;

    // The room's lines since the last look, as "Level: text". Socket errors are all "n".
    std::vector<std::string> lines() {
        std::ifstream file{file_};
        file.seekg(seen_);
        std::vector<std::string> found;
        for (std::string line; std::getline(file, line); seen_ = file.tellg())
            if (const auto at = line.find(mark_); at != std::string::npos) {
                std::string text = level_of(line) + line.substr(at + mark_.size());
                text.erase(text.find_last_not_of(' ') + 1);
                found.push_back(std::regex_replace(text, socket_error_, "Socket rc: <n>"));
            }
        return found;
    }

  private:
    void begin(const std::string& on) const {
        std::ofstream{settings_} << lines_ << "Trace=" << on << '\n';
        start_anew();
    }

    // "(4183075) Entry:  sendfax: : ..." has its level behind the ticks.
    static std::string level_of(const std::string& line) {
        const std::size_t begin = line.find(") ") + 2;
        return line.substr(begin, line.find(':', begin) + 1 - begin) + ' ';
    }

    const std::string settings_, file_, mark_, lines_;
    const std::regex socket_error_{"Socket rc: <[0-9]+>"};
    const environment_variable width_{"TRACE_WRAP_WIDTH", "200"};
    std::streamoff seen_ = 0;
};

} // namespace zerdix::tests

#endif
