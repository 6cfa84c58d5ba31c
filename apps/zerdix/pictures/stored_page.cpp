#include "pictures/stored_page.h"

#include <cstdlib>
#include <memory>
#include <span>
#include <string>

#include "output/failure.h"
#include "pages/page_codec.h"

namespace zerdix::app {

namespace {

constexpr std::size_t header_bytes = 8;
constexpr std::uint32_t largest_side = 65535; // pixels; what claims more is no fax page

struct heap_free {
    void operator()(unsigned char* bytes) const { std::free(bytes); } // NOLINT: malloc'ed
};

std::uint32_t mirrored(unsigned char byte) {
    std::uint32_t result = 0;
    for (int bit = 0; bit < 8; ++bit)
        result = result << 1 | (byte >> bit & 1U);
    return result;
}

std::uint32_t header_number(std::span<const unsigned char> bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | mirrored(bytes[i]);
    return value;
}

bool is_side(std::uint32_t pixels) {
    return pixels > 0 && pixels <= largest_side;
}

} // namespace

page_picture expand_page(const unsigned char* compressed, std::size_t size) {
    unsigned char* expanded = nullptr;
    std::int32_t length = 0;
    const auto rc = pages::uncompress_mem_2_mem(compressed, static_cast<std::int32_t>(size),
                                                &expanded, &length);
    const std::unique_ptr<unsigned char, heap_free> holder(expanded);
    if (rc != 0 || expanded == nullptr || length < static_cast<std::int32_t>(header_bytes))
        throw failure(exit_bad_data, "is damaged: it can't be expanded");
    const std::span bytes(expanded, static_cast<std::size_t>(length));
    page_picture picture{header_number(bytes), header_number(bytes.subspan(4)), {}};
    if (!is_side(picture.width) || !is_side(picture.rows))
        throw failure(exit_bad_data, "is damaged: it has no sensible size");
    const std::size_t needed = picture.row_bytes() * picture.rows;
    const auto rows = bytes.subspan(header_bytes);
    if (rows.size() < needed)
        throw failure(exit_bad_data,
                      "is damaged: " + std::to_string(rows.size() / picture.row_bytes()) + " of " +
                          std::to_string(picture.rows) + " rows are left of it");
    picture.bits.assign(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(needed));
    return picture;
}

std::vector<unsigned char> store_page(const page_picture& picture) {
    std::vector<unsigned char> block;
    block.reserve(header_bytes + picture.bits.size());
    for (const std::uint32_t side : {picture.width, picture.rows}) {
        for (int shift = 24; shift >= 0; shift -= 8)
            block.push_back(static_cast<unsigned char>(side >> shift));
    }
    for (const unsigned char byte : picture.bits)
        block.push_back(static_cast<unsigned char>(mirrored(byte)));
    unsigned char* compressed = nullptr;
    std::int32_t length = 0;
    const auto rc = pages::compress_mem_2_mem(block.data(), static_cast<std::int32_t>(block.size()),
                                              &compressed, &length);
    const std::unique_ptr<unsigned char, heap_free> holder(compressed);
    if (rc != 0)
        throw failure(exit_internal, "no memory for a picture");
    return {compressed, compressed + length};
}

} // namespace zerdix::app
