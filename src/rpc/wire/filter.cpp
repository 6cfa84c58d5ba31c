// SPDX-License-Identifier: MIT
#include "rpc/wire/filter.h"

#include <algorithm>

namespace zerdix::wire {

namespace {

// First allocation of a byte field whose bytes haven't come yet.
constexpr std::uint32_t first_piece = 64u << 10;

std::uint32_t padding(std::uint32_t length) {
    return (4 - length % 4) % 4;
}

bool read_bytes(XDR* stream, unsigned char* to, std::size_t size) {
    return XDR_GETBYTES(stream, reinterpret_cast<char*>(to), static_cast<u_int>(size)) != 0;
}

bool decode_bytes(XDR* stream, bytes& field, std::uint32_t length) {
    std::uint32_t room = 0;
    field = {0, nullptr};
    while (field.length < length) {
        if (field.length == room) {
            room = std::min(length, std::max(first_piece, 2 * room));
            auto* grown = static_cast<unsigned char*>(std::realloc(field.data, room));
            if (grown == nullptr)
                return false;
            field.data = grown;
        }
        const std::uint32_t piece = std::min(room - field.length, first_piece);
        if (!read_bytes(stream, field.data + field.length, piece))
            return false;
        field.length += piece;
    }
    unsigned char tail[4];
    return read_bytes(stream, tail, padding(length));
}

} // namespace

bool transfer(XDR* stream, unsigned char* buffer, std::size_t size) {
    if (stream->x_op == XDR_DECODE)
        return read_bytes(stream, buffer, size);
    return xdr_opaque(stream, reinterpret_cast<char*>(buffer), static_cast<u_int>(size));
}

bool transfer_word(XDR* stream, std::uint32_t& word) {
    auto value = static_cast<std::int32_t>(word);
    if (!filter_fixed(stream, value))
        return false;
    word = static_cast<std::uint32_t>(value);
    return true;
}

bool filter_bytes(XDR* stream, bytes& field, std::uint32_t limit) {
    if (stream->x_op == XDR_FREE) {
        std::free(field.data);
        field = {0, nullptr};
        return true;
    }
    std::uint32_t length = field.length;
    if (!transfer_word(stream, length) || length > limit)
        return false;
    if (stream->x_op == XDR_DECODE)
        return decode_bytes(stream, field, length);
    return length == 0 || xdr_opaque(stream, reinterpret_cast<char*>(field.data), length);
}

} // namespace zerdix::wire
