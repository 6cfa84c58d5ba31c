// SPDX-License-Identifier: MIT
#include "alphad/store/picture_blocks.h"

#include <algorithm>

namespace zerdix::alphad {

namespace {

// The most bytes of a row, as many as the largest block that the clients send.
constexpr std::int64_t row_bytes = 32768;

} // namespace

void append_bytes(database& db, std::int64_t picture, std::int64_t start, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view row = bytes.substr(0, row_bytes);
        execute(db, "INSERT INTO picture_blocks (picture, start, data) VALUES (?, ?, ?)", picture,
                start, row);
        start += static_cast<std::int64_t>(row.size());
        bytes.remove_prefix(row.size());
    }
}

std::string read_bytes(const database& db, std::int64_t picture, std::int64_t start,
                       std::int64_t length) {
    statement row(db,
                  "SELECT start, data FROM picture_blocks "
                  "WHERE picture = ? AND start > ? AND start < ? ORDER BY start",
                  picture, start - row_bytes, start + length);
    std::string found;
    while (row.step()) {
        const std::string_view data = row.bytes(1);
        const auto skipped =
            static_cast<std::size_t>(std::max(start - row.integer(0), std::int64_t{0}));
        if (skipped < data.size())
            found += data.substr(skipped, static_cast<std::size_t>(length) - found.size());
    }
    return found;
}

} // namespace zerdix::alphad
