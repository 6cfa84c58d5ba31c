// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <memory>

#include "common/show_message.h"
#include "imaging/barcode.h"
#include "imaging/drawing.h"
#include "imaging/owned_bitmap.h"

namespace zerdix::imaging {
namespace {

constexpr std::int32_t band = 50;     // height of each text and of the code
constexpr std::int32_t across = 1728; // width in which they are drawn; the label is narrower
constexpr std::int32_t bitmap_problem = 494;
constexpr std::int32_t drawing_problem = 1200;
constexpr std::int32_t no_context = 1253;
constexpr std::int32_t not_inverted = 1257;
constexpr std::int32_t no_label = 1466;

struct released {
    void operator()(LeadBitmap* label) const {
        FreeLeadBitmap(label);
        std::free(label);
    }
};
using owned_label = std::unique_ptr<LeadBitmap, released>;

// The message that a step ended with, 0 for none.
using message = std::int32_t;

message make_code(unsigned char* block, LeadBitmap& code) {
    if (ConvertBmToLead(block, &code, 1) != 1)
        return bitmap_problem;
    return L_InvertBitmap(&code) == 1 ? 0 : not_inverted;
}

message draw(LeadBitmap& label, LeadBitmap& code, const char* bottom, const char* top) {
    const auto to = L_CreateLeadDC(&label);
    const auto from = L_CreateLeadDC(&code);
    if (to == nullptr || from == nullptr)
        return no_context;
    if (to->BitBlt(0, 0, across, label_height, nullptr, 0, 0, BLACKNESS) != 1)
        return drawing_problem;
    to->SelectObject(platform::fonts().find({"Courier", 40, 700}));
    to->DrawTextA(top, {0, 0, across, band});
    to->DrawTextA(bottom, {0, 2 * band, across, 3 * band});
    return to->BitBlt(0, band, across, band, from.get(), 0, 0, SRCCOPY) == 1 ? 0 : drawing_problem;
}

message make_label(unsigned char* block, LeadBitmap& label, const char* bottom, const char* top) {
    owned_bitmap code;
    if (const message failed = make_code(block, code); failed != 0)
        return failed;
    if (CreateEmptyBitmap(&label, label_width, label_height) != 1)
        return no_label;
    return draw(label, code, bottom, top);
}

} // namespace

LeadBitmap* CreateBarcodeLabel(unsigned char* block, const char* bottomText, const char* topText) {
    owned_label label{static_cast<LeadBitmap*>(std::calloc(1, sizeof(LeadBitmap)))};
    if (label == nullptr) {
        std::free(block);
        return nullptr;
    }
    const message failed = make_label(block, *label, bottomText, topText);
    if (failed == 0)
        return label.release();
    common::show_message(failed);
    return nullptr;
}

} // namespace zerdix::imaging
