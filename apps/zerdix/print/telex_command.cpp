// SPDX-License-Identifier: MIT
// zerdix telex: a text goes out as a telex.

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>

#include "arguments/commands.h"
#include "books/text_file.h"
#include "output/failure.h"
#include "output/interrupt.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "print/job_options.h"
#include "print/telex_text.h"
#include "session/settings_choice.h"

namespace zerdix::app {

namespace {

struct telex_line_options {
    std::string file;
    print_options options;
    std::optional<std::string> at;
    std::string settings;
};

telex_text read_telex(const std::string& path) {
    const std::string name = path == "-" ? "standard input" : path;
    const std::string utf8 = read_whole_file(path);
    try {
        telex_text telex = make_telex(utf8);
        for (const std::string& remark : telex.remarks)
            note(name + ": " + remark);
        return telex;
    } catch (const failure& error) {
        throw failure(error.code(), name + ' ' + error.what());
    }
}

std::string default_title(const std::string& path) {
    return path == "-" ? "Telex" : std::filesystem::path(path).filename().string();
}

// What can be told wrong without the server is told before anything is asked of it.
void send(const std::string& file, const print_options& options) {
    check_receivers(options);
    const telex_text telex = read_telex(file);
    const std::string title = job_title(options, default_title(file));
    const std::string settings = merge_text(options, title);
    watch_for_interrupts();
    print_job job(title, NETTYPE_TELEX);
    set_up(job, options, settings);
    job.require_receivers_or_dialog();
    stop_if_interrupted();
    const std::int32_t sent = job.send_telex(telex.text);
    if (!options.quiet)
        std::printf("%s: %s, handed over to %s\n", file == "-" ? "telex" : file.c_str(),
                    counted(telex.lines, "line").c_str(), counted(sent, "receiver").c_str());
}

// The telex printer is told a time and no tariff.
send_time telex_time(const std::string& typed) {
    const send_time time = required_send_time(typed);
    if (time.when == send_time::kind::night)
        throw failure(exit_usage, "--at night: a telex can't wait for the cheap tariff");
    return time;
}

void run(telex_line_options& line, char** arguments) {
    use_settings(line.settings, arguments);
    if (line.at)
        line.options.at = telex_time(*line.at);
    send(line.file, line.options);
}

} // namespace

void add_telex_command(cli::command app, char** arguments) {
    auto line = std::make_shared<telex_line_options>();
    cli::command command = app.add_command("telex", "Send a text as a telex");
    command.add_argument("FILE", line->file, "The text to send, UTF-8; - for standard input");
    add_receiver_options(command, line->options, "telex");
    add_title(command, line->options, "the name of the file");
    add_retries_and_time(command, line->options, line->at, telex_times);
    command.add_option("--settings", line->settings, "Settings file to use", "FILE");
    command.add_flag("--quiet", line->options.quiet, "No last line");
    command.footer("Example: zerdix telex order.txt --to 402195 --to common:hansen");
    command.callback([line, arguments] { run(*line, arguments); });
}

} // namespace zerdix::app
