// SPDX-License-Identifier: MIT
// The barcode against another maker's encoder (Debian's zint).

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "imaging/barcode.h"
#include "imaging/drawing.h"
#include "imaging/owned_bitmap.h"
#include "platform/scratch.h"

namespace zerdix::imaging {
namespace {

using runs = std::vector<int>; // of one colour each, the first one black

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
    const std::unique_ptr<unsigned char, void (*)(void*)> block{BuildBarcodeBlock(digits.c_str()),
                                                                std::free};
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
    for (int c = std::fgetc(output.get()); c != EOF && c != '\n'; c = std::fgetc(output.get()))
        if (c != ' ')
            for (unsigned bit = 8; bit != 0; bit /= 2)
                pixels += (std::stoul(std::string(1, static_cast<char>(c)), nullptr, 16) & bit) != 0
                              ? '1'
                              : '0';
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

struct label_freed {
    void operator()(LeadBitmap* label) const {
        FreeLeadBitmap(label);
        std::free(label);
    }
};
using owned_label = std::unique_ptr<LeadBitmap, label_freed>;

// The columns that have black pixels in some rows: first and last; -1 for none.
std::pair<int, int> ink(const LeadBitmap& label, std::int32_t from, std::int32_t rows) {
    std::pair<int, int> found{-1, -1};
    for (std::int32_t y = from; y < from + rows; ++y) {
        const std::string pixels =
            pixels_of(row_from_top(label, y), static_cast<std::size_t>(label.width));
        const auto first = static_cast<int>(pixels.find('1'));
        if (first >= 0 && (found.first < 0 || first < found.first))
            found.first = first;
        found.second = std::max(found.second, static_cast<int>(pixels.rfind('1')));
    }
    return found;
}

TEST(BarcodeLabel, HasTextCodeAndTextUnderOneAnother) {
    const owned_label label{CreateBarcodeLabel(BuildBarcodeBlock("123"), "meier", "B\xfcro 7")};
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->width, 1382);
    EXPECT_EQ(label->height, 150);
    EXPECT_TRUE(one_is_black(*label));
    const std::string code = built("123").rows[0];
    for (std::int32_t y = 50; y < 100; ++y)
        ASSERT_EQ(pixels_of(row_from_top(*label, y), 1382),
                  code + std::string(1382 - code.size(), '0'));
    owned_bitmap texts;
    ASSERT_EQ(CreateEmptyBitmap(&texts, 1382, 150), 1);
    drawing_context page{texts};
    page.SelectObject(platform::fonts().find({"Courier", 40, 700}));
    page.TextOutA(0, 0, "B\xfcro 7");
    page.TextOutA(0, 100, "meier");
    for (std::int32_t y = 0; y < 150; y += y == 49 ? 51 : 1)
        ASSERT_EQ(pixels_of(row_from_top(*label, y), 1382),
                  pixels_of(row_from_top(texts, y), 1382));
    EXPECT_GE(ink(*label, 0, 50).first, 0);
}

TEST(BarcodeLabel, CutsOffWhatIsTooWide) {
    const std::string digits(20, '8');
    const std::string text(10000, 'W');
    const owned_label label{
        CreateBarcodeLabel(BuildBarcodeBlock(digits.c_str()), "", text.c_str())};
    ASSERT_NE(label, nullptr);
    EXPECT_GT(ink(*label, 0, 50).second, 1382 - 30);
    EXPECT_EQ(pixels_of(row_from_top(*label, 75), 1264), built(digits).rows[0]);
    EXPECT_EQ(ink(*label, 100, 50).second, -1) << "it doesn't wrap";
}

TEST(BarcodeLabel, TellsWhyThereIsNone) {
    const tests::recorded_boxes boxes;
    EXPECT_EQ(CreateBarcodeLabel(nullptr, "a", "b"), nullptr);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].first, "Fehler!\nProblem mit Bitmap");
}

} // namespace
} // namespace zerdix::imaging
