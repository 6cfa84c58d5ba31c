// SPDX-License-Identifier: MIT
// Storing and fetching pages, in blocks of one remote call each.

#include <algorithm>

#include <zerdix/journal.h>
#include <zerdix/values.h>

#include "common/settings.h"
#include "rpc/block_transfer.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::by_object;
using rpc::field;
using rpc::user_id;
namespace proc = rpc::proc;

namespace {

constexpr std::int32_t smallest_block = 512;
constexpr std::int32_t largest_block = 32768;

// The setting is read for each page, so that a change applies from the next one on.
std::int32_t block_length() {
    return std::clamp(common::setting_max_page_block_len(), smallest_block, largest_block);
}

// Fills the page's room block by block; false when a call failed. An answer without bytes is the
// end once the room is full; before, the same block is asked for again.
bool fetch_blocks(const by_object& caller, client* handle, a_get_pageb_i request, page_dat& page,
                  std::uint32_t room, std::uint32_t& gathered) {
    request.length = rpc::fetch_block;
    for (int i = 0; i < rpc::most_fetch_blocks; ++i) {
        const auto* answer = rpc::call<proc::a_get_pageb_1>(caller, handle, request);
        if (answer == nullptr)
            return false;
        if (answer->data.length == 0) {
            if (gathered == room)
                break;
            continue;
        }
        gathered += rpc::take_block(*answer, page, gathered, room);
        if (answer->size < rpc::fetch_block)
            break;
        request.offset = rpc::next_offset(request.offset, answer->size);
    }
    return true;
}

} // namespace

std::int32_t JOURNAL::putDocPage(std::int32_t faxid, std::int16_t page, std::int16_t pictureType,
                                 const page_dat* data) {
    return storeDocPage(ZERDIX::clsGetUserId(), faxid, page, pictureType, data);
}

std::int32_t JOURNAL::putPrintDocPage(std::int32_t faxid, std::int16_t page,
                                      std::int16_t pictureType, const page_dat* data) {
    return storeDocPage(print_user, faxid, page, pictureType, data);
}

std::int32_t JOURNAL::storeDocPage(const char* user, std::int32_t faxid, std::int16_t page,
                                   std::int16_t pictureType, const page_dat* data) {
    const by_object caller{pClient};
    if (caller.handle() == nullptr)
        return rpc::no_client;
    a_put_pageb_i block{field<10>(user), faxid, page, pictureType, 0, 0, {0, nullptr}};
    return rpc::send_blocks(*data, block_length(), [&](std::int32_t offset, const bytes& piece) {
        block.offset = offset;
        block.length = static_cast<std::int32_t>(piece.length);
        block.data = piece;
        return rpc::request<proc::a_put_pageb_1>(caller, block);
    });
}

page_dat* JOURNAL::getDocPage(topftype pool, std::int32_t faxid, std::int16_t page,
                              std::int16_t pictureType) {
    const by_object caller{pClient};
    client* handle = caller.handle();
    if (handle == nullptr)
        return nullptr;
    a_get_pageb_i request{user_id(), pool, faxid, page, pictureType, 0, 0};
    const auto* answer = rpc::call<proc::a_get_pageb_1>(caller, handle, request);
    if (answer == nullptr)
        return nullptr;
    std::uint32_t gathered = 0;
    if (answer->size > 0) {
        const std::uint32_t room = rpc::room_for(answer->size);
        if (!lastPage.make_room(room) ||
            !fetch_blocks(caller, handle, request, lastPage, room, gathered))
            return nullptr;
    }
    wire::release(wire::result_slot<proc::a_get_pageb_1>::record);
    lastPage.size = gathered;
    return &lastPage;
}

std::int32_t JOURNAL::insertDocPage(std::int32_t faxid, std::int16_t page) {
    return rpc::request<proc::a_insert_page_1>(by_object{pClient}, {user_id(), faxid, page});
}

std::int32_t JOURNAL::copyDocPage(topftype pool, std::int32_t sourceFaxid, std::int16_t sourcePage,
                                  std::int32_t targetFaxid, std::int16_t targetPage) {
    return rpc::request<proc::a_copy_page_1>(
        by_object{pClient}, {user_id(), pool, sourceFaxid, sourcePage, targetFaxid, targetPage});
}

std::int32_t JOURNAL::delPoolPage(std::int32_t faxid, std::int16_t page) {
    return rpc::request<proc::a_del_page_1>(by_object{pClient}, {user_id(), faxid, page});
}
