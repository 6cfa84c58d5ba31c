// SPDX-License-Identifier: MIT
// What the commands of a cover template draw, against the same drawn by hand.

#include <functional>

#include <gmock/gmock.h>
#include <zerdix/timetext.h>

#include "common/string_table.h"
#include "cover/page_painter.h"
#include "cover/template_document.h"
#include "imaging/barcode.h"
#include "imaging/pictures.h"
#include "platform/scratch.h"

namespace zerdix::cover {
namespace {

using imaging::drawing_context;
using imaging::owned_bitmap;
using imaging::picture;
using namespace ::testing;
using testing::page_of;

constexpr std::int32_t width = 1500;
constexpr std::int32_t height = 260;

struct content final : page_content {
    content() {
        record = &send_record;
        user = &sender;
        document = 4711;
    }
    const page_dat* signature() override {
        signature_page = {static_cast<std::uint32_t>(signature_bytes.size()),
                          signature_bytes.data()};
        return &signature_page;
    }
    const o_tebul* find_entry() override {
        ++look_ups;
        return has_phone_book ? &entry : nullptr;
    }

    a_s_rec send_record{};
    o_user_rec sender{};
    o_tebul entry{};
    codec::bytes signature_bytes;
    page_dat signature_page{};
    bool has_phone_book = true;
    int look_ups = 0;
};

using by_hand = std::function<void(drawing_context&)>;

void set_font(drawing_context& page, const char* face, std::int32_t character_height) {
    page.SelectObject(platform::fonts().find({face, character_height, 0}));
}

by_hand text_at(std::int32_t x, std::int32_t y, const std::string& text) {
    return [=](drawing_context& page) { page.TextOutA(x, y, text); };
}

const by_hand nothing = [](drawing_context&) {};

class PagePainter : public ::testing::Test {
  protected:
    picture drawn(const std::string& lines) {
        owned_bitmap bitmap;
        CreateEmptyBitmap(&bitmap, width, height);
        auto painter = page_painter::open(bitmap);
        EXPECT_TRUE(painter && painter->draw("#DRUCK#\n" + lines, shown, signature));
        return pixels_of(bitmap);
    }

    static picture expected(const by_hand& draw) {
        owned_bitmap bitmap;
        CreateEmptyBitmap(&bitmap, width, height);
        drawing_context page{bitmap};
        set_font(page, "Courier", -77);
        draw(page);
        return pixels_of(bitmap);
    }

