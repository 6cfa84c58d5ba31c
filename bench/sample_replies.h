// SPDX-License-Identifier: MIT
// Replies of the servers of several benchmarks: a phone book by blocks, and pictures.
#ifndef ZERDIX_BENCH_SAMPLE_REPLIES_H
#define ZERDIX_BENCH_SAMPLE_REPLIES_H

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "bench/direct_calls.h"
#include "rpc/block_transfer.h"

namespace zerdix::bench {

using reply_list = std::vector<bytes_on_wire>;

inline o_tebul sample_entry(std::size_t i) {
    o_tebul entry{};
    entry.tbookid.assign("common");
    entry.teleid.assign(std::to_string(100000 + i));
    entry.phone.assign("+49 30 23125 " + std::to_string(i));
    entry.tsi.assign("49 30 23125");
    entry.comment.assign("Kanzlei Weiss und Partner");
    entry.nettype = NETTYPE_FAX;
    return entry;
}

inline bytes_on_wire entry_block(std::size_t first, std::size_t count) {
    std::vector<o_tebul_node> nodes(count);
    for (std::size_t i = 0; i < count; ++i)
        nodes[i].entry = sample_entry(first + i);
    return list_of<o_get_tbookl_o>(nodes, sizeof(o_tebul) * 4);
}

// The whole book, and then an empty block.
inline reply_list entry_blocks(std::size_t entries, std::size_t block) {
    reply_list blocks;
    for (std::size_t first = 0; first < entries; first += block)
        blocks.push_back(entry_block(first, block));
    blocks.push_back(entry_block(0, 0));
    return blocks;
}

// The answers to the fetch of a picture: its size, then its blocks.
template <class Answer>
void add_picture(reply_list& replies, std::vector<unsigned char> picture) {
    const auto answer = [](std::size_t size, std::span<unsigned char> data) {
        return encoded(Answer{{1},
                              static_cast<std::int32_t>(size),
                              {static_cast<std::uint32_t>(data.size()), data.data()}});
    };
    replies.push_back(answer(picture.size(), {}));
    for (std::size_t at = 0, count = rpc::fetch_block; count == rpc::fetch_block; at += count) {
        count = std::min<std::size_t>(rpc::fetch_block, picture.size() - at);
        replies.push_back(answer(count, std::span{picture}.subspan(at, count)));
    }
}

} // namespace zerdix::bench

#endif
