#include "alphad/demo/demo_paper.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>

#include "platform/encoding.h"

namespace zerdix::alphad {

demo_paper::demo_paper(std::int32_t width, std::int32_t height) {
    if (CreateEmptyBitmap(&bitmap_, width, height) != 1)
        throw std::bad_alloc{};
}

void demo_paper::row(std::int32_t y, std::int32_t left, std::int32_t right) {
    if (y < 0 || y >= bitmap_.height)
        return;
    unsigned char* pixels = bitmap_.pixels + bitmap_.stride * static_cast<std::size_t>(y);
    for (std::int32_t x = std::max(left, 0); x < std::min(right, bitmap_.width); ++x)
        pixels[x / 8] |= static_cast<unsigned char>(0x80 >> x % 8);
}

void demo_paper::box(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    for (std::int32_t y = top; y < top + height; ++y)
        row(y, left, left + width);
}

void demo_paper::disc(double x, double y, double radius) {
    const auto last = static_cast<std::int32_t>(y + radius);
    for (auto line = static_cast<std::int32_t>(y - radius); line <= last; ++line) {
        const double reach = std::sqrt(std::max(0.0, radius * radius - (line - y) * (line - y)));
        row(line, static_cast<std::int32_t>(x - reach), static_cast<std::int32_t>(x + reach));
    }
}

void demo_paper::text(std::int32_t x, std::int32_t y, std::int32_t height, weight how,
                      std::string_view utf8) {
    const auto context = imaging::L_CreateLeadDC(&bitmap_);
    if (context == nullptr)
        throw std::bad_alloc{};
    context->SelectObject(
        platform::fonts().find({"Arial", -height, static_cast<std::int32_t>(how)}));
    context->TextOutA(x, y, platform::utf8_to_cp1252(utf8));
}

std::string demo_paper::stored() {
    page_dat page{0, nullptr};
    if (ConvertLeadToCompressedFax(&page, &bitmap_, 0) != 1)
        throw std::bad_alloc{};
    const std::string bytes{reinterpret_cast<const char*>(page.data), page.size};
    std::free(page.data);
    return bytes;
}

} // namespace zerdix::alphad
