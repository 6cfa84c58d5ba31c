// SPDX-License-Identifier: MIT
#include "bench/sample_pages.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <span>

#include "bench/measure.h"
#include "pages/codec_calls.h"
#include "pages/driver_form.h"
#include "pages/mirror.h"

namespace zerdix::bench {
namespace {

constexpr std::uint32_t width = 1728;
constexpr std::uint32_t height = 2286;

void put_header(page_bytes& page) {
    const unsigned char header[] = {0, 0, width >> 8,  width & 0xff,
                                    0, 0, height >> 8, height & 0xff};
    std::memcpy(page.data(), header, sizeof header);
}

// Black rectangles in a box of 16 by 28 pixels.
struct stroke {
    std::uint32_t left, top, wide, high;
};
using letter = std::vector<stroke>;

std::vector<letter> make_letters(std::mt19937& generator) {
    std::vector<letter> letters(26);
    for (letter& each : letters)
        for (int i = 0; i < 3; ++i) {
            const bool upright = generator() % 2 == 0;
            const auto left = static_cast<std::uint32_t>(generator() % 12);
            const auto top = static_cast<std::uint32_t>(generator() % 20);
            each.push_back(upright ? stroke{left, 0, 4, 28 - top / 2} : stroke{0, top, 16, 3});
        }
    return letters;
}

void draw(page_bytes& page, const letter& shape, std::uint32_t x, std::uint32_t y) {
    for (const stroke& bar : shape)
        for (std::uint32_t row = y + bar.top; row < y + bar.top + bar.high; ++row)
            for (std::uint32_t at = x + bar.left; at < x + bar.left + bar.wide; ++at)
                page[pages::block_header_size + row * width / 8 + at / 8] |=
                    static_cast<unsigned char>(1u << at % 8);
}

} // namespace

// Words out of 26 letters, at places that don't keep to bytes.
page_bytes text_page() {
    page_bytes page(pages::block_header_size + height * width / 8);
    std::mt19937 generator(1);
    const std::vector<letter> letters = make_letters(generator);
    for (std::uint32_t y = 200; y < height - 200; y += 100)
        for (std::uint32_t x = 180; x < width - 200; x += generator() % 6 == 0 ? 40 : 20)
            draw(page, letters[generator() % letters.size()], x, y);
    put_header(page);
    return page;
}

page_bytes dense_page() {
    page_bytes page = codec::random_bytes(pages::block_header_size + height * width / 8, 2);
    std::mt19937 generator(3);
    for (std::size_t i = pages::block_header_size; i < page.size(); ++i) {
        const auto other = static_cast<unsigned char>(generator());
        page[i] = static_cast<unsigned char>(i % 216 < 108 ? page[i] & other : page[i] | other);
    }
    put_header(page);
    return page;
}

// The rows turned round, and each byte mirrored and inverted: the same way there and back.
page_bytes driver_form(const page_bytes& stored) {
    page_bytes page(stored.size());
    pages::write_stored_form(stored, page);
    return page;
}

page_bytes page_of_file(const char* name) {
    std::ifstream file(name, std::ios::binary);
    page_bytes page{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    require(page.size() > pages::block_header_size &&
                pages::read_header(page.data(), pages::header_form::stored).block_bytes() <=
                    page.size(),
            name);
    return page;
}

} // namespace zerdix::bench
