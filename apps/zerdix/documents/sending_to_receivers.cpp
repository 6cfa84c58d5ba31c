// SPDX-License-Identifier: MIT
#include "documents/sending_to_receivers.h"

#include <ctime>

#include <zerdix/book_entry.h>
#include <zerdix/values.h>

#include "arguments/send_time.h"
#include "books/known_entry.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "platform/encoding.h"
#include "print/lost_reply.h"

namespace zerdix::app {

namespace {

void set_time(a_s_rec& record, const std::optional<send_time>& at) {
    if (!at)
        return;
    record.nighttariff = at->when == send_time::kind::night;
    if (at->when == send_time::kind::clock || at->when == send_time::kind::date)
        record.sendtime = send_time_seconds(*at, std::time(nullptr));
}

a_s_rec send_record(user_session& user, std::int32_t document, const print_options& options) {
    const a_p_rec& desk_record = user.fetch("reading document " + std::to_string(document),
                                            [&] { return user.journal().getPDoc(document); });
    a_s_rec record{};
    record.faxid = document;
    record.pages = static_cast<std::int16_t>(page_count(desk_record));
    record.comment.assign(title(desk_record));
    record.nettype = NETTYPE_FAX;
    record.maxretries = static_cast<std::int16_t>(options.retries.value_or(0));
    record.priority = send_priority(options.priority.value_or(0));
    if (options.resolution)
        record.resolution = *options.resolution == "fine" ? resolution_fine : resolution_normal;
    set_time(record, options.at);
    return record;
}

void require_fax_entry(user_session& user, const std::string& receiver) {
    const auto named = parse_book_entry(receiver);
    if (!named)
        return;
    if (known_entry(user, *named).nettype != NETTYPE_FAX)
        throw failure(exit_no_receiver,
                      platform::cp1252_to_utf8(receiver) + " has no fax: it is an entry for telex");
}

void add_group(user_session& user, const std::string& typed, std::vector<std::string>& receivers) {
    const std::string group = field_text("--group", typed, 10);
    const std::size_t before = receivers.size();
    const PTRLIST& members = user.fetch("reading the group " + typed, [&] {
        return user.books().getTGroupEntries(group.c_str(), 1);
    });
    for (const o_tgroupl* member : records<o_tgroupl>(members)) {
        const book_entry named{std::string{member->tbookid.view()},
                               std::string{member->teleid.view()}};
        const auto entry = find_entry(user, named);
        if (entry && entry->nettype == NETTYPE_FAX)
            receivers.push_back(named.text());
    }
    if (receivers.size() == before)
        throw failure(exit_no_receiver,
                      "the group " + typed + " doesn't exist or has no fax receiver");
}

std::vector<std::string> all_receivers(user_session& user, const print_options& options) {
    std::vector<std::string> receivers;
    for (const std::string& typed : options.to) {
        receivers.push_back(phone_value(typed));
        require_fax_entry(user, receivers.back());
    }
    for (const std::string& group : options.groups)
        add_group(user, group, receivers);
    return receivers;
}

std::string rest_command(std::int32_t document, const std::vector<std::string>& receivers,
                         std::size_t from) {
    std::string command = "zerdix send " + std::to_string(document);
    for (std::size_t i = from; i < receivers.size(); ++i)
        command += " --to \"" + platform::cp1252_to_utf8(receivers[i]) + '"';
    return command;
}

// Of the receiver at which the sending stopped: whether it has its send job all the same.
lost_job state_of_last(std::int32_t result, std::int32_t document, std::size_t made,
                       std::optional<std::int32_t> before, bool timed_out,
                       const std::string& host) {
    if (result != call_failed)
        return lost_job::not_made;
    return before ? look_up({document, *before, {}, made, timed_out}, host) : lost_job::unknown;
}

// What was made when the sending stopped at `receivers[made]`.
failure stopped(std::int32_t document, const std::vector<std::string>& receivers, std::size_t made,
                lost_job last, const failure_cause& why) {
    const std::string of_all = " of " + std::to_string(receivers.size()) + " send jobs ";
    const std::size_t most = made + (last == lost_job::not_made ? 0 : 1);
    std::string sentence = "sending";
    if (last != lost_job::made)
        sentence += " to " + platform::cp1252_to_utf8(receivers[made]);
    sentence += " failed: " + why.cause + "; ";
    if (last == lost_job::unknown)
        sentence += "at least " + std::to_string(made) + " and at most " + std::to_string(most) +
                    of_all + "were made, \"zerdix doc list outgoing\" shows them";
    else
        sentence += std::to_string(most) + of_all + "had been made";
    if (most < receivers.size())
        sentence += "; " + rest_command(document, receivers, most) + " sends it to the rest";
    return {why.code, sentence};
}

} // namespace

void send_to_receivers(user_session& user, std::int32_t document, const print_options& options) {
    a_s_rec record = send_record(user, document, options);
    const std::vector<std::string> receivers = all_receivers(user, options);
    const auto before = id_given_now(user.journal());
    for (std::size_t made = 0; made < receivers.size(); ++made) {
        const call_probe watch;
        record.phone.assign(receivers[made]);
        const std::int32_t result = user.journal().sendDoc(document, &record);
        if (result == call_succeeded)
            continue;
        const failure_cause why = result == call_refused
                                      ? failure_cause{exit_refused, "the server refused it"}
                                      : watch.explain(user.host());
        const lost_job last =
            state_of_last(result, document, made, before, watch.timed_out(), user.host());
        throw stopped(document, receivers, made, last, why);
    }
    user.out().done(counted(static_cast<int>(receivers.size()), "send job") + " made",
                    {{"jobs", receivers.size()}});
}

} // namespace zerdix::app
