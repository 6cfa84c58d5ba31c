// SPDX-License-Identifier: MIT
#include "alphad/store/board.h"

#include <ctime>

namespace zerdix::alphad {

void board::add(std::int16_t kind, std::string_view id, std::string_view text) {
    execute(db_, "INSERT INTO board (kind, boardid, text, time) VALUES (?, ?, ?, ?)", kind, id,
            text, std::int64_t{std::time(nullptr)});
}

std::vector<board_message> board::behind(std::int32_t number, std::int16_t kind) const {
    statement row(db_,
                  "SELECT number, boardid, text, time FROM board WHERE number > ? AND kind = ? "
                  "ORDER BY number",
                  number, kind);
    std::vector<board_message> found;
    while (row.step()) {
        board_message& message = found.emplace_back();
        message.number = row.number(0);
        message.id.assign(row.bytes(1));
        message.text.assign(row.bytes(2));
        message.time = row.number(3);
    }
    return found;
}

} // namespace zerdix::alphad
