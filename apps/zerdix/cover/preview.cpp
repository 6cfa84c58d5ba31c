// SPDX-License-Identifier: MIT
#include "cover/preview.h"

#include <dlfcn.h>
#include <filesystem>

#include <zerdix/book_entry.h>
#include <zerdix/timetext.h>

#include "books/known_entry.h"
#include "common/settings.h"
#include "common/string_table.h"
#include "cover/page_painter.h"
#include "platform/resource_library.h"

namespace zerdix::app {

namespace {

constexpr const char* shared_book = "common"; // where a bare receiver is looked up

class preview_content final : public cover::page_content {
  public:
    preview_content(user_session& works, const cover_receiver& receiver)
        : desk_(works), sender_(works.fetch("looking up the sender",
                                            [&] { return works.session().getOUserRecord(); })) {
        record_.phone.assign(receiver.phone);
        record_.comment.assign(receiver.title);
        record = &record_;
        user = &sender_;
        document = sample_number;
        language = ZERDIX::clsGetLanguage();
        look_up(receiver.phone);
    }

    const page_dat* signature() override {
        return &desk_.fetch("fetching the signature",
                            [&] { return desk_.session().getSignature(); });
    }

    const o_tebul* find_entry() override { return &entry_; }

  private:
    void look_up(const std::string& phone) {
        if (const auto named = parse_book_entry(phone))
            entry_ = known_entry(desk_, {named->book, named->entry});
        else if (!phone.empty())
            entry_ = find_entry_of_number(phone);
    }

    o_tebul find_entry_of_number(const std::string& phone) {
        return app::find_entry(desk_, {shared_book, phone}).value_or(o_tebul{});
    }

    user_session& desk_;
    o_user_rec sender_;
    a_s_rec record_{};
    o_tebul entry_{};
};

// Where the shared library looks from its own folder, which needn't be this program's.
std::string beside_the_library(const std::string& name) {
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&printTime), &info) == 0)
        return {};
    return std::filesystem::path(info.dli_fname).parent_path() / "../share/zerdix" / name;
}

// The words that the library puts on the page are those of its resource library. What draws the
// preview is a copy of that part of it, with a string table of its own.
void use_words_of_the_library() {
    const str20 name = common::setting_language().library;
    platform::library_handle words = platform::LoadLibraryA(name.bytes);
    if (words == platform::file_not_found)
        words = platform::LoadLibraryA(beside_the_library(name.bytes).c_str());
    if (words >= platform::first_good_handle)
        common::set_resource_source(words);
}

page_picture picture_of(const imaging::LeadBitmap& bitmap) {
    page_picture picture{
        static_cast<std::uint32_t>(bitmap.width), static_cast<std::uint32_t>(bitmap.height), {}};
    for (std::size_t y = 0; y < picture.rows; ++y) {
        const unsigned char* row = bitmap.pixels + y * bitmap.stride;
        picture.bits.insert(picture.bits.end(), row, row + picture.row_bytes());
    }
    return picture;
}

} // namespace

page_picture draw_cover(user_session& user, const cover_template& from,
                        const cover_receiver& receiver) {
    use_words_of_the_library();
    std::vector<unsigned char> bytes = from.form;
    const page_dat form{static_cast<std::uint32_t>(bytes.size()), bytes.data()};
    cover::kept_picture page;
    if (page.expand(form) != 0)
        throw failure(exit_bad_data, "the form of the cover template is damaged");
    preview_content content(user, receiver);
    cover::kept_picture signature;
    auto painter = cover::page_painter::open(page.picture());
    const std::string_view commands(reinterpret_cast<const char*>(from.commands.data()),
                                    from.commands.size());
    if (!painter || !painter->draw(commands, content, signature))
        throw failure(exit_internal, "the cover page can't be drawn");
    if (page.picture().width > page.picture().height)
        L_RotateBitmap(&page.picture(), -90, 1);
    return picture_of(page.picture());
}

} // namespace zerdix::app
