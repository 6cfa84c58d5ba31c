// SPDX-License-Identifier: MIT
// zerdix book external: recipients out of an external phone book.
#include "arguments/commands.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <thread>

#include "books/kinds.h"
#include "books/names.h"
#include "output/interrupt.h"
#include "output/value_text.h"
#include "session/user_command.h"
#include <zerdix/values.h>

namespace zerdix::app {

namespace {

using namespace std::chrono_literals;
using clock = std::chrono::steady_clock;

constexpr std::size_t most_parameters = 10;
constexpr std::size_t parameter_width = 80;

struct query_line {
    std::string typed, id;
    std::vector<std::string> values; // UTF-8, then Windows-1252
    int timeout = 30;
};

void convert(std::vector<std::string>& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = field_text("parameter " + std::to_string(i), values[i], parameter_width);
    values.resize(most_parameters);
}

// The number of the query.
std::int32_t ask(user_session& user, const query_line& line) {
    std::array<const char*, most_parameters> p{};
    for (std::size_t i = 0; i < most_parameters; ++i)
        p[i] = line.values[i].empty() ? nullptr : line.values[i].c_str();
    const call_probe watch;
    const std::int32_t query = user.books().queryExternTBook(
        line.id.c_str(), p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9]);
    if (query < 0 || ZERDIX::clsGetClient() == nullptr)
        user.lost("asking " + shown(line.id), watch);
    if (query == 0)
        throw failure(exit_refused, "asking " + shown(line.id) + " failed: the server refused");
    return query;
}

// Waits longer from one look to the next, a second at most.
const a_fetch_result_o& fetch_finished_result(user_session& user, std::int32_t query, int timeout) {
    const auto end = clock::now() + std::chrono::seconds(timeout);
    for (auto pause = 100ms;; pause = std::min<std::chrono::milliseconds>(pause * 2, 1s)) {
        const a_fetch_result_o& result = user.fetch(
            "fetching the answer", [&] { return user.books().fetchExternTBookResult(query); });
        if (result.fetchstate == fetch_finished)
            return result;
        if (result.fetchstate != fetch_running)
            throw failure(exit_refused, "the server doesn't know the query any more");
        if (interrupted())
            throw failure(exit_interrupted, "interrupted");
        if (clock::now() + pause > end)
            throw failure(exit_unavailable, "the query isn't finished after " +
                                                std::to_string(timeout) +
                                                " seconds; --timeout allows more");
        std::this_thread::sleep_for(pause);
    }
}

std::string_view row_text(const a_log_line& row) {
    const auto* bytes = reinterpret_cast<const char*>(row.line.bytes);
    return {bytes, ::strnlen(bytes, sizeof row.line.bytes)};
}

// A row of another form than the agreed one is shown as a name.
json row_json(std::string_view row) {
    json object;
    for (const char* key : {"name", "phone", "place"}) {
        const auto end = std::min(row.find(';'), row.size());
        object[key] = shown(row.substr(0, end));
        row.remove_prefix(std::min(end + 1, row.size()));
    }
    return object;
}

void run(user_session& user, const query_line& line) {
    const o_tebu book = known<book_kind>(user, line.id);
    if (!is_external(book))
        throw failure(exit_usage, "the phone book " + shown(line.id) +
                                      " isn't an external one; zerdix book show --match looks "
                                      "through it");
    watch_for_interrupts();
    const a_fetch_result_o& result = fetch_finished_result(user, ask(user, line), line.timeout);
    json rows = json::array();
    for (const a_log_line* row = result.first; row != nullptr; row = row->next)
        rows.push_back(row_json(row_text(*row)));
    user.out().rows(rows, {{"name", "Name"}, {"phone", "Number"}, {"place", "Place"}},
                    "nothing was found");
}

} // namespace

void add_external_query(cli::command group) {
    auto line = std::make_shared<query_line>();
    cli::command command = add_user_command(
        group, "external", "Look recipients up in an external phone book",
        [line](user_session& user) { run(user, *line); },
        [line] {
            line->id = id_text("the phone book", line->typed);
            convert(line->values);
        });
    command.alias("search-external");
    command.add_argument("ID", line->typed, "Id of the phone book");
    command
        .add_argument("PARAMETER", line->values,
                      "What to look for, up to 10; zerdix book info names their meanings in order. "
                      "\"\" leaves one out")
        .optional()
        .takes(0, most_parameters);
    command
        .add_option("--timeout", line->timeout, "Seconds to wait for the answer (default: 30)",
                    "SECONDS")
        .in_range(1, 86400);
    command.footer("Example: zerdix book external auskunft Meier Berlin");
}

} // namespace zerdix::app
