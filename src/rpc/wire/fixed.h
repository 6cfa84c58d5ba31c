// SPDX-License-Identifier: MIT
// Records of fixed size: how many bytes they take on the wire, and their way to and from a buffer.
//
// A record's declaration is its wire form: members in order, each in units of 4 bytes, most
// significant byte first (RFC 4506). A text field is a vector of characters, 4 bytes each; an
// opaque field its bytes and zero bytes up to a multiple of 4.
#ifndef ZERDIX_WIRE_FIXED_H
#define ZERDIX_WIRE_FIXED_H

#include <arpa/inet.h>
#include <array>
#include <boost/pfr.hpp>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include <zerdix/text.h>

namespace zerdix::wire {

// The record of a procedure that has no argument or no result.
struct none {};

inline std::uint32_t load_word(const unsigned char* from) {
    std::uint32_t word;
    std::memcpy(&word, from, sizeof word);
    return ntohl(word);
}

inline void store_word(unsigned char* to, std::uint32_t word) {
    word = htonl(word);
    std::memcpy(to, &word, sizeof word);
}

// How one type goes over the wire: size in bytes, load and store. The primary template takes
// aggregates apart; only fixed-size types have an instance.
template <class T>
struct fixed;

template <class T>
constexpr bool is_scalar =
    std::is_same_v<T, std::int32_t> || std::is_same_v<T, std::int16_t> || std::is_enum_v<T>;

template <class T>
requires is_scalar<T>
struct fixed<T> {
    static constexpr std::size_t size = 4;
    static void load(T& value, const unsigned char* from) {
        value = static_cast<T>(static_cast<std::int32_t>(load_word(from)));
    }
    static void store(const T& value, unsigned char* to) {
        store_word(to, static_cast<std::uint32_t>(static_cast<std::int32_t>(value)));
    }
};

template <>
struct fixed<boolean> {
    static constexpr std::size_t size = 4;
    static void load(boolean& value, const unsigned char* from) { value = load_word(from) != 0; }
    static void store(const boolean& value, unsigned char* to) { store_word(to, value ? 1 : 0); }
};

template <std::size_t N>
struct fixed<text<N>> {
    static constexpr std::size_t size = 4 * (N + 1);
    static void load(text<N>& value, const unsigned char* from) {
        for (std::size_t i = 0; i <= N; ++i)
            value.bytes[i] = static_cast<char>(from[4 * i + 3]);
    }
    // A character is signed on the wire: one above 0x7F fills its upper bytes with ones.
    static void store(const text<N>& value, unsigned char* to) {
        for (std::size_t i = 0; i <= N; ++i)
            store_word(to + 4 * i, static_cast<std::uint32_t>(static_cast<std::int32_t>(
                                       static_cast<signed char>(value.bytes[i]))));
    }
};

template <std::size_t N>
struct fixed<opaque<N>> {
    static constexpr std::size_t size = (N + 3) / 4 * 4;
    static void load(opaque<N>& value, const unsigned char* from) {
        std::memcpy(value.bytes, from, N);
    }
    static void store(const opaque<N>& value, unsigned char* to) {
        std::memcpy(to, value.bytes, N);
        std::memset(to + N, 0, size - N);
    }
};

template <class T, std::size_t N>
struct fixed<std::array<T, N>> {
    static constexpr std::size_t size = N * fixed<T>::size;
    static void load(std::array<T, N>& values, const unsigned char* from) {
        for (std::size_t i = 0; i < N; ++i)
            fixed<T>::load(values[i], from + i * fixed<T>::size);
    }
    static void store(const std::array<T, N>& values, unsigned char* to) {
        for (std::size_t i = 0; i < N; ++i)
            fixed<T>::store(values[i], to + i * fixed<T>::size);
    }
};

// A node's pointer to the next node isn't part of the node's own data.
template <class T>
struct fixed<T*> {
    static constexpr std::size_t size = 0;
    static void load(T*&, const unsigned char*) {}
    static void store(T* const&, unsigned char*) {}
};

template <class Tuple>
struct sum_of;
template <class... T>
struct sum_of<std::tuple<T...>> {
    static constexpr std::size_t value = (std::size_t{0} + ... + fixed<T>::size);
};

template <class T>
requires std::is_aggregate_v<T>
struct fixed<T> {
    static constexpr std::size_t size =
        sum_of<decltype(boost::pfr::structure_to_tuple(std::declval<T&>()))>::value;
    static void load(T& record, const unsigned char* from) {
        boost::pfr::for_each_field(record, [&from]<class F>(F& field) {
            fixed<F>::load(field, from);
            from += fixed<F>::size;
        });
    }
    static void store(const T& record, unsigned char* to) {
        boost::pfr::for_each_field(record, [&to]<class F>(const F& field) {
            fixed<F>::store(field, to);
            to += fixed<F>::size;
        });
    }
};

template <>
struct fixed<none> {
    static constexpr std::size_t size = 0;
    static void load(none&, const unsigned char*) {}
    static void store(const none&, unsigned char*) {}
};

} // namespace zerdix::wire

#endif
