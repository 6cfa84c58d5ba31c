// SPDX-License-Identifier: MIT
// Turning landscape pages upright.

#include "sendfax/landscape_page.h"
#include "imaging/owned_bitmap.h"
#include "sendfax/job.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

using imaging::LeadBitmap;
using imaging::owned_bitmap;

void turn_upright(LeadBitmap& bitmap) {
    if (bitmap.width <= bitmap.height)
        return;
    trace_lines.info("RotateBitmap: Width: %ld > Height %ld : Rotate -90", bitmap.width,
                     bitmap.height);
    trace_lines.info("RotateBitmap(): start rotating bitmap");
    L_RotateBitmap(&bitmap, -90, 1);
    trace_lines.info("RotateBitmap(): end rotating bitmap");
}

std::int32_t failed(const char* line) {
    trace_lines.error("%s", line);
    return failure;
}

std::int32_t rotate(std::span<const unsigned char> block, pages::page_size size, page_dat& page) {
    trace_lines.info("RotateBitmap: Width: %ld Height %ld", size.width, size.height);
    owned_bitmap bitmap;
    if (!imaging::bitmap_of_driver_block(block, bitmap))
        return failed("RotateBitmap(): Error ConvertFromBmToLead()");
    turn_upright(bitmap);
    if (ConvertLeadToCompressedFax(&page, &bitmap, 1) != 1)
        return failed("RotateBitmap(): Error ConvertLeadToCompressedFax()");
    return success;
}

} // namespace

std::int32_t RotateBitmap(const unsigned char* block, std::int32_t size, page_dat* page) {
    const trace::operation traced{trace_lines, "RotateBitmap():", "<-- RotateBitmap:"};
    const pages::page_size picture = pages::read_header(block, pages::header_form::stored);
    if (picture.height > picture.width) {
        traced.exit("--> RotateBitmap(): Bitmap must not be rotated");
        return declined;
    }
    return rotate({block, static_cast<std::size_t>(size)}, picture, *page);
}

} // namespace zerdix::sendfax
