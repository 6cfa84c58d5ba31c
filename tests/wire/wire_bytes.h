// SPDX-License-Identifier: MIT
// Literal wire bytes for tests, and an XDR stream over them.
#ifndef ZERDIX_TESTS_WIRE_BYTES_H
#define ZERDIX_TESTS_WIRE_BYTES_H

#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <rpc/rpc.h>
#include <string_view>
#include <vector>

#include "rpc/wire/filter.h"

namespace zerdix::testing {

// Written from a record's description, never by the code under test.
class wire_bytes {
  public:
    wire_bytes& word(std::uint32_t value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes_.push_back(static_cast<unsigned char>(value >> shift));
        return *this;
    }
    wire_bytes& words(std::initializer_list<std::uint32_t> values) {
        for (std::uint32_t value : values)
            word(value);
        return *this;
    }
    // A text field of `width` characters and a NUL: four bytes a character.
    wire_bytes& text(std::string_view value, std::size_t width) {
        for (std::size_t i = 0; i <= width; ++i)
            word(i < value.size() ? static_cast<unsigned char>(value[i]) : 0);
        return *this;
    }
    wire_bytes& raw(std::string_view value) {
        bytes_.insert(bytes_.end(), value.begin(), value.end());
        return *this;
    }
    wire_bytes& append(const wire_bytes& other) {
        for (const unsigned char byte : other.bytes_)
            bytes_.push_back(byte);
        return *this;
    }

    const std::vector<unsigned char>& bytes() const { return bytes_; }
    std::size_t size() const { return bytes_.size(); }

  private:
    std::vector<unsigned char> bytes_;
};

inline XDR memory_stream(unsigned char* bytes, std::size_t size, xdr_op op) {
    XDR stream;
    xdrmem_create(&stream, reinterpret_cast<char*>(bytes), static_cast<u_int>(size), op);
    return stream;
}

// True when the record came out; `rest` receives how many bytes it left over.
template <class T>
bool decode(std::vector<unsigned char> bytes, T& record, std::size_t* rest = nullptr) {
    XDR stream = memory_stream(bytes.data(), bytes.size(), XDR_DECODE);
    const bool good = wire::filter(&stream, record);
    if (rest != nullptr)
        *rest = bytes.size() - xdr_getpos(&stream);
    return good;
}

template <class T>
std::vector<unsigned char> encode(T& record, std::size_t room = 1u << 16) {
    std::vector<unsigned char> bytes(room);
    XDR stream = memory_stream(bytes.data(), bytes.size(), XDR_ENCODE);
    EXPECT_TRUE(wire::filter(&stream, record));
    bytes.resize(xdr_getpos(&stream));
    return bytes;
}

} // namespace zerdix::testing

#endif
