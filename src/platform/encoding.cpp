// SPDX-License-Identifier: MIT
#include "platform/encoding.h"

#include <array>
#include <cerrno>
#include <cstddef>

#include <iconv.h>

namespace zerdix::platform {
namespace {

class converter {
  public:
    converter(const char* to, const char* from) : handle_(::iconv_open(to, from)) {}
    ~converter() {
        if (usable())
            ::iconv_close(handle_);
    }
    converter(const converter&) = delete;
    converter& operator=(const converter&) = delete;

    // False where the system has no converter installed.
    bool usable() const { return handle_ != reinterpret_cast<iconv_t>(-1); } // NOLINT: iconv's way

    // Moves the convertible part at the front of `text` to the end of `out`. True when that was
    // all of it.
    bool convert(std::string_view& text, std::string& out) const {
        while (!text.empty()) {
            std::array<char, 512> piece;
            char* from = const_cast<char*>(text.data()); // NOLINT: iconv only reads it
            char* to = piece.data();
            std::size_t left = text.size();
            std::size_t room = piece.size();
            const std::size_t result = ::iconv(handle_, &from, &left, &to, &room);
            const bool full = result == static_cast<std::size_t>(-1) && errno == E2BIG;
            out.append(piece.data(), piece.size() - room);
            text.remove_prefix(text.size() - left);
            if (!full)
                break;
        }
        return text.empty();
    }

  private:
    iconv_t handle_;
};

bool is_continuation(char c) {
    return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
}

std::size_t utf8_length(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t most = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : lead >= 0xc0 ? 2 : 1;
    std::size_t length = 1;
    while (length < most && length < text.size() && is_continuation(text[length]))
        ++length;
    return length;
}

std::size_t cp1252_length(std::string_view) {
    return 1;
}

std::string ascii_only(std::string_view text, std::size_t (*length)(std::string_view)) {
    std::string out;
    while (!text.empty()) {
        const std::size_t step = length(text);
        out += static_cast<unsigned char>(text.front()) < 0x80 ? text.front() : '?';
        text.remove_prefix(step);
    }
    return out;
}

std::string converted(std::string_view text, const char* to, const char* from,
                      std::size_t (*length)(std::string_view)) {
    const converter with(to, from);
    if (!with.usable())
        return ascii_only(text, length);
    std::string out;
    while (!with.convert(text, out)) {
        out += '?';
        text.remove_prefix(length(text));
    }
    return out;
}

} // namespace

std::string utf8_to_cp1252(std::string_view text) {
    return converted(text, "WINDOWS-1252", "UTF-8", utf8_length);
}

std::string cp1252_to_utf8(std::string_view text) {
    return converted(text, "UTF-8", "WINDOWS-1252", cp1252_length);
}

} // namespace zerdix::platform
