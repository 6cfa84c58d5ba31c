// SPDX-License-Identifier: MIT
#include "cover/page_painter.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <limits>
#include <string>

#include <zerdix/timetext.h>

#include "common/show_message.h"
#include "common/string_table.h"
#include "cover/template_text.h"
#include "imaging/barcode.h"

namespace zerdix::cover {

namespace {

using common::show_message;

// Numbers of messages and texts.
constexpr std::int32_t not_copied = 1200;
constexpr std::int32_t no_font = 1213;
constexpr std::int32_t no_context = 1253;
constexpr std::int32_t use_this_barcode = 1430;
constexpr std::int32_t no_look_up = 1459;

constexpr std::int32_t first_height = -77;
constexpr std::size_t longest_face = 31;

constexpr std::int32_t narrowed(std::int64_t value) {
    using limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(value, limits::min() + 1, limits::max()));
}

std::int32_t number(const char* field) {
    return narrowed(std::strtoll(field, nullptr, 10));
}

// The height of a font: below 0 it is that of the characters.
std::int32_t height_of(const char* points) {
    return narrowed(-(std::int64_t{number(points)} * 200 / 72));
}

struct released {
    void operator()(imaging::LeadBitmap* label) const {
        FreeLeadBitmap(label);
        std::free(label);
    }
};

} // namespace

const page_painter::command page_painter::commands[] = {
    {"setfaxstring", &page_painter::draw_field},
    {"setfaxsign", &page_painter::draw_signature},
    {"setfaxbarcode", &page_painter::draw_barcode},
    {"setusercomment", &page_painter::draw_user_comment},
    {"setfaxnr", &page_painter::draw_document},
    {"setfaxcomment", &page_painter::draw_comment},
    {"setuseraddress0", &page_painter::draw_field},
    {"setuseraddress1", &page_painter::draw_field},
    {"setuseraddress2", &page_painter::draw_field},
    {"setuseraddress3", &page_painter::draw_field},
    {"settbookentrycomment", &page_painter::draw_entry_comment},
    {"settbookentryphone", &page_painter::draw_entry_phone},
};

std::optional<page_painter> page_painter::open(imaging::LeadBitmap& page) {
    context drawn = imaging::L_CreateLeadDC(&page);
    if (drawn == nullptr) {
        show_message(no_context);
        return std::nullopt;
    }
    page_painter painter{std::move(drawn)};
    if (!painter.select_font("Courier", first_height))
        return std::nullopt;
    return painter;
}

bool page_painter::draw(std::string_view text, page_content& content, kept_picture& signature) {
    content_ = &content;
    signature_ = &signature;
    entry_ = nullptr;
    template_text lines{text};
    outcome last = outcome::next_line;
    for (char* line = lines.next(); line != nullptr && last == outcome::next_line;
         line = lines.next())
        last = carry_out(line);
    return last != outcome::no_page;
}

page_painter::outcome page_painter::carry_out(char* line) {
    if (std::strstr(line, "setfontinfo") != nullptr) {
        const cover_fields fields{line};
        const std::string_view face{fields.first};
        if (!select_font(face.substr(0, longest_face), height_of(fields.second)))
            return outcome::no_page;
    }
    if (std::strstr(line, "setdate") != nullptr)
        draw_date(cover_fields{line});
    for (const command& each : commands)
        if (std::strstr(line, each.keyword) != nullptr)
            return (this->*each.carry_out)(cover_fields{line});
    return outcome::next_line;
}

bool page_painter::select_font(std::string_view face, std::int32_t height) {
    auto font = platform::fonts().find({std::string{face}, height, 0});
    if (font == nullptr) {
        show_message(no_font);
        return false;
    }
    page_->SelectObject(std::move(font));
    return true;
}

page_painter::outcome page_painter::draw_at(const char* x, const char* y, std::string_view text) {
    page_->TextOutA(number(x), number(y), text);
    return outcome::next_line;
}

void page_painter::draw_date(const cover_fields& fields) {
    const char* date = "";
    printTime(static_cast<std::int32_t>(std::time(nullptr)), content_->language, nullptr, &date,
              nullptr);
    draw_at(fields.first, fields.second, date);
}

page_painter::outcome page_painter::draw_field(const cover_fields& fields) {
    return draw_at(fields.second, fields.third, fields.first);
}

void page_painter::draw_picture(const cover_fields& fields, imaging::LeadBitmap& picture) {
    const context from = imaging::L_CreateLeadDC(&picture);
    if (from == nullptr || page_->BitBlt(number(fields.first), number(fields.second), picture.width,
                                         picture.height, from.get(), 0, 0, imaging::SRCCOPY) != 1)
        show_message(not_copied);
}

page_painter::outcome page_painter::draw_signature(const cover_fields& fields) {
    const page_dat* signature = content_->signature();
    if (signature == nullptr || signature->size == 0)
        return outcome::next_line;
    if (const std::int32_t message = signature_->expand(*signature); message != 0)
        show_message(message);
    else
        draw_picture(fields, signature_->picture());
    return outcome::next_line;
}

page_painter::outcome page_painter::draw_barcode(const cover_fields& fields) {
    const std::string digits{content_->user->barcode.view()};
    unsigned char* const block = imaging::BuildBarcodeBlock(digits.c_str());
    if (block == nullptr)
        return outcome::next_line; // none, or not one that has a code
    const std::string user{content_->user->userid.view()};
    const std::unique_ptr<imaging::LeadBitmap, released> label{
        imaging::CreateBarcodeLabel(block, user.c_str(), common::string_text(use_this_barcode))};
    if (label != nullptr)
        draw_picture(fields, *label);
    return outcome::next_line;
}

page_painter::outcome page_painter::draw_user_comment(const cover_fields& fields) {
    return draw_at(fields.first, fields.second, content_->user->comment.view());
}

page_painter::outcome page_painter::draw_document(const cover_fields& fields) {
    if (content_->document == 0)
        return outcome::next_line;
    return draw_at(fields.first, fields.second, std::to_string(content_->document));
}

page_painter::outcome page_painter::draw_comment(const cover_fields& fields) {
    return draw_at(fields.first, fields.second, content_->record->comment.view());
}

// Whether there is a receiver. Then it was looked up, once for the page, and entry_ is null when
// that failed.
bool page_painter::look_up_receiver() {
    const char first = content_->record->phone.bytes[0];
    if (first == '\0' || first == ' ')
        return false;
    if (entry_ == nullptr)
        entry_ = content_->find_entry();
    if (entry_ == nullptr)
        show_message(no_look_up);
    return true;
}

page_painter::outcome page_painter::draw_entry_comment(const cover_fields& fields) {
    if (!look_up_receiver())
        return outcome::next_line;
    if (entry_ == nullptr)
        return outcome::end_of_walk;
    if (entry_->tbookid.empty())
        return outcome::next_line;
    return draw_at(fields.first, fields.second, entry_->comment.view());
}

page_painter::outcome page_painter::draw_entry_phone(const cover_fields& fields) {
    if (!look_up_receiver())
        return outcome::next_line;
    if (entry_ == nullptr)
        return outcome::end_of_walk;
    if (!entry_->tbookid.empty())
        return draw_at(fields.first, fields.second, entry_->phone.view());
    const std::string_view typed = content_->record->phone.view();
    if (typed[0] < '0' || typed[0] > '9')
        return outcome::next_line;
    return draw_at(fields.first, fields.second, typed);
}

} // namespace zerdix::cover
