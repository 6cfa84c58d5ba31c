// SPDX-License-Identifier: MIT
// Merge data: the settings of a print job as a text of #KEY value# pairs.
//
// A value can't hold a "#" and is cut at 30 characters by the print job, so what wouldn't arrive as
// it was typed is refused here. Arguments are UTF-8, results Windows-1252.
#ifndef ZERDIX_APP_PRINT_MERGE_TEXT_H
#define ZERDIX_APP_PRINT_MERGE_TEXT_H

#include <optional>
#include <string>
#include <vector>

#include <zerdix/book_entry.h>

#include "arguments/send_time.h"

namespace zerdix::app {

struct print_options {
    std::vector<std::string> to; // numbers and BOOK:ENTRY
    std::vector<std::string> groups;
    std::optional<std::string> title;
    std::optional<int> paper;
    std::optional<std::string> resolution; // fine or normal
    std::optional<int> retries;
    std::optional<int> priority;
    std::optional<send_time> at;
    bool cover = false; // each receiver gets a cover page
    bool quiet = false;
};

// Cut to the 30 characters that a document's title may have.
struct title_text {
    std::string text;            // Windows-1252
    bool cut;                    // characters were dropped
    bool has_unknown_characters; // characters that don't exist in Windows-1252 became "?"
};
title_text title_of(const std::string& utf8);

// All pairs but the groups and the send time. `title` is left out when it holds a "#": a title
// can be given when the job is opened, too. Throws failure for a receiver that can't be one.
std::string merge_text(const print_options& options, const std::string& title);

// A receiver as the job's record holds it. Throws failure for one that can't be one.
std::string phone_value(const std::string& typed);

std::string group_pair(const std::string& group);
std::string send_time_pair(const std::string& value);

// Those of the receivers that name a book. Throws as merge_text does.
std::vector<book_entry> book_entries(const print_options& options);

} // namespace zerdix::app

#endif
