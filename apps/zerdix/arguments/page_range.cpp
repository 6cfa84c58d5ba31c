// SPDX-License-Identifier: MIT
#include "arguments/page_range.h"

#include <charconv>
#include <string_view>

#include "output/failure.h"
#include "output/progress.h"

namespace zerdix::app {

namespace {

constexpr int most_pages = 32767;

failure no_pages(const std::string& typed) {
    return {exit_usage, '"' + typed + "\" names no pages: 3, 1-3, 2- or 1-3,7 is expected"};
}

int read_number(std::string_view digits, const std::string& typed) {
    int number = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), number);
    if (error != std::errc() || end != digits.end() || number < 1 || number > most_pages)
        throw no_pages(typed);
    return number;
}

page_range read_range(std::string_view text, const std::string& typed) {
    const std::size_t dash = text.find('-');
    const int first = read_number(text.substr(0, dash), typed);
    if (dash == std::string_view::npos)
        return {first, first};
    const std::string_view rest = text.substr(dash + 1);
    const page_range range{first, rest.empty() ? 0 : read_number(rest, typed)};
    if (range.last != 0 && range.last < range.first)
        throw no_pages(typed);
    return range;
}

} // namespace

std::vector<page_range> read_page_ranges(const std::string& typed) {
    if (typed.empty())
        return {{1, 0}};
    std::vector<page_range> ranges;
    for (std::size_t at = 0; at <= typed.size();) {
        const std::size_t comma = std::min(typed.find(',', at), typed.size());
        ranges.push_back(read_range(std::string_view(typed).substr(at, comma - at), typed));
        at = comma + 1;
    }
    return ranges;
}

page_range within(page_range range, int pages, const std::string& name) {
    const int last = range.last == 0 ? pages : range.last;
    if (range.first > pages || last > pages)
        throw failure(exit_no_input, name + " has no page " +
                                         std::to_string(range.first > pages ? range.first : last) +
                                         ", only " + counted(pages, "page"));
    return {range.first, last};
}

} // namespace zerdix::app
