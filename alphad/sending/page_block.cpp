#include "alphad/sending/page_block.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "pages/page_codec.h"

namespace zerdix::alphad {

namespace {

// Wider or longer is no page.
constexpr std::uint32_t most_pixels = 1u << 16;
constexpr std::size_t header_size = 8;

struct free_block {
    void operator()(unsigned char* block) const { std::free(block); }
};

unsigned char mirrored(unsigned char byte) {
    unsigned result = 0;
    for (unsigned bit = 0; bit < 8; ++bit)
        result |= (byte >> bit & 1u) << (7 - bit);
    return static_cast<unsigned char>(result);
}

// A header word, most significant byte first; the expander has mirrored each of its bytes.
std::uint32_t header_word(const unsigned char* from) {
    std::uint32_t word = 0;
    for (int i = 0; i < 4; ++i)
        word = word << 8 | mirrored(from[i]);
    return word;
}

bool is_possible(std::uint32_t pixels) {
    return pixels > 0 && pixels <= most_pixels;
}

std::optional<page_picture> picture_of(const unsigned char* block, std::size_t size) {
    if (size < header_size)
        return std::nullopt;
    const std::uint32_t width = header_word(block), height = header_word(block + 4);
    const std::size_t rows = (std::size_t{width} + 7) / 8 * height;
    if (!is_possible(width) || !is_possible(height) || rows > size - header_size)
        return std::nullopt;
    return page_picture{static_cast<std::int32_t>(width),
                        static_cast<std::int32_t>(height),
                        {block + header_size, block + header_size + rows}};
}

// What a stream gives; no bytes when it is none.
struct expanded {
    std::unique_ptr<unsigned char, free_block> bytes;
    std::size_t size = 0;
};

expanded expand(std::string_view compressed) {
    unsigned char* output = nullptr;
    std::int32_t length = 0;
    const auto* input = reinterpret_cast<const unsigned char*>(compressed.data());
    const bool good =
        pages::uncompress_mem_2_mem(input, static_cast<std::int32_t>(compressed.size()), &output,
                                    &length) == 0;
    return {std::unique_ptr<unsigned char, free_block>{output},
            good ? static_cast<std::size_t>(length) : 0};
}

bool is_stream(std::string_view bytes) {
    return bytes.starts_with("\x1f\x9d");
}

} // namespace

std::optional<page_picture> expand_page(std::string_view compressed) {
    const expanded page = expand(compressed);
    return picture_of(page.bytes.get(), page.size);
}

bool may_become_picture(std::string_view beginning) {
    constexpr std::size_t enough = 64; // bytes of a stream, for those of the header
    if (!is_stream(beginning))
        return true;
    const expanded head = expand(beginning.substr(0, enough));
    return head.size < header_size || (is_possible(header_word(head.bytes.get())) &&
                                       is_possible(header_word(head.bytes.get() + 4)));
}

bool is_picture(std::string_view compressed) {
    return !is_stream(compressed) || expand_page(compressed);
}

// The stored form has the leftmost pixel in bit 0; its header words aren't mirrored.
std::string compress_page(const page_picture& page) {
    std::vector<unsigned char> block;
    for (const std::int32_t word : {page.width, page.height})
        for (int shift = 24; shift >= 0; shift -= 8)
            block.push_back(static_cast<unsigned char>(word >> shift));
    for (const unsigned char byte : page.rows)
        block.push_back(mirrored(byte));
    unsigned char* output = nullptr;
    std::int32_t length = 0;
    const std::int32_t result = pages::compress_mem_2_mem(
        block.data(), static_cast<std::int32_t>(block.size()), &output, &length);
    const std::unique_ptr<unsigned char, free_block> owner{output};
    if (result != 0)
        throw std::bad_alloc{};
    return {reinterpret_cast<const char*>(output), static_cast<std::size_t>(length)};
}

page_picture halved(page_picture page) {
    const std::size_t bytes = page.row_bytes();
    const std::int32_t height = (page.height + 1) / 2;
    for (std::int32_t y = 0; y < height; ++y) {
        std::memmove(page.row(y), page.row(2 * y), bytes);
        if (2 * y + 1 < page.height)
            for (std::size_t i = 0; i < bytes; ++i)
                page.row(y)[i] |= page.row(2 * y + 1)[i];
    }
    page.height = height;
    page.rows.resize(bytes * static_cast<std::size_t>(height));
    return page;
}

} // namespace zerdix::alphad
