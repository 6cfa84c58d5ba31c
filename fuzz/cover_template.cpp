// SPDX-License-Identifier: MIT
// Any bytes as the text of a cover template, and the same bytes as form and signature: what the
// commands draw stays on the page. Everything that a command could show is there to be shown. Drawn
// twice it gives the same picture, and the bits behind the last pixel of each row stay 0.
#include <algorithm>
#include <string_view>
#include <vector>

#include "cover/page_painter.h"
#include "platform/message_box.h"
#include "require.h"

using namespace zerdix;

namespace {

// What goes wrong with a picture is told to nobody.
struct silence final : platform::message_box_port {
    void show(std::string_view text, std::string_view) override { require(!text.empty()); }
};

struct content final : cover::page_content {
    explicit content(page_dat picture) : picture_(picture) {
        record_.comment.assign("Angebot 7");
        record_.phone.assign("common:adler");
        user_.userid.assign("zerdix");
        user_.comment.assign("Erika M\xfcller");
        user_.barcode.assign("08154711");
        entry_.tbookid.assign("common");
        entry_.comment.assign("Adler KG");
        entry_.phone.assign("030 23125 101");
        record = &record_;
        user = &user_;
        document = 4711;
    }
    const page_dat* signature() override { return &picture_; }
    const o_tebul* find_entry() override { return &entry_; }

  private:
    page_dat picture_;
    a_s_rec record_{};
    o_user_rec user_{};
    o_tebul entry_{};
};

// A small sheet, unless the bytes are a page themselves.
void make_page(const cover::kept_picture& form, imaging::LeadBitmap& page) {
    if (!form.copy_to(page))
        require(CreateEmptyBitmap(&page, 203, 149) == 1);
}

using byte_vector = std::vector<unsigned char>;

byte_vector drawn(std::string_view text, page_dat input) {
    cover::kept_picture form;
    form.expand(input);
    imaging::owned_bitmap page;
    make_page(form, page);
    auto painter = cover::page_painter::open(page);
    require(painter.has_value());
    content shown{input};
    cover::kept_picture signature;
    require(painter->draw(text, shown, signature));
    for (std::int32_t y = 0; y < page.height; ++y) {
        const unsigned char* row = row_from_top(page, y);
        const std::size_t used = imaging::row_bytes(page.width);
        require(page.width % 8 == 0 || (row[used - 1] & (0xFF >> page.width % 8)) == 0);
        require(std::all_of(row + used, row + page.stride, [](int byte) { return byte == 0; }));
    }
    return {page.pixels, page.pixels + page.stride * static_cast<std::size_t>(page.height)};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static silence quiet;
    platform::replace_message_box(&quiet);
    byte_vector copy(data, data + size);
    const page_dat input{static_cast<std::uint32_t>(size), copy.data()};
    const std::string_view text{reinterpret_cast<const char*>(data), size};
    require(drawn(text, input) == drawn(text, input));
    return 0;
}
