// SPDX-License-Identifier: MIT
// The signature of the session's user.

#include <zerdix/zerdix.h>

#include "rpc/block_transfer.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::by_session;
using rpc::trace_lines;
namespace proc = rpc::proc;

namespace {

constexpr std::int32_t store_block = 16384;

// Fills the signature's room block by block and sets its size; false when a call failed.
bool fetch_blocks(const by_session& caller, a_get_sigb_i request, held_result<a_get_sigb_o>& answer,
                  std::uint32_t room, page_dat& signature) {
    std::uint32_t gathered = 0;
    request.length = rpc::fetch_block;
    for (int i = 0; i < rpc::most_fetch_blocks; ++i) {
        if (rpc::fetch<proc::a_get_sigb_1>(caller, request, answer) == nullptr)
            return false;
        gathered += rpc::take_block(*answer, signature, gathered, room);
        const bool ends = answer->data.length == 0 && gathered == room;
        if (ends || answer->size < rpc::fetch_block)
            break;
        request.offset = rpc::next_offset(request.offset, answer->size);
    }
    signature.size = gathered;
    return true;
}

} // namespace

page_dat* ZERDIX::getSignature() {
    const by_session caller{"ZERDIX::getSignature()"};
    if (caller.handle() == nullptr)
        return nullptr;
    const a_get_sigb_i request{rpc::user_id(), 0, 0};
    if (rpc::fetch<proc::a_get_sigb_1>(caller, request, pSignatureResult) == nullptr)
        return nullptr;
    trace_lines.info("ZERDIX::getSignature(): Size of signature: %ld Bytes\n",
                     pSignatureResult->size);
    const std::uint32_t room = rpc::room_for(pSignatureResult->size);
    signature.size = 0;
    if (room > 0) {
        if (!signature.make_room(room) ||
            !fetch_blocks(caller, request, pSignatureResult, room, signature))
            return nullptr;
    }
    caller.exit("--> ZERDIX::getSignature(): %ld Bytes loaded\n", signature.size);
    return &signature;
}

std::int32_t ZERDIX::putSignature(const page_dat* data) {
    const by_session caller{"ZERDIX::putSignature()"};
    if (caller.handle() == nullptr)
        return rpc::no_client;
    a_put_sigb_i request{rpc::user_id(), 0, 0, {}};
    const auto send = [&](std::int32_t offset, const bytes& piece) {
        request.offset = offset;
        request.length = static_cast<std::int32_t>(piece.length);
        request.data = piece;
        const std::int32_t rc = rpc::request<proc::a_put_sigb_1>(caller, request);
        if (rc == rpc::refused)
            trace_lines.error("Error returned from a_put_sigb_1()\n");
        return rc;
    };
    return rpc::send_blocks(*data, store_block, send);
}
