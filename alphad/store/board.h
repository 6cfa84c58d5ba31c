// SPDX-License-Identifier: MIT
// The bulletin board: short messages, numbered from 1 on in the order in which they came.
#ifndef ZERDIX_ALPHAD_STORE_BOARD_H
#define ZERDIX_ALPHAD_STORE_BOARD_H

#include <vector>

#include <zerdix/records.h>

#include "alphad/store/database.h"

namespace zerdix::alphad {

struct board_message {
    std::int32_t number;
    str10 id;
    str80 text;
    std::int32_t time;
};

class board {
  public:
    explicit board(database& db) : db_(db) {}

    void add(std::int16_t kind, std::string_view id, std::string_view text);

    // Those of a kind behind a number, oldest first.
    std::vector<board_message> behind(std::int32_t number, std::int16_t kind) const;

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
