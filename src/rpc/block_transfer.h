// SPDX-License-Identifier: MIT
// Fetching and sending pages and signatures in blocks, one remote call each. A block that is
// shorter than the others is the last one; it may be empty. What is fetched may have grown or
// shrunk since the first answer told its size.
#ifndef ZERDIX_RPC_BLOCK_TRANSFER_H
#define ZERDIX_RPC_BLOCK_TRANSFER_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "rpc/call.h"

namespace zerdix::rpc {

// A fetch has blocks of one size, and at most so many of them.
constexpr std::int32_t fetch_block = 16384;
constexpr int most_fetch_blocks = 100;
constexpr std::uint32_t most_fetched = fetch_block * most_fetch_blocks;

// How many bytes to allocate for the size that a first answer tells: no more than a fetch can
// bring.
inline std::uint32_t room_for(std::int32_t size) {
    return std::min(static_cast<std::uint32_t>(std::max(size, std::int32_t{0})), most_fetched);
}

// Appends the bytes of an answer to the `gathered` bytes that are there, never beyond `room`.
// Returns how many were copied.
template <class Answer>
std::uint32_t take_block(const Answer& answer, page_dat& into, std::uint32_t gathered,
                         std::uint32_t room) {
    const auto told = static_cast<std::uint32_t>(std::max(answer.size, std::int32_t{0}));
    const std::uint32_t copied = std::min({told, answer.data.length, room - gathered});
    if (copied > 0)
        std::memcpy(into.data + gathered, answer.data.data, copied);
    return copied;
}

// Where the next block begins: behind all that the answer tells of, whether it found room or not.
// An offset beyond 2 GiB wraps around; what is copied doesn't depend on it.
inline std::int32_t next_offset(std::int32_t offset, std::int32_t told) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(offset) +
                                     static_cast<std::uint32_t>(told));
}

// Sends data in blocks of a length: `send(offset, piece)` makes one call and gives its result, and
// the first one other than success ends the transfer. The protocol has no offset for data beyond
// 2 GiB, which is refused before anything is sent.
template <class Send>
std::int32_t send_blocks(const page_dat& data, std::int32_t length, Send send) {
    if (data.size > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()))
        return refused;
    const auto whole = static_cast<std::uint32_t>(length);
    std::uint32_t offset = 0;
    for (bytes piece{whole, nullptr}; piece.length == whole; offset += piece.length) {
        piece.length = std::min(whole, data.size - offset);
        piece.data = piece.length > 0 ? data.data + offset : nullptr;
        const std::int32_t rc = send(static_cast<std::int32_t>(offset), piece);
        if (rc != success)
            return rc;
    }
    return success;
}

} // namespace zerdix::rpc

#endif
