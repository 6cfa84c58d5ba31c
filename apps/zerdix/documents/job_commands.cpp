// SPDX-License-Identifier: MIT
// zerdix doc cancel, zerdix doc restart, zerdix doc change: what can be done to a send job.

#include <ctime>
#include <memory>
#include <optional>

#include "arguments/commands.h"
#include "arguments/send_time.h"
#include "arguments/several_names.h"
#include "documents/arguments.h"
#include "documents/document_records.h"
#include "output/value_text.h"
#include "session/user_command.h"
#include <zerdix/values.h>

namespace zerdix::app {

namespace {

constexpr std::size_t title_width = 30;

document find_job(user_session& user, const std::string& typed) {
    return find_document(user, typed, TOPF_S, "only outgoing documents have a send job");
}

std::string why_not(user_session& user, const document& job) {
    const a_s_rec* record = user.journal().getSDoc(job.id);
    const std::int32_t status = record != nullptr ? record->status : 0;
    switch (status) {
    case send_waiting:
        return "it waits to be sent";
    case send_spooled:
        return "it has gone out already";
    case send_cancelled:
        return "it is cancelled already";
    default:
        return "the server refused";
    }
}

json job_json(const document& job) {
    return {{"pool", pool_word(TOPF_S)}, {"id", job.id}};
}

named_act cancel(user_session& user, const std::string& typed) {
    const document job = find_job(user, typed);
    user.expect(
        "cancelling " + name_of(job), [&] { return user.journal().cancelJob(job.id); },
        [&] { return why_not(user, job); });
    return {name_of(job) + " cancelled", job_json(job)};
}

named_act restart(user_session& user, const std::string& typed) {
    const document job = find_job(user, typed);
    user.expect(
        "restarting " + name_of(job), [&] { return user.journal().restartSendJob(job.id); },
        [&] { return why_not(user, job); });
    return {name_of(job) + " restarted", job_json(job)};
}

cli::command add_for_each_job(cli::command parent, const char* name, const char* description,
                              named_act (*work)(user_session&, const std::string&)) {
    auto documents = std::make_shared<std::vector<std::string>>();
    cli::command command = add_user_command(
        parent, name, description,
        [documents, work](user_session& user) {
            for_each_name(user.out(), *documents,
                          [&](const std::string& typed) { return work(user, typed); });
        },
        [documents] { check_document_names(*documents); });
    add_documents(command, *documents);
    return command;
}

struct change_line {
    std::string document;
    std::optional<std::string> title, at, resolution;
    std::optional<int> retries, priority;
    std::optional<bool> night;
};

void check_change(const change_line& line) {
    read_document_name(line.document);
    if (!line.title && !line.at && !line.resolution && !line.retries && !line.priority &&
        !line.night)
        throw failure(exit_usage, "nothing is named that should change");
    if (line.at)
        required_send_time(*line.at);
}

void set_time(a_s_rec& record, const send_time& time) {
    using kind = send_time::kind;
    if (time.when == kind::now || time.when == kind::night) {
        record.sendtime = 0;
        record.nighttariff = time.when == kind::night;
        return;
    }
    record.sendtime = send_time_seconds(time, std::time(nullptr));
}

a_s_rec changed(a_s_rec record, const change_line& line) {
    if (line.title)
        record.comment.assign(field_text("the title", *line.title, title_width));
    if (line.at)
        set_time(record, required_send_time(*line.at));
    if (line.night)
        record.nighttariff = *line.night;
    if (line.retries)
        record.maxretries = static_cast<std::int16_t>(*line.retries);
    if (line.priority)
        record.priority = send_priority(*line.priority);
    if (line.resolution)
        record.resolution = resolution_of_word(*line.resolution);
    return record;
}

void change(user_session& user, const change_line& line) {
    const document job = find_job(user, line.document);
    const a_s_rec record = changed(
        user.fetch("fetching " + name_of(job), [&] { return user.journal().getSDoc(job.id); }),
        line);
    user.expect(
        "changing " + name_of(job),
        [&] {
            return user.journal().chgSRec(
                job.id, record.priority, std::string(record.comment.view()).c_str(),
                record.sendtime, record.nighttariff, record.maxretries, record.resolution);
        },
        [&] { return why_not(user, job); });
    user.out().done(name_of(job) + " changed", job_json(job));
}

void add_change_options(cli::command command, change_line& line) {
    command.add_option("-T,--title", line.title, "Title of the document, 30 characters");
    command.add_option(
        "-a,--at", line.at,
        "When to send, in the server's time: now, night (the cheap tariff), 20:15, or "
        "\"2026-12-31 20:15\"",
        "TIME");
    const cli::option night = command.add_flag(
        "--night", [&line] { line.night = true; }, "Wait for the cheap tariff");
    command
        .add_flag(
            "--no-night", [&line] { line.night = false; }, "Don't wait for the cheap tariff")
        .excludes(night);
    command.add_option("--retries", line.retries, "Retries for a busy number, 0 to 9", "N")
        .in_range(0, 9);
    command.add_option("-q,--priority", line.priority, "0 (the lowest) to 100", "N")
        .in_range(0, 100);
    command.add_option("--resolution", line.resolution, "fine, normal, or as-is (as stored)", "HOW")
        .one_of({"fine", "normal", "as-is"});
}

void add_change_command(cli::command parent) {
    auto line = std::make_shared<change_line>();
    cli::command command = add_user_command(
        parent, "change", "Change the settings of a send job that hasn't gone out yet",
        [line](user_session& user) { change(user, *line); }, [line] { check_change(*line); });
    add_document(command, line->document);
    add_change_options(command, *line);
    command.footer("Example: zerdix doc change 17 --at 20:15 --priority 100");
}

} // namespace

void add_cancel_command(cli::command parent) {
    add_for_each_job(parent, "cancel", "Stop send jobs that haven't gone out yet", cancel)
        .footer("Example: zerdix cancel 17 18");
}

void add_job_commands(cli::command parent) {
    add_for_each_job(parent, "restart", "Start cancelled send jobs anew", restart)
        .footer("Example: zerdix doc restart 17");
    add_change_command(parent);
}

} // namespace zerdix::app
