// SPDX-License-Identifier: MIT
#include "alphad/store/file_changes.h"

namespace zerdix::alphad {

void file_changes::put(const file_change& change) {
    execute(db_, "INSERT OR REPLACE INTO file_changes (file, appears) VALUES (?, ?)", change.file,
            change.appears);
}

std::vector<file_change> file_changes::all() const {
    statement row(db_, "SELECT file, appears FROM file_changes ORDER BY file");
    std::vector<file_change> found;
    while (row.step())
        found.push_back({row.text(0), row.flag(1)});
    return found;
}

void file_changes::clear() {
    execute(db_, "DELETE FROM file_changes");
}

} // namespace zerdix::alphad
