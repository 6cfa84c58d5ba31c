// SPDX-License-Identifier: MIT
#include "alphad/sending/fax_page.h"

#include <cstring>

namespace zerdix::alphad {

namespace {

using zerdix::pages::page_fault;

zerdix::pages::expanded_page expand(std::string_view stored) {
    return zerdix::pages::expand_page(
        {reinterpret_cast<const unsigned char*>(stored.data()), stored.size()});
}

bool is_stream(std::string_view bytes) {
    return bytes.starts_with("\x1f\x9d");
}

} // namespace

std::optional<page_picture> read_page(std::string_view stored) {
    auto page = expand(stored);
    return page.fault == page_fault::none ? std::optional{std::move(page.picture)} : std::nullopt;
}

std::string stored_page(const page_picture& picture) {
    const std::vector<unsigned char> compressed = zerdix::pages::compress_page(picture);
    return {compressed.begin(), compressed.end()};
}

bool may_become_picture(std::string_view beginning) {
    constexpr std::size_t enough = 64; // bytes of a stream, for those of the header
    return !is_stream(beginning) ||
           expand(beginning.substr(0, enough)).fault != page_fault::no_size;
}

bool is_picture(std::string_view stored) {
    return !is_stream(stored) || read_page(stored);
}

page_picture halved(page_picture picture) {
    const std::size_t bytes = picture.row_bytes();
    const std::uint32_t height = (picture.size.height + 1) / 2;
    for (std::uint32_t y = 0; y < height; ++y) {
        std::memmove(picture.row(y), picture.row(2 * y), bytes);
        if (2 * y + 1 < picture.size.height)
            for (std::size_t i = 0; i < bytes; ++i)
                picture.row(y)[i] |= picture.row(2 * y + 1)[i];
    }
    picture.size.height = height;
    picture.rows.resize(bytes * height);
    return picture;
}

} // namespace zerdix::alphad
