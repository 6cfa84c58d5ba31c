// The barcode against another maker's encoder (Debian's zint).

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "imaging/barcode.h"

namespace zerdix::imaging {
namespace {

using runs = std::vector<int>; // of one colour each, the first one black

struct freed {
    void operator()(unsigned char* bytes) const { std::free(bytes); }
};

struct symbol {
    std::uint32_t width, height;
    std::vector<std::string> rows; // a character per pixel, '1' black
};

std::string pixels_of(const unsigned char* bytes, std::size_t count) {
    std::string pixels;
    for (std::size_t x = 0; x < count; ++x)
        pixels += (bytes[x / 8] >> (7 - x % 8) & 1) != 0 ? '1' : '0';
    return pixels;
}

symbol built(const std::string& digits) {
    const std::unique_ptr<unsigned char, freed> block{BuildBarcodeBlock(digits.c_str())};
    symbol found{0, 0, {}};
    if (block == nullptr)
        return found;
    std::memcpy(&found.width, block.get(), 4);
    std::memcpy(&found.height, block.get() + 4, 4);
    for (std::uint32_t row = 0; row < found.height; ++row)
        found.rows.push_back(pixels_of(block.get() + 8 + row * found.width / 8, found.width));
    return found;
}

// Without the white that is left at the end.
runs runs_of(const std::string& pixels) {
    runs found;
    char colour = '0';
    for (const char pixel : pixels.substr(0, pixels.find_last_of('1') + 1)) {
        if (pixel != colour)
            found.push_back(0);
        colour = pixel;
        ++found.back();
    }
    return found;
}

// The row that zint draws, a character per module.
std::string drawn_by_zint(const std::string& digits) {
    const std::string command = "zint --barcode=C25IND --vers=1 --notext --height=1 --filetype=TXT "
                                "--direct --data=" +
                                digits;
    std::string pixels;
    const std::unique_ptr<FILE, int (*)(FILE*)> output{popen(command.c_str(), "r"), pclose};
    for (int c = std::fgetc(output.get()); c != EOF && c != '\n'; c = std::fgetc(output.get())) {
        if (const auto nibble = static_cast<unsigned>(
                std::strtoul(std::string(1, static_cast<char>(c)).c_str(), nullptr, 16));
            std::isxdigit(c))
            for (int bit = 3; bit >= 0; --bit)
                pixels += (nibble >> bit & 1) != 0 ? '1' : '0';
    }
    return pixels;
}

// zint's symbol in our drawing: a module is four pixels wide; the first bar lacks the four black
// pixels with which others begin, and these stand behind the last one, after a gap of their own.
runs as_we_draw(runs modules) {
    for (int& run : modules)
        run *= 4;
    if (!modules.empty())
        modules.front() -= 4;
    modules.insert(modules.end(), {4, 4});
    return modules;
}

TEST(Barcode, HasTheBarsThatAnotherEncoderDraws) {
    ASSERT_FALSE(drawn_by_zint("1").empty()) << "is zint installed?";
    std::string digits;
    for (std::size_t length = 1; length <= 20; ++length) {
        digits += static_cast<char>('0' + (length * length + length / 3) % 10);
        for (const std::string& each :
             {digits, std::string(digits.rbegin(), digits.rend()),
              std::string(length, static_cast<char>('0' + length % 10))}) {
            const symbol ours = built(each);
            ASSERT_EQ(ours.height, 50u);
            ASSERT_EQ(ours.width, (80 + 56 * (length + 1) + 15) / 16 * 16) << each;
            ASSERT_EQ(runs_of(ours.rows[0]), as_we_draw(runs_of(drawn_by_zint(each)))) << each;
            for (const std::string& row : ours.rows)
                ASSERT_EQ(row, ours.rows[0]);
        }
    }
}

TEST(Barcode, ChecksItsDigits) {
    // The check digit of 123 is 6; the first row written out, element by element.
    const auto w = std::string(8, '1') + "00001111";
    const std::string n = "00001111";
    EXPECT_EQ(built("123").rows.at(0), w + w + n + (w + n + n + n + w) + (n + w + n + n + w) +
                                           (w + w + n + n + n) + (n + w + w + n + n) + w + n + w);
    EXPECT_EQ(built("0").width, 192u);
    EXPECT_EQ(built("123").width, 304u);
    for (const char* none : {"", " 1", "12a", "1\xe4", "-1", "123456789012345678901"})
        EXPECT_EQ(BuildBarcodeBlock(none), nullptr) << none;
    EXPECT_EQ(BuildBarcodeBlock(nullptr), nullptr);
}

} // namespace
} // namespace zerdix::imaging
