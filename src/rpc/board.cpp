// SPDX-License-Identifier: MIT
// The bulletin board.

#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/fields.h"

using namespace zerdix;
namespace proc = zerdix::rpc::proc;

a_board_entry* ZERDIX::getBoardEntries(int force) {
    const rpc::by_session caller{"ZERDIX::getBoardEntries()",
                                 "<-- ZERDIX::getBoardEntries(): Force: %ld", force};
    if (caller.handle() == nullptr)
        return nullptr;
    boardRequest.language = rpc::whole_field<30>(clsGetLanguageString());
    if (force != 0)
        boardRequest.stamp = 0;
    pBoardFirst = nullptr;
    if (rpc::fetch<proc::a_get_board_1>(caller, boardRequest, pBoardResult) == nullptr)
        return nullptr;
    boardRequest.stamp = pBoardResult->stamp;
    pBoardFirst = pBoardResult->first;
    return pBoardFirst;
}
