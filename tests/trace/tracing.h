// SPDX-License-Identifier: MIT
// A tracer of its own for each test, with its files in a scratch folder.
#ifndef ZERDIX_TESTS_TRACE_TRACING_H
#define ZERDIX_TESTS_TRACE_TRACING_H

#include <memory>
#include <regex>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <zerdix/trace.h>

#include "platform/scratch.h"

// What only the class itself can reach.
struct T_TRACE_access {
    static void set_scope(T_TRACE& t, char* names, char* excluded, char* levels) {
        t._scopeNames = names;
        t._scopeExcluded = excluded;
        t._scopeLevels = levels;
    }
    static bool within_scope(T_TRACE& t, const char* name, std::uint32_t level) {
        return t._isWithinScope(name, level) != 0;
    }
    static bool mask_fits(T_TRACE& t, const char* mask, const char* value) {
        return t._checkMask(mask, value) != 0;
    }
    static std::int32_t trace_on(const T_TRACE& t) { return t._traceOn; }
    static std::int32_t name_set(const T_TRACE& t) { return t._nameSet; }
};

namespace zerdix::tests {

// While it lives, an allocation of the text buffer's kind fails.
class no_memory {
  public:
    no_memory();
    ~no_memory();
    no_memory(const no_memory&) = delete;
    no_memory& operator=(const no_memory&) = delete;
};

inline std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

// "(4183075) Entry: ..." becomes "# Entry: ...".
inline std::string without_ticks(const std::string& line) {
    const std::size_t end = line.find_first_not_of("0123456789", 1);
    const bool ticks = line.starts_with('(') && end > 1 && line.compare(end, 2, ") ") == 0;
    return ticks ? "#" + line.substr(end + 1) : line;
}

// The process's tracer, made anew under the settings of a test.
inline void start_anew() {
    std::destroy_at(&TTrace);
    std::construct_at(&TTrace);
}

// What is written to standard error meanwhile. Boxes are those that nobody replaced.
template <class Run>
std::string told_by_default_box(Run run) {
    platform::message_box_port* recorded = platform::replace_message_box(nullptr);
    ::testing::internal::CaptureStderr();
    run();
    platform::replace_message_box(recorded);
    return ::testing::internal::GetCapturedStderr();
}

// Arrays that the tracer owns just now.
int owned_arrays();

class Tracing : public ::testing::Test {
  protected:
    void configure(const std::string& lines) {
        folder.write("zerdix.ini", "[Zerdix]\nLogDir=" + folder.path("") + "\n" + lines + "\n");
    }

    // The lines of a file without the start line, each with "#" in place of its ticks.
    std::vector<std::string> lines_of(const std::string& name) const {
        const std::string text = folder.read(name);
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find('\n', at);
            lines.push_back(without_ticks(text.substr(at, end - at)));
            at = end + 1;
        }
        const bool started = !lines.empty() && lines[0].starts_with("*** ");
        lines.erase(lines.begin(), lines.begin() + (started ? 2 : 0));
        return lines;
    }

    std::vector<std::string> trace_lines() const { return lines_of("FAXTRACE.LOG"); }

    scratch_folder folder;
    environment_variable ini{"ZERDIX_INI", folder.path("zerdix.ini")};
    environment_variable width{"TRACE_WRAP_WIDTH", nullptr};
    recorded_boxes boxes;
};

// What one room writes into the trace file: while it lives, tracing is on as from the start of a
// process, into FAXTRACE.LOG of the folder.
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
