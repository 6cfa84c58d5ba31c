// SPDX-License-Identifier: MIT
// The compressor's fast dictionary: a tree of byte strings, in which each string has a code and
// all its beginnings are strings too.
//
// Strings go by nodes. A node is its code times an odd number, which spreads the codes that are
// given away one after the other over the whole table and costs nothing while a string is walked.
//
// Three kinds of entries share one table of open slots:
//   child    (node, byte) -> the string one byte longer
//   triple   (first two bytes, third byte) -> the string of three bytes: no need to know the node
//            of the two, so that the first two steps of most strings become one
//   zeros    node -> the string longer by eight zero bytes; only a short cut
// A string of three bytes is found as a triple only, every other one as a child.
//
// Slots go in twos, and both of a two are looked at in one step, without a branch between them. A
// slot holds, from the top: the byte, the kind, the lowest bit of the node, the distance from the
// key's home in probes, and the string's node. With the place of the slot this tells the key
// completely, so that no key needs to be stored.
#ifndef ZERDIX_PAGES_LZW_DICTIONARY_H
#define ZERDIX_PAGES_LZW_DICTIONARY_H

#include <array>
#include <cstring>

#include "pages/lzw_format.h"

namespace zerdix::pages {

using node = std::uint32_t;

inline constexpr std::uint32_t node_factor = 40503;
inline constexpr std::uint32_t node_inverse = 30599; // the product is 1 modulo 65,536
static_assert((node_factor * node_inverse & 0xffff) == 1);

constexpr node node_of(std::uint32_t code) {
    return code * node_factor & 0xffff;
}
constexpr std::uint32_t code_of(node n) {
    return n * node_inverse & 0xffff;
}

inline constexpr std::uint32_t home_count = 51750;

// How far each byte moves a key's home away from its node's.
inline constexpr std::array<std::uint32_t, 256> byte_spread = [] {
    std::array<std::uint32_t, 256> offsets{};
    for (std::uint32_t byte = 0; byte < offsets.size(); ++byte) {
        offsets[byte] = byte * 0x9e3779b1u % home_count;
    }
    return offsets;
}();

class lzw_dictionary {
  public:
    static constexpr std::size_t bytes = home_count * sizeof(std::uint64_t);

    // Where a key is, or would be.
    struct place {
        std::uint32_t slot = 0;
        std::uint32_t tag = 0;   // the slot's upper half for this key; no_room when none is free
        std::uint32_t entry = 0; // the slot's content, 0: the key isn't there

        bool found() const { return entry != 0; }
        node target() const { return entry & 0xffff; }
    };

    explicit lzw_dictionary(void* memory) : homes_(static_cast<std::uint64_t*>(memory)) {}

    void clear() { std::memset(homes_, 0, bytes); }

    place child(node parent, std::uint32_t byte) const {
        return find(parent, byte_spread[byte], byte << 8 | child_kind);
    }
    place triple(std::uint32_t first, std::uint32_t second, std::uint32_t third) const {
        return find(node_of(first << 8 | second), byte_spread[third], third << 8 | triple_kind);
    }
    place zeros(node parent) const { return find(parent, home_count / 2, zeros_kind); }

    // False when there is no room for the key.
    bool add(const place& at, node target) {
        if (at.tag == no_room) {
            return false;
        }
        homes_[at.slot / 2] |= std::uint64_t{at.tag << 16 | target} << (at.slot % 2 * 32);
        return true;
    }

  private:
    static constexpr std::uint32_t child_kind = 1u << 6;
    static constexpr std::uint32_t triple_kind = 2u << 6;
    static constexpr std::uint32_t zeros_kind = 3u << 6;
    static constexpr std::uint32_t distance_limit = 1u << 5;
    static constexpr std::uint32_t stride = 1637;
    static constexpr std::uint32_t no_room = ~0u;
    static_assert((distance_limit - 1) * stride <= home_count);

    static std::uint32_t wrap(std::uint32_t home) {
        const std::uint32_t wrapped = home - home_count;
        return home < home_count ? home : wrapped;
    }

    place find(node from, std::uint32_t spread, std::uint32_t tag) const {
        return look(wrap(from / 2 + spread), tag | from % 2 * distance_limit);
    }

    // The lower slot of a home is filled first: the key isn't there when the upper one is empty.
    place look(std::uint32_t home, std::uint32_t tag) const {
        const std::uint64_t slots = homes_[home];
        const auto lower = static_cast<std::uint32_t>(slots);
        const auto upper = static_cast<std::uint32_t>(slots >> 32);
        const auto entry = static_cast<std::uint32_t>(slots >> (lower >> 16 == tag ? 0 : 32));
        if (entry >> 16 == tag) [[likely]] {
            return {0, tag, entry};
        }
        if (upper == 0) [[likely]] {
            return {home * 2 + (lower != 0), tag, 0};
        }
        return probe(home, tag);
    }

    // Steps of 1, 2, 3 and so on strides from a home that is full. The stride leads far away: the
    // strings of one byte behind any other, such as zero, fill a whole stretch of homes.
    [[gnu::noinline]] place probe(std::uint32_t home, std::uint32_t tag) const {
        for (std::uint32_t step = 1; step < distance_limit; ++step) {
            home = wrap(home + step * stride);
            ++tag;
            const std::uint64_t slots = homes_[home];
            for (const std::uint64_t half : {slots & 0xffffffff, slots >> 32}) {
                if (half >> 16 == tag) {
                    return {0, tag, static_cast<std::uint32_t>(half)};
                }
            }
            if (slots >> 32 == 0) {
                return {home * 2 + (slots != 0), tag, 0};
            }
        }
        return {0, no_room, 0};
    }

    std::uint64_t* homes_;
};

} // namespace zerdix::pages

#endif
