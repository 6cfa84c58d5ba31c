// SPDX-License-Identifier: MIT
#include "dialogs/list_search.h"

#include "dialogs/search_pattern.h"

namespace zerdix::dialogs {

// A hit in rows that were there before may lie behind the last row.
list_search::end list_search::next(CSftList& list, std::string_view text) {
    search_pattern pattern(text);
    const std::int32_t count = list.rowCount();
    std::int32_t row = lLastHit + 1 < count ? lLastHit + 1 : 0;
    for (std::int32_t looked = 0; looked < count; ++looked) {
        if (pattern.match(list.rowText(row)) >= 0) {
            lLastHit = row;
            list.selectRow(row);
            list.showRow(row);
            return end::found;
        }
        row = row + 1 < count ? row + 1 : 0;
    }
    return pattern.is_valid() ? end::not_found : end::bad_text;
}

} // namespace zerdix::dialogs
