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
// A slot holds, from the top: the byte, the kind, the distance from the key's home slot in probes,
// and the node. Home, byte and kind tell the key completely, so that no key needs to be stored.
#ifndef ZERDIX_IMAGING_STRING_TABLE_H
#define ZERDIX_IMAGING_STRING_TABLE_H

#include <array>
#include <cstring>

#include "imaging/lzw_format.h"

namespace zerdix::imaging {

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

inline constexpr std::uint32_t slot_count = 103500;

// How far each byte moves a key's home slot away from its node's.
inline constexpr std::array<std::uint32_t, 256> byte_spread = [] {
    std::array<std::uint32_t, 256> offsets{};
    for (std::uint32_t byte = 0; byte < offsets.size(); ++byte) {
        offsets[byte] = byte * 0x9e3779b1u % slot_count;
    }
    return offsets;
}();

class string_table {
  public:
    static constexpr std::size_t bytes = slot_count * sizeof(std::uint32_t);

    // Where a key is, or would be.
    struct place {
        std::uint32_t slot = 0;
        std::uint32_t tag = 0;   // the slot's upper half for this key; no_room when none is free
        std::uint32_t entry = 0; // the slot's content, 0: the key isn't there

        bool found() const { return entry != 0; }
        node target() const { return entry & 0xffff; }
    };

    explicit string_table(void* memory) : slots_(static_cast<std::uint32_t*>(memory)) {}

    void clear() { std::memset(slots_, 0, bytes); }

    place child(node parent, std::uint32_t byte) const {
        return find(parent + byte_spread[byte], byte << 8 | 1u << 6);
    }
    place triple(std::uint32_t first, std::uint32_t second, std::uint32_t third) const {
        return find(node_of(first << 8 | second) + byte_spread[third], third << 8 | 2u << 6);
    }
    place zeros(node parent) const { return find(parent + slot_count / 2, 3u << 6); }

    // False when there is no room for the key.
    bool add(const place& at, node target) {
        if (at.tag == no_room) {
            return false;
        }
        slots_[at.slot] = at.tag << 16 | target;
        return true;
    }

  private:
    static constexpr std::uint32_t no_room = ~0u;
    static constexpr std::uint32_t distance_limit = 64;

    static std::uint32_t wrap(std::uint32_t slot) {
        const std::uint32_t wrapped = slot - slot_count;
        return slot < slot_count ? slot : wrapped;
    }

    place find(std::uint32_t home, std::uint32_t tag) const {
        const std::uint32_t slot = wrap(home);
        const std::uint32_t entry = slots_[slot];
        if (entry >> 16 == tag || entry == 0) [[likely]] {
            return {slot, tag, entry};
        }
        return probe(slot, tag);
    }

    // Steps of 1, 2, 3 and so on from the home slot.
    place probe(std::uint32_t slot, std::uint32_t tag) const {
        for (std::uint32_t step = 1; step < distance_limit; ++step) {
            slot = wrap(slot + step);
            const std::uint32_t entry = slots_[slot];
            if (entry >> 16 == tag + step || entry == 0) {
                return {slot, tag + step, entry};
            }
        }
        return {0, no_room, 0};
    }

    std::uint32_t* slots_;
};

} // namespace zerdix::imaging

#endif
