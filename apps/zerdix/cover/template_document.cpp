// SPDX-License-Identifier: MIT
#include "cover/template_document.h"

namespace zerdix::app {

namespace {

constexpr std::int16_t only_page = 1;

std::vector<unsigned char> fetch_form(user_session& user, std::int32_t document,
                                      std::int16_t type) {
    const page_dat& page = user.fetch("fetching the cover template", [&] {
        return user.journal().getDocPage(TOPF_P, document, only_page, type);
    });
    if (page.size == 0)
        return {};
    return {page.data, page.data + page.size};
}

std::string storing(std::int32_t document) {
    return "storing a page in document " + std::to_string(document);
}

} // namespace

std::int32_t put_form(user_session& user, std::int32_t document, std::int16_t type,
                      std::span<const unsigned char> bytes) {
    std::vector<unsigned char> copy(bytes.begin(), bytes.end());
    const page_dat page{static_cast<std::uint32_t>(copy.size()), copy.data()};
    std::int32_t result = 0;
    user.expect(storing(document), [&] {
        result = user.journal().putDocPage(document, only_page, type, &page);
        return result == call_refused ? 0 : result;
    });
    return result;
}

void store_form(user_session& user, std::int32_t document, std::int16_t type,
                std::span<const unsigned char> bytes) {
    if (put_form(user, document, type, bytes) != 0)
        throw failure(exit_refused, storing(document) + " failed: the server refused");
}

std::int32_t template_id(user_session& user) {
    const call_probe watch;
    const std::int32_t id = user.journal().getCoverId();
    if (id == -1)
        user.lost("asking for the cover template", watch);
    return id;
}

cover_template fetch_template(user_session& user) {
    const std::int32_t id = template_id(user);
    if (id == 0)
        throw failure(exit_no_input, "the server names no cover template");
    cover_template fetched{fetch_form(user, id, form_picture), {}};
    if (fetched.form.empty())
        throw failure(exit_no_input, "document " + std::to_string(id) +
                                         ", which the server names as its cover template, has no "
                                         "form that you may read");
    fetched.commands = fetch_form(user, id, form_commands);
    return fetched;
}

void set_form_title(user_session& user, std::int32_t document, const char* title) {
    user.expect("setting the title of document " + std::to_string(document),
                [&] { return user.journal().putComment2Doc(TOPF_P, document, title); });
}

} // namespace zerdix::app
