// SPDX-License-Identifier: MIT
// Records of any type, filled to a pattern, and read from end to end.
#ifndef ZERDIX_TESTS_SHAPES_H
#define ZERDIX_TESTS_SHAPES_H

#include <cstring>

#include "rpc/list.h"
#include "rpc/wire/filter.h"

namespace zerdix::testing {

struct shape {
    std::uint32_t nodes = 2;  // of each chain
    std::int32_t count = 2;   // what is said of it
    std::int32_t number = 5;  // every number
    std::uint32_t length = 5; // of every byte field
    char letter = 'a';        // every text begins with it
    bool to_the_brim = false; // and is full of it, without a NUL
};

template <std::size_t N>
void fill(text<N>& value, const shape& as) {
    std::memset(value.bytes, 0, sizeof value.bytes);
    std::memset(value.bytes, as.letter, as.to_the_brim ? N + 1 : 3);
}
template <std::size_t N>
void fill(opaque<N>& value, const shape& as) {
    std::memset(value.bytes, as.letter, N);
    value.bytes[N - 1] = as.to_the_brim ? value.bytes[0] : '\0';
}
inline void fill(boolean& value, const shape&) {
    value = true;
}
inline void fill(bytes& value, const shape& as) {
    value = {as.length, static_cast<unsigned char*>(std::malloc(as.length + 1))};
    std::memset(value.data, as.letter, as.length);
}

template <class T>
void fill(T& value, const shape& as) {
    if constexpr (wire::is_scalar<T>)
        value = static_cast<T>(as.number);
    else if constexpr (std::is_pointer_v<T>)
        for (std::uint32_t i = 0; i < as.nodes; ++i) {
            auto* node = wire::new_node<std::remove_pointer_t<T>>();
            fill(rpc::record_of(*node), as);
            node->next = std::exchange(value, node);
        }
    else if constexpr (requires { value.begin(); })
        for (auto& each : value)
            fill(each, as);
    else if constexpr (!std::is_empty_v<T>)
        boost::pfr::for_each_field(value, [&as](auto& field) { fill(field, as); });
    if constexpr (requires { value.count; })
        value.count = as.count;
}

// Reads everything that hangs off a record, texts by their view; the result only keeps the reading
// from being left out.
template <class T>
std::size_t walk(const T& value) {
    if constexpr (requires { value.view(); }) {
        std::size_t sum = 0;
        for (const char c : value.view())
            sum += static_cast<unsigned char>(c);
        return sum;
    } else if constexpr (std::is_base_of_v<bytes, T>) {
        std::size_t sum = value.length;
        for (std::uint32_t i = 0; i < value.length; ++i)
            sum += value.data[i];
        return sum;
    } else if constexpr (std::is_pointer_v<T>) {
        std::size_t sum = 0;
        for (auto* node = value; node != nullptr; node = node->next)
            sum += walk(rpc::record_of(*node));
        return sum;
    } else if constexpr (wire::is_scalar<T> || std::is_same_v<T, boolean>) {
        return static_cast<std::size_t>(static_cast<std::int32_t>(value));
    } else {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < sizeof value; ++i)
            sum += reinterpret_cast<const unsigned char*>(&value)[i];
        if constexpr (wire::is_dynamic<T>())
            boost::pfr::for_each_field(value, [&sum](auto& field) { sum += walk(field); });
        return sum;
    }
}

// The same for a list that an operation gave, whose elements are records of one kind.
template <class Record>
std::size_t walk_list(PTRLIST& list) {
    std::size_t sum = 0;
    for (std::uint32_t i = 0; i < list.getSize(); ++i)
        sum += walk(*static_cast<const Record*>(list[i]));
    return sum;
}

} // namespace zerdix::testing

#endif
