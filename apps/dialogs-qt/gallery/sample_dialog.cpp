// SPDX-License-Identifier: MIT
#include "gallery/sample_dialog.h"

#include <string>
#include <utility>

#include "common/string_table.h"
#include "dialogs/dialog_resources.h"
#include "dialogs/templates.h"
#include "forms/tree_list.h"

namespace zerdix::gallery {

namespace {

const forms::font_description list_font{-13, 400, "Courier"};

std::intptr_t send(forms::tree_list* list, std::uint32_t message, std::uintptr_t wParam = 0,
                   std::intptr_t lParam = 0) {
    return forms::SftTree_WndProc(list, message, wParam, lParam);
}

std::intptr_t bytes(std::string_view words) {
    return reinterpret_cast<std::intptr_t>(words.data());
}

} // namespace

bool use_language(const char* file) {
    forms::SftTree_RegisterApp2(&list_font);
    dialogs::install_dialog_resources();
    if (*file == '\0')
        return true;
    static platform::library_handle present = 0;
    const auto library = platform::LoadLibraryA(file);
    common::set_resource_source(library);
    platform::FreeLibrary(std::exchange(present, library));
    return library >= platform::first_good_handle;
}

sample_dialog::sample_dialog(std::int32_t template_id, side chosen, bool typed)
    : dialog(template_id), side_(chosen), typed_(typed) {}

bool sample_dialog::OnInitDialog() {
    switch (template_id()) {
    case dialogs::send_form:
    case dialogs::large_send_form:
        fill_send_dialog();
        break;
    case dialogs::entry_form:
        fill_entry();
        break;
    case dialogs::user_form:
        fill_users();
        break;
    case dialogs::find_form:
        fill_find();
        break;
    case dialogs::print_form:
        fill_print();
        break;
    case dialogs::notify_form:
        fill_message();
        break;
    default:
        show(9607, false);
    }
    return true;
}

// As the library itself sets up its lists.
void sample_dialog::titles(std::int32_t list_id, std::initializer_list<std::int32_t> texts) {
    auto* one = list(list_id);
    const auto font = reinterpret_cast<std::uintptr_t>(&list_font);
    if (template_id() != dialogs::user_form) {
        send(one, forms::set_font, font);
        send(one, forms::write_title_font, font);
    }
    const auto width = one->view->client_width() / static_cast<std::int32_t>(texts.size());
    const std::vector<forms::column_record> columns(texts.size(), {width, 0, 0, 0});
    send(one, forms::write_columns, columns.size(),
         reinterpret_cast<std::intptr_t>(columns.data()));
    std::uintptr_t column = 0;
    for (const auto number : texts) {
        send(one, forms::choose_column, column++);
        send(one, forms::write_title, 0, bytes(common::string_text(number)));
    }
}

void sample_dialog::row(std::int32_t list_id, std::initializer_list<std::string_view> cells) {
    auto* one = list(list_id);
    const auto at = static_cast<std::uintptr_t>(send(one, forms::add_row, 0, bytes("")));
    std::uintptr_t column = 0;
    for (const auto cell : cells) {
        send(one, forms::choose_column, column++);
        send(one, forms::write_cell, at, bytes(cell));
    }
}

void sample_dialog::fill_send_dialog() {
    show(2321);
    show(2328, false);
    check(2325);
    check(2307);
    check(2313);
    set_read_only(2348);
    set_limit(2348, 2000);
    set_limit(2327, 30);
    set_limit(2332, 8);
    set_limit(2311, 8);
    set_text(2319, "9");
    set_limit(2319, 1);
    set_limit(2317, 30);
    set_text(2317, "Angebot 2217");
    titles(2331, {1406, 1407, 1408, 1409, 1410, 1411});
    titles(2304, {1432, 1433, 1434, 1435});
    set_focus(2327);
    if (typed_) {
        set_text(2327, "030 123465");
        mark(2327, caption_of(2385));
        show(2385);
    }
    if (side_ == side::none)
        return;
    set_text(2348, "030 123456 common:kanzlei kunden ");
    check(2350);
    if (side_ == side::book)
        show_book();
    else
        show_groups();
}

void sample_dialog::show_book() {
    check(2324);
    for (const std::int32_t id : {2305, 2329, 2310, 2331})
        show(id);
    enable(2303);
    enable(2322);
    for (const auto* book : {"common", "privat", "kunden"})
        add_item(2310, book);
    select_item(2310, "common");
    const std::string outside = common::string_text(1357);
    const std::string fax = common::string_text(1332);
    row(2331, {"atelier",
               "Atelier Gr\xf6\xdf"
               "e",
               "+49 30 2312577", "030 2312577", outside, fax});
    row(2331, {"kanzlei", "Kanzlei Winter", "+49 30 123456", "030 123456", outside, fax});
    row(2331, {"lager", "Lager", "", "417", common::string_text(1356), fax});
    row(2331, {"hansen", "Reederei Hansen", "2161234 hans d", "2161234", outside,
               common::string_text(1336)});
    for (int i = 1; i <= 40; ++i)
        row(2331, {"kunde" + std::to_string(i), "Kunde " + std::to_string(i), "",
                   "040 55" + std::to_string(100 + i), outside, fax});
    send(list(2331), forms::select_row, 1);
}

void sample_dialog::show_groups() {
    check(2326);
    show(2330);
    show(2304);
    enable(2322);
    row(2304, {"kunden", "Alle Kunden", "zerdix", "vertrieb"});
    row(2304, {"presse", "Zeitungen und Sender", "meier", "presse"});
    send(list(2304), forms::select_row, 0);
}

void sample_dialog::fill_entry() {
    set_limit(1908, 10);
    set_text(1908, "kanzlei");
    set_text(1911, "Kanzlei Winter");
    set_text(1913, "+49 30 123456");
    set_text(1915, "030 123456");
    check(1903);
    check(1905);
    set_focus(1908);
}

void sample_dialog::fill_users() {
    titles(2453, {1338, 1339, 1340});
    row(2453, {"meier", "Meier, Einkauf", "alpha"});
    row(2453, {"zerdix", "Zentrale", "alpha"});
    row(2453, {"schulz", "Schulz, Vertrieb", "beta"});
    send(list(2453), forms::select_row, 1);
    set_focus(2453);
}

void sample_dialog::fill_find() {
    set_limit(1403, 40);
    set_text(1403, "kanz*030");
    set_focus(1403);
}

void sample_dialog::fill_print() {
    set_text(9602, "Angebot 2217");
    set_text(9604, "Laserdrucker, 2. Stock");
    set_text(9605, "1 / 3");
}

void sample_dialog::fill_message() {
    set_text(9651, common::string_text(1465));
}

} // namespace zerdix::gallery