    content shown;
    kept_picture signature;
    tests::recorded_boxes boxes;
};

TEST_F(PagePainter, TextsStandWhereTheirFieldsSay) {
    shown.send_record.comment.assign("Angebot");
    shown.sender.comment.assign("Erika M\xfcller");
    const char* today = "";
    printTime(static_cast<std::int32_t>(std::time(nullptr)), 'U', nullptr, &today, nullptr);
    shown.language = 'U';
    const std::pair<std::string, by_hand> cases[] = {
        {"setfaxstring=Fax;100;50;\n", text_at(100, 50, "Fax")},
        {"xsetfaxstringx=Fax;-20;-9\r\n", text_at(-20, -9, "Fax")},
        {"setfaxstring=Fax;\n", text_at(0, 0, "Fax")},
        {"setfaxstring\nsetfaxstring=;1;1;\nSETFAXNR=1;1;\n", nothing},
        {"setfaxstring=Fax;99999999999999999999;1;\nsetfaxstring=Fax;1;-2147483648;\n", nothing},
        {"setuseraddress0=A;1;2;\nsetuseraddress3=B;80;2;\n",
         [](drawing_context& page) {
             text_at(1, 2, "A")(page);
             text_at(80, 2, "B")(page);
         }},
        {"unsetdated=10;20;\n", text_at(10, 20, today)},
        {"setfaxnr=10;20;\n", text_at(10, 20, "4711")},
        {"setfaxcomment=10;20;\n", text_at(10, 20, "Angebot")},
        {"setusercomment=10;20;\n", text_at(10, 20, "Erika M\xfcller")},
        {"setfaxcomment setfaxnr=10;20;\n", text_at(10, 20, "4711")},
        {"setfaxstring=setfaxnr;10;20;\n", text_at(10, 20, "setfaxnr")},
        {"setfaxnr=10;20;", nothing},
    };
    for (const auto& [lines, draw] : cases)
        EXPECT_TRUE(drawn(lines) == expected(draw)) << lines;
    shown.document = 0;
    shown.send_record = {};
    EXPECT_TRUE(drawn("setfaxnr=10;20;\nsetfaxcomment=10;20;\n") == expected(nothing));
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(PagePainter, FontsGoByPoints) {
    const std::tuple<const char*, const char*, std::int32_t> cases[] = {
        {"Arial;12;", "Arial", -33},
        {"Arial;10", "Arial", -27},
        {"No Such Face Of The House Of Letters;72;", "No Such Face Of The House Of Le", -200},
        {"Arial;0;", "Arial", 0},
        {"Times New Roman;10000;", "Times New Roman", -27777},
        {"Arial;-12;", "Arial", 33},
        {"Arial;99999999999;", "Arial", -2147483647},
    };
    for (const auto& [fields, face, character_height] : cases)
        EXPECT_TRUE(drawn(std::string{"setfontinfo="} + fields +
                          "\nsetfaxstring=Text;10;20;\nsetfaxstring=Tail;600;20;\n") ==
                    expected([face = face, height = character_height](drawing_context& page) {
                        set_font(page, face, height);
                        text_at(10, 20, "Text")(page);
                        text_at(600, 20, "Tail")(page);
                    }))
            << fields;
    // All three of a line, each with what the one before has left of it.
    EXPECT_TRUE(drawn("setfontinfo setfaxnr=Arial;12;\n") == expected([](drawing_context& page) {
                    set_font(page, "Arial", -33);
                    text_at(0, 0, "4711")(page);
                }));
}

TEST_F(PagePainter, TheReceiverComesFromThePhoneBookOrAsTyped) {
    o_tebul known{};
    known.tbookid.assign("common");
    known.comment.assign("Adler KG");
    known.phone.assign("030 4711");
    const std::tuple<const char*, const o_tebul, const char*, const char*, int> cases[] = {
        {"4711", known, "Adler KG", "030 4711", 1},
        {"4711", o_tebul{}, "", "4711", 1},
        {"Kundendienst", o_tebul{}, "", "", 1},
        {"+49 4711", o_tebul{}, "", "", 1},
        {"sales:4711", o_tebul{}, "", "", 1},
        {" 4711", known, "", "", 0},
        {"", known, "", "", 0},
    };
    for (const auto& [phone, entry, comment, number, look_ups] : cases) {
        SCOPED_TRACE(phone);
        shown.send_record.phone.assign(phone);
        shown.entry = entry;
        shown.look_ups = 0;
        EXPECT_TRUE(drawn("settbookentrycomment=10;20;\nsettbookentryphone=10;120;\n") ==
                    expected([above = comment, below = number](drawing_context& page) {
                        text_at(10, 20, above)(page);
                        text_at(10, 120, below)(page);
                    }));
        EXPECT_EQ(shown.look_ups, look_ups);
    }
    EXPECT_THAT(boxes.shown, IsEmpty());

    shown.send_record.phone.assign("4711");
    for (const std::string keyword : {"settbookentrycomment", "settbookentryphone"}) {
        shown.has_phone_book = false;
        boxes.shown.clear();
        EXPECT_TRUE(drawn("setfaxnr=10;20;\n" + keyword + "=10;120;\nsetfaxnr=10;120;\n") ==
                    expected(text_at(10, 20, "4711")))
            << "the walk ends";
        EXPECT_THAT(boxes.shown, ElementsAre(Pair(common::string_text(1459), "Benachrichtigung")));
    }
}

TEST_F(PagePainter, TheSignatureReplacesWhatItCovers) {
    const std::string lines = "setfaxstring=MMMMM;0;0;\nsetfaxsign=20;30;\n";
    const by_hand text = text_at(0, 0, "MMMMM");
    EXPECT_TRUE(drawn(lines) == expected(text)) << "none";

    const auto with = [&](int value) {
        picture page = expected(text);
        for (std::size_t y = 30; y < 35; ++y)
            std::fill_n(page[y].begin() + 20, 80, value);
        return page;
    };
    for (const int value : {1, 0, 0, 1}) {
        shown.signature_bytes = page_of(80, 5, value != 0 ? 0xFF : 0);
        EXPECT_TRUE(drawn(lines) == with(value));
    }
    EXPECT_THAT(boxes.shown, IsEmpty());

    const codec::bytes damaged[] = {
        {1, 2, 3},                        // not a stream
        page_of(0xFFFF, 0xFFFF, 0xFF, 1), // four billion pixels
        page_of(80, 5, 0xFF, 4),          // a row short
    };
    for (const codec::bytes& bytes : damaged) {
        shown.signature_bytes = bytes;
        boxes.shown.clear();
        EXPECT_TRUE(drawn(lines) == expected(text));
        EXPECT_THAT(boxes.shown, ElementsAre(Pair(common::string_text(1210), ::testing::_)));
    }
}

TEST_F(PagePainter, TheBarcodeStandsOnItsLabel) {
    const std::string lines = "setfaxbarcode=30;40;\n";
    EXPECT_TRUE(drawn(lines) == expected(nothing)) << "none";
    shown.sender.userid.assign("zerdix");
    shown.sender.barcode.assign("12a");
    EXPECT_TRUE(drawn(lines) == expected(nothing)) << "no digits";
    shown.sender.barcode.assign("0815");
    EXPECT_TRUE(drawn(lines) == expected([](drawing_context& page) {
                    imaging::LeadBitmap* label = imaging::CreateBarcodeLabel(
                        imaging::BuildBarcodeBlock("0815"), "zerdix",
                        "Bitte verwenden Sie bei Antworten diesen Barcode");
                    drawing_context from{*label};
                    page.BitBlt(30, 40, label->width, label->height, &from, 0, 0, imaging::SRCCOPY);
                    FreeLeadBitmap(label);
                    std::free(label);
                }));
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(PagePainter, WithoutFontOrPixelsThereIsNoPage) {
    owned_bitmap bitmap;
    EXPECT_FALSE(page_painter::open(bitmap));
    CreateEmptyBitmap(&bitmap, 80, 10);
    auto painter = page_painter::open(bitmap);
    const tests::no_fonts none;
    EXPECT_FALSE(page_painter::open(bitmap));
    EXPECT_FALSE(
        painter->draw("#DRUCK#\nsetfontinfo=Arial;12;\nsetfaxbarcode=1;1;\n", shown, signature));
    const auto text = [](int number) { return Pair(common::string_text(number), ::testing::_); };
    EXPECT_THAT(boxes.shown, ElementsAre(text(1253), text(1213), text(1213)));
}

} // namespace
} // namespace zerdix::cover
