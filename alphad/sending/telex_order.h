// SPDX-License-Identifier: MIT
// The control record in front of a telex text: one line of items, each between two "#".
#ifndef ZERDIX_ALPHAD_SENDING_TELEX_ORDER_H
#define ZERDIX_ALPHAD_SENDING_TELEX_ORDER_H

#include <optional>
#include <string_view>

#include <zerdix/text.h>

namespace zerdix::alphad {

struct telex_order {
    str10 userid;
    str30 title;
    str30 phone;           // a number, or BOOK:ENTRY; empty when the telex is for the user's desk
    std::int32_t sendtime; // 0: at once
    std::int16_t retries;
};

// Nothing when the text doesn't begin with a control record.
std::optional<telex_order> read_telex_order(std::string_view text);

} // namespace zerdix::alphad

#endif
