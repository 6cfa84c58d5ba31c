// SPDX-License-Identifier: MIT
// The search in the rows of a list, which goes on behind its last hit and round.
#ifndef ZERDIX_DIALOGS_LIST_SEARCH_H
#define ZERDIX_DIALOGS_LIST_SEARCH_H

#include <cstdint>
#include <string_view>

#include "dialogs/sft_list.h"

namespace zerdix::dialogs {

class list_search {
  public:
    // A text that took too long hasn't been looked for in all rows and counts as a bad one.
    enum class end { found, not_found, bad_text };

    // Selects the next row that has the text, and brings it into view.
    end next(CSftList& list, std::string_view text);
    // The user has chosen this row by himself: the next search begins behind it.
    void go_on_behind(std::int32_t row) { lLastHit = row; }

  private:
    std::int32_t lLastHit = -1;
};

} // namespace zerdix::dialogs

#endif
