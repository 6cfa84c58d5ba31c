// SPDX-License-Identifier: MIT
// Draws a cover page of data that the caller has.

#include <zerdix/cover.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "cover/page_painter.h"

namespace zerdix::cover {

namespace {

// The bytes are only read.
page_dat page_of(std::string_view bytes) {
    return {static_cast<std::uint32_t>(bytes.size()),
            reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()))};
}

class given_content final : public page_content {
  public:
    explicit given_content(const cover_page& cover)
        : entry_(cover.entry), signature_(page_of(cover.signature)) {
        record = cover.record;
        user = cover.user;
        document = cover.document;
        language = ZERDIX::clsGetLanguage();
    }

    const page_dat* signature() override { return &signature_; }
    const o_tebul* find_entry() override { return entry_; }

  private:
    const o_tebul* entry_;
    page_dat signature_;
};

} // namespace

} // namespace zerdix::cover

std::int32_t DrawCoverPage(const zerdix::cover_page& cover, unsigned char** stored,
                           std::uint32_t* size) {
    using namespace zerdix::cover;
    *stored = nullptr;
    *size = 0;
    kept_picture page, signature;
    if (page.expand(page_of(cover.form)) != 0)
        return zerdix::call_refused;
    given_content content(cover);
    auto painter = page_painter::open(page.picture());
    if (!painter || !painter->draw(cover.commands, content, signature))
        return zerdix::call_failed;
    if (page.picture().width > page.picture().height)
        L_RotateBitmap(&page.picture(), -90, 1);
    page_dat made{0, nullptr};
    if (zerdix::imaging::ConvertLeadToCompressedFax(&made, &page.picture(), 0) != 1)
        return zerdix::call_failed;
    *stored = made.data;
    *size = made.size;
    return zerdix::call_succeeded;
}
