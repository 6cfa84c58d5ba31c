// Moving page data: a page goes and comes in blocks, one remote call each.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

#include <zerdix/journal.h>

#include "common/settings.h"
#include "journal/print_user.h"
#include "rpc/call.h"
#include "rpc/fields.h"

using namespace zerdix;
using journal::print_user;
using rpc::by_object;
using rpc::field;
using rpc::user_id;
namespace proc = rpc::proc;

namespace {

constexpr std::int32_t smallest_block = 512;
constexpr std::int32_t largest_block = 32768;

// A fetch has blocks of one size, and at most so many of them.
constexpr std::int32_t fetch_block = 16384;
constexpr int most_fetch_blocks = 100;
constexpr std::uint32_t most_fetched = fetch_block * most_fetch_blocks;

// The setting is read for each page, so that a change applies from the next one on.
std::int32_t block_length() {
    return std::clamp(common::setting_max_page_block_len(), smallest_block, largest_block);
}

// Copies what an answer carries behind what is gathered, and nothing beyond the room that the
// answer to the size request made.
std::uint32_t take_block(const a_get_pageb_o& answer, page_dat& page, std::uint32_t gathered,
                         std::uint32_t room) {
    const auto told = static_cast<std::uint32_t>(std::max(answer.size, std::int32_t{0}));
    const std::uint32_t taken = std::min({told, answer.data.length, room - gathered});
    std::memcpy(page.data + gathered, answer.data.data, taken);
    return taken;
}

// Fills the page's room block by block; false when a call failed.
bool fetch_blocks(const by_object& caller, client* handle, a_get_pageb_i request, page_dat& page,
                  std::uint32_t room, std::uint32_t& gathered) {
    request.length = fetch_block;
    for (int i = 0; i < most_fetch_blocks; ++i) {
        const auto* answer = rpc::call<proc::a_get_pageb_1>(caller, handle, request);
        if (answer == nullptr)
            return false;
        if (answer->data.length == 0)
            continue;
        gathered += take_block(*answer, page, gathered, room);
        if (answer->size < fetch_block)
            break;
        request.offset = static_cast<std::int32_t>(gathered);
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

// The last block is always shorter than the block length, if need be empty: that is how the server
// knows that the page is complete.
std::int32_t JOURNAL::storeDocPage(const char* user, std::int32_t faxid, std::int16_t page,
                                   std::int16_t pictureType, const page_dat* data) {
    const by_object caller{pClient};
    if (caller.handle() == nullptr)
        return rpc::no_client;
    if (data->size > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()))
        return rpc::refused; // the protocol has no offset for it
    a_put_pageb_i block{field<10>(user), faxid, page, pictureType, 0, 0, {0, nullptr}};
    const std::int32_t length = block_length();
    std::vector<unsigned char> buffer(static_cast<std::size_t>(length));
    auto remaining = static_cast<std::int32_t>(data->size);
    do {
        block.offset += block.length;
        remaining -= block.length;
        block.length = std::min(length, remaining);
        std::fill(buffer.begin(), buffer.end(), static_cast<unsigned char>(0));
        std::copy_n(data->data + block.offset, block.length, buffer.begin());
        block.data = {static_cast<std::uint32_t>(block.length), buffer.data()};
        const std::int32_t rc = rpc::request<proc::a_put_pageb_1>(caller, block);
        if (rc != rpc::success)
            return rc;
    } while (block.length == length);
    return rpc::success;
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
        const auto room = std::min(static_cast<std::uint32_t>(answer->size), most_fetched);
        std::free(lastPage.data);
        lastPage = {0, static_cast<unsigned char*>(std::malloc(room))};
        if (lastPage.data == nullptr ||
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
