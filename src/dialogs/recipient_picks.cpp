// SPDX-License-Identifier: MIT
#include "dialogs/recipient_picks.h"

#include <algorithm>
#include <utility>

#include "dialogs/send_controls.h"

namespace zerdix::dialogs {

void recipient_picks::add(recipient_pick pick) {
    shown_ += pick.text + ' ';
    shown_.resize(std::min(shown_.size(), send::picks_limit));
    pPicks.push_back(std::move(pick));
}

void recipient_picks::clear() {
    pPicks.clear();
    shown_.clear();
}

bool recipient_picks::has_typed(std::string_view text) const {
    return std::any_of(pPicks.begin(), pPicks.end(), [text](const recipient_pick& pick) {
        return pick.isGroup == 0 && pick.text == text;
    });
}

} // namespace zerdix::dialogs
