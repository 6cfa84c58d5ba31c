// SPDX-License-Identifier: MIT
#include "cover/preview.h"

#include <memory>

#include <zerdix/book_entry.h>
#include <zerdix/cover.h>
#include <zerdix/page.h>
#include <zerdix/values.h>

#include "books/known_entry.h"

namespace zerdix::app {

namespace {

constexpr const char* shared_book = "common"; // where a bare receiver is looked up

o_tebul entry_of(user_session& user, const std::string& phone) {
    if (const auto named = parse_book_entry(phone))
        return known_entry(user, *named);
    if (phone.empty())
        return {};
    return find_entry(user, {shared_book, phone}).value_or(o_tebul{});
}

template <class Bytes>
std::string_view view_of(const Bytes* bytes, std::size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

} // namespace

page_picture draw_cover(user_session& user, const cover_template& from,
                        const cover_receiver& receiver) {
    const o_user_rec sender =
        user.fetch("looking up the sender", [&] { return user.session().getOUserRecord(); });
    const o_tebul entry = entry_of(user, receiver.phone);
    const page_dat& signature =
        user.fetch("fetching the signature", [&] { return user.session().getSignature(); });
    a_s_rec record{};
    record.phone.assign(receiver.phone);
    record.comment.assign(receiver.title);
    const cover_page cover{view_of(from.form.data(), from.form.size()),
                           view_of(from.commands.data(), from.commands.size()),
                           view_of(signature.data, signature.size),
                           &sender,
                           &record,
                           &entry,
                           sample_number};
    unsigned char* stored = nullptr;
    std::uint32_t size = 0;
    const std::int32_t result = DrawCoverPage(cover, &stored, &size);
    const std::unique_ptr<unsigned char, decltype(&FreeStoredPage)> owner(stored, &FreeStoredPage);
    if (result == call_refused)
        throw failure(exit_bad_data, "the form of the cover template is damaged");
    if (result != call_succeeded)
        throw failure(exit_internal, "the cover page can't be drawn");
    return expand_page(stored, size);
}

} // namespace zerdix::app
