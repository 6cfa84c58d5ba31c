// SPDX-License-Identifier: MIT
// The XDR filter of any record of the protocol: encode, decode and release, in one walk over the
// record's members.
//
// The peer isn't trusted. Chains are walked and never recursed, nodes are allocated as their data
// arrives, byte fields grow as their bytes come, and both have a cap; a record that breaks one
// fails to decode. A record that failed to decode holds whatever came, and releasing it is safe.
#ifndef ZERDIX_WIRE_FILTER_H
#define ZERDIX_WIRE_FILTER_H

#include <cstdarg>
#include <cstdlib>
#include <rpc/rpc.h>
#include <vector>

#include "rpc/wire/fixed.h"
#include "rpc/wire/spare_records.h"

namespace zerdix::wire {

// The most nodes of one chain and the most bytes of one byte field that a peer may send.
constexpr std::uint32_t max_chain_nodes = 4u << 20;
constexpr std::uint32_t max_field_bytes = 64u << 20;

// Moves `size` bytes (a multiple of 4) between a stream and a buffer.
bool transfer(XDR* stream, unsigned char* buffer, std::size_t size);
bool transfer_word(XDR* stream, std::uint32_t& word);

// A length, its bytes, and zero bytes up to a multiple of 4. Decoding allocates with malloc;
// releasing frees and leaves the field empty.
bool filter_bytes(XDR* stream, bytes& field, std::uint32_t limit);

template <class T>
concept chain_node = requires(T node) {
    { node.next } -> std::same_as<T*&>;
};

// Whether the node names its pointer first, so that the wire holds all bools of a chain and then
// the nodes' data from the last to the first.
template <chain_node N>
constexpr bool pointer_first =
    std::is_pointer_v<std::remove_reference_t<decltype(boost::pfr::get<0>(std::declval<N&>()))>>;

template <class T>
bool filter_fixed(XDR* stream, T& value) {
    constexpr std::size_t size = fixed<T>::size;
    if (size == 0 || stream->x_op == XDR_FREE)
        return true;
    if (auto* run = reinterpret_cast<unsigned char*>(XDR_INLINE(stream, u_int{size}))) {
        if (stream->x_op == XDR_ENCODE)
            fixed<T>::store(value, run);
        else
            fixed<T>::load(value, run);
        return true;
    }
    unsigned char buffer[size == 0 ? 1 : size];
    if (stream->x_op == XDR_ENCODE)
        fixed<T>::store(value, buffer);
    if (!transfer(stream, buffer, size))
        return false;
    if (stream->x_op == XDR_DECODE)
        fixed<T>::load(value, buffer);
    return true;
}

template <chain_node N>
void free_chain(N*& first) {
    while (first != nullptr) {
        N* next = first->next;
        std::free(first);
        first = next;
    }
}

template <chain_node N>
N* new_node() {
    return static_cast<N*>(std::calloc(1, sizeof(N)));
}

template <chain_node N>
bool encode_chain(XDR* stream, N* first) {
    std::vector<N*> nodes;
    for (N* node = first; node != nullptr; node = node->next)
        nodes.push_back(node);
    std::uint32_t yes = 1, no = 0;
    if constexpr (pointer_first<N>) {
        for (std::size_t i = 0; i < nodes.size(); ++i)
            if (!transfer_word(stream, yes))
                return false;
        if (!transfer_word(stream, no))
            return false;
        for (std::size_t i = nodes.size(); i-- > 0;)
            if (!filter_fixed(stream, *nodes[i]))
                return false;
        return true;
    } else {
        for (N* node : nodes)
            if (!transfer_word(stream, yes) || !filter_fixed(stream, *node))
                return false;
        return transfer_word(stream, no);
    }
}

// All bools first: only counted, since nothing is worth allocating before its data comes.
template <chain_node N>
requires pointer_first<N>
bool decode_chain(XDR* stream, N*& first) {
    std::uint32_t count = 0;
    for (std::uint32_t more = 0;; ++count) {
        if (!transfer_word(stream, more))
            return false;
        if (more == 0)
            break;
        if (count == max_chain_nodes)
            return false;
    }
    for (; count > 0; --count) {
        N* node = new_node<N>();
        if (node == nullptr)
            return false;
        node->next = first;
        first = node;
        if (!filter_fixed(stream, *node))
            return false;
    }
    return true;
}

template <chain_node N>
requires(!pointer_first<N>) bool decode_chain(XDR* stream, N*& first) {
    N** end = &first;
    std::uint32_t more = 0;
    for (std::uint32_t count = 0; transfer_word(stream, more); ++count) {
        if (more == 0)
            return true;
        if (count == max_chain_nodes)
            return false;
        N* node = new_node<N>();
        if (node == nullptr)
            return false;
        *end = node;
        end = &node->next;
        if (!filter_fixed(stream, *node))
            return false;
    }
    return false;
}

template <chain_node N>
bool filter_chain(XDR* stream, N*& first) {
    switch (stream->x_op) {
    case XDR_ENCODE:
        return encode_chain(stream, first);
    case XDR_DECODE:
        first = nullptr;
        return decode_chain(stream, first);
    default:
        free_chain(first);
        return true;
    }
}

template <class T>
struct is_bounded : std::false_type {};
template <std::uint32_t N>
struct is_bounded<bounded_bytes<N>> : std::integral_constant<std::uint32_t, N> {};

template <class T>
constexpr bool is_leaf = is_scalar<T> || !std::is_aggregate_v<T> || std::is_same_v<T, boolean>;
template <std::size_t N>
inline constexpr bool is_leaf<text<N>> = true;
template <std::size_t N>
inline constexpr bool is_leaf<opaque<N>> = true;
template <class T, std::size_t N>
inline constexpr bool is_leaf<std::array<T, N>> = true;

// Whether a type has members of changing size anywhere, so that it can't cross in one piece.
template <class T>
consteval bool is_dynamic() {
    if constexpr (std::is_pointer_v<T> || std::is_base_of_v<bytes, T>)
        return true;
    else if constexpr (is_leaf<T> || std::is_empty_v<T>)
        return false;
    else
        return []<class... F>(std::type_identity<std::tuple<F...>>) {
            return (false || ... || is_dynamic<F>());
        }(std::type_identity<decltype(boost::pfr::structure_to_tuple(std::declval<T&>()))>{});
}

template <class T>
bool filter(XDR* stream, T& value) {
    if constexpr (std::is_pointer_v<T>)
        return filter_chain(stream, value);
    else if constexpr (is_bounded<T>::value)
        return filter_bytes(stream, value, is_bounded<T>::value);
    else if constexpr (std::is_same_v<T, bytes>)
        return filter_bytes(stream, value, max_field_bytes);
    else if constexpr (!is_dynamic<T>())
        return filter_fixed(stream, value);
    else {
        bool good = true;
        boost::pfr::for_each_field(value,
                                   [&](auto& field) { good = good && filter(stream, field); });
        return good;
    }
}

// The filter in the form that the RPC library calls: a stream and a pointer to the record.
template <class T>
bool_t xdr_record(XDR* stream, ...) {
    std::va_list arguments;
    va_start(arguments, stream);
    T* record = va_arg(arguments, T*);
    va_end(arguments);
    return filter(stream, *record) ? TRUE : FALSE;
}

// Releases what hangs off a record and leaves it zero. Safe on a zero record and when repeated.
template <class T>
void release(T& record) {
    xdr_free(&xdr_record<T>, &record);
    record = T{};
}

} // namespace zerdix::wire

#endif
