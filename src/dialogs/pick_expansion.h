// SPDX-License-Identifier: MIT
// The receivers that come of what the user has picked: a group becomes its members.
#ifndef ZERDIX_DIALOGS_PICK_EXPANSION_H
#define ZERDIX_DIALOGS_PICK_EXPANSION_H

#include <cstdint>
#include <string>
#include <vector>

#include <zerdix/telebook.h>

#include "dialogs/recipient_picks.h"
#include "forms/presenter.h"

namespace zerdix::dialogs {

// A receiver string of at most 30 characters, with what is known of the pick that it came from.
struct final_receiver {
    std::string text;
    int isGroup;
    std::int16_t nettype;
};

// The receivers of the picks, in order: a group gives all its members, or only those with a telex
// number. The user is told of a group that can't be read, and the others go on.
std::vector<final_receiver> expand_picks(const std::vector<recipient_pick>& picks,
                                         TELEBOOK& telebook, bool telexOnly,
                                         forms::window_handle window);

} // namespace zerdix::dialogs

#endif
