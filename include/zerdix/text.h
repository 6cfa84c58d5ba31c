// SPDX-License-Identifier: MIT
// Fixed text fields and the other small types that the wire records are made of.
//
// Text is Windows-1252, one byte a character, in memory and on the wire.
#ifndef ZERDIX_TEXT_H
#define ZERDIX_TEXT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zerdix {

// A text field of N characters and a NUL: N + 1 bytes, zero behind the text. `text<10>` is what
// the protocol calls str10. A field that a peer filled to the brim has no NUL; view() copes.
template <std::size_t N>
struct text {
    char bytes[N + 1];

    // The text up to its NUL or to the end of the field. Good as long as the field.
    std::string_view view() const { return {bytes, ::strnlen(bytes, N + 1)}; }

    bool empty() const { return bytes[0] == '\0'; }

    // Cuts to N characters and fills the rest with zero bytes, so that a NUL always follows.
    void assign(std::string_view value) {
        const std::size_t length = value.copy(bytes, N);
        std::memset(bytes + length, 0, sizeof bytes - length);
    }

    // Copies as a fixed-width field does: all N + 1 bytes may be used, and then no NUL is left.
    void assign_field(std::string_view value) {
        const std::size_t length = value.copy(bytes, N + 1);
        std::memset(bytes + length, 0, sizeof bytes - length);
    }

    friend bool operator==(const text& a, std::string_view b) { return a.view() == b; }
    friend bool operator==(const text& a, const text& b) { return a.view() == b.view(); }
};

using str10 = text<10>;
using str20 = text<20>;
using str30 = text<30>;
using str35 = text<35>;
using str80 = text<80>;

// N bytes without a meaning of their own to the protocol.
template <std::size_t N>
struct opaque {
    unsigned char bytes[N];

    friend bool operator==(const opaque& a, const opaque& b) {
        return std::memcmp(a.bytes, b.bytes, N) == 0;
    }
};

// A truth value that is 32 bits wide in memory, as it is on the wire. Always 0 or 1.
struct boolean {
    std::int32_t value;

    constexpr operator bool() const { return value != 0; } // NOLINT: meant to be implicit
    constexpr boolean& operator=(bool other) {
        value = other ? 1 : 0;
        return *this;
    }
};

// A run of bytes on the heap (malloc). Whose it is, is said where the field stands.
struct bytes {
    std::uint32_t length;
    unsigned char* data;
};

} // namespace zerdix

#endif
