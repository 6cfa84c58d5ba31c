// SPDX-License-Identifier: MIT
// The recipients that the user has picked so far, in the order of picking.
#ifndef ZERDIX_DIALOGS_RECIPIENT_PICKS_H
#define ZERDIX_DIALOGS_RECIPIENT_PICKS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zerdix::dialogs {

struct recipient_pick {
    std::string text;         // as typed, or BOOK:ENTRY, or a group's id
    int isGroup = 0;          //
    std::int16_t nettype = 0; // a nettypetype of an entry, 0 for the others
};

class recipient_picks {
  public:
    // Nothing looks whether the same recipient has been picked before.
    void add(recipient_pick pick);
    void clear();

    bool empty() const { return pPicks.empty(); }
    const std::vector<recipient_pick>& all() const { return pPicks; }
    // Whether this text, as it was typed, is one of the picks. A group of that name is no number.
    bool has_typed(std::string_view text) const;
    // The texts of the picks, each followed by a blank, as far as the display holds them. More than
    // it holds counts all the same.
    const std::string& shown() const { return shown_; }

  private:
    std::vector<recipient_pick> pPicks;
    std::string shown_;
};

} // namespace zerdix::dialogs

#endif
