// SPDX-License-Identifier: MIT
#include "alphad/store/logs.h"

#include <limits>

namespace zerdix::alphad {

void logs::add(std::int32_t document, std::string_view line) {
    execute(db_,
            "INSERT INTO log_lines (document, position, line) SELECT ?1, "
            "(SELECT coalesce(max(position), -1) + 1 FROM log_lines WHERE document = ?1), ?2",
            document, line);
}

std::vector<std::string> logs::lines(std::int32_t document, std::int32_t position,
                                     std::int32_t most) const {
    std::vector<std::string> found;
    if (most <= 0)
        return found;
    statement row(db_,
                  "SELECT line FROM log_lines WHERE document = ? AND position >= ? "
                  "ORDER BY position LIMIT ?",
                  document, position, most);
    while (row.step())
        found.push_back(row.text(0));
    return found;
}

std::vector<std::string> logs::all(std::int32_t document) const {
    return lines(document, 0, std::numeric_limits<std::int32_t>::max());
}

void logs::copy(std::int32_t source, std::int32_t target) {
    for (const std::string& line : all(source))
        add(target, line);
}

} // namespace zerdix::alphad
