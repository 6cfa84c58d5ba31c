// SPDX-License-Identifier: MIT
#include <cmath>
#include <utility>

#include "alphad/demo/demo_data.h"
#include "alphad/demo/demo_paper.h"
#include "alphad/store/log_text.h"
#include "platform/encoding.h"

namespace zerdix::alphad {

namespace {

using weight = demo_paper::weight;

constexpr std::int32_t width = 1728, height = 2286; // a fine page of A4
constexpr std::int32_t margin = 120;
constexpr const char* owner = "zerdix";

// Where the form has a line to write on, and what it says in front of it.
constexpr std::pair<std::int32_t, const char*> form_lines[] = {
    {400, "An"},    {520, "Faxnummer"}, {640, "Von"},
    {760, "Datum"}, {880, "Dokument"},  {1000, "Betreff"},
};

// Fields to the right of them, the signature, and the barcode in its box.
constexpr const char* commands = "Deckblatt Beispiel & Sohn\n"
                                 "#DRUCK#\n"
                                 "setfontinfo=Arial;17;\n"
                                 "settbookentrycomment=480;398;\n"
                                 "settbookentryphone=480;518;\n"
                                 "setusercomment=480;638;\n"
                                 "setdate=480;758;\n"
                                 "setfaxnr=480;878;\n"
                                 "setfaxcomment=480;998;\n"
                                 "setfaxsign=120;1390;\n"
                                 "setfontinfo=Arial;14;\n"
                                 "setusercomment=120;1610;\n"
                                 "setfaxbarcode=173;1880;\n"
                                 "setfontinfo=Arial;11;\n"
                                 "setuseraddress0=Beispiel & Sohn;120;2140;\n"
                                 "setuseraddress1=Musterweg 7, 12345 Musterstadt;560;2140;\n"
                                 "setuseraddress2=Telefax 030 23125 900;1240;2140;\n";

// A sheet of paper with a folded corner, 130 pixels high.
void draw_logo(demo_paper& paper, std::int32_t left, std::int32_t top) {
    for (std::int32_t step = 0; step < 3; ++step)
        paper.box(left + 22 * step, top + 22 * step, 90, 6);
    for (std::int32_t step = 0; step < 3; ++step)
        paper.box(left + 22 * step, top + 22 * step, 6, 80);
    paper.box(left + 44, top + 44, 90, 86);
}

void draw_sender(demo_paper& paper, std::int32_t left, std::int32_t top) {
    draw_logo(paper, left, top);
    paper.text(left + 170, top, 68, weight::bold, "Beispiel & Sohn");
    paper.text(left + 174, top + 84, 40, weight::regular, "Öfen und Krüge");
}

std::string cover_form() {
    demo_paper paper(width, height);
    draw_sender(paper, margin, 110);
    paper.text(1108, 110, 110, weight::bold, "TELEFAX");
    paper.box(margin, 290, width - 2 * margin, 8);
    for (const auto& [top, label] : form_lines) {
        paper.text(margin, top + 6, 40, weight::regular, label);
        paper.box(460, top + 66, width - margin - 460, 2);
    }
    paper.text(margin, 1150, 46, weight::regular, "Sehr geehrte Damen und Herren,");
    paper.text(margin, 1220, 46, weight::regular, "die folgenden Seiten sind f\xc3\xbcr Sie.");
    paper.text(margin, 1320, 46, weight::regular, "Mit freundlichen Gr\xc3\xbc\xc3\x9f\x65n");
    for (const std::int32_t top : {1860, 2042})
        paper.box(margin, top, width - 2 * margin, 3);
    for (const std::int32_t left : {margin, width - margin - 3})
        paper.box(left, 1860, 3, 185);
    paper.box(margin, 2110, width - 2 * margin, 8);
    return paper.stored();
}

// Room for a letter between top and foot.
std::string letterhead() {
    demo_paper paper(width, height);
    draw_sender(paper, 910, 60);
    paper.box(margin, 2160, width - 2 * margin, 3);
    for (const auto& [left, text] : {std::pair{margin, "Beispiel & Sohn, Öfen und Krüge"},
                                     {820, "Musterweg 7, 12345 Musterstadt"},
                                     {1312, "Telefax 030 23125 900"}})
        paper.text(left, 2180, 28, weight::regular, text);
    return paper.stored();
}

// Loops that a hand draws in a hurry: smaller and smaller, then a stroke below them.
std::string signature() {
    demo_paper paper(600, 200);
    constexpr double turn = 6.2831853;
    for (double at = 0; at < 1; at += 0.0004) {
        const double size = 70 * (1 - 0.75 * at), angle = at * 6 * turn;
        paper.disc(60 + 430 * at + 0.6 * size * std::cos(angle),
                   90 + 20 * at - size * std::sin(angle + 0.5), 3 + 1.5 * std::sin(angle));
        paper.disc(560 - 500 * at, 165 + 12 * std::sin(at * turn / 2), 3.5 - 2 * at);
    }
    return paper.stored();
}

std::int32_t add_desk_document(store& store, const char* title, const std::string& picture) {
    const std::int32_t id = store.documents.create(TOPF_P, owner, title);
    store.pages.put_block({id, 1, picture_page}, 0, picture);
    store.logs.add(id, log_line("$as.demo_document:"));
    return id;
}

void add_cover_template(store& store) {
    const std::int32_t id = add_desk_document(store, "Deckblatt", cover_form());
    store.pages.put_block({id, 1, picture_cover_text}, 0, commands);
    store.documents.set_public(id, true);
    store.configuration.set("COVER", std::to_string(id));
}

// For paper source 1.
void add_letterhead(store& store) {
    a_user_rec preferences = store.users.preferences(owner);
    preferences.papertrays[1] = add_desk_document(store, "Briefbogen", letterhead());
    store.users.set_preferences(preferences);
}

void add_hand(store& store) {
    store.signatures.put(owner, signature());
    if (auto user = store.users.find(owner)) {
        user->barcode.assign("3023125900");
        store.users.put(*user);
    }
}

} // namespace

void add_demo_cover(store& store) {
    transaction adding(store.database());
    add_cover_template(store);
    add_letterhead(store);
    add_hand(store);
    adding.commit();
}

} // namespace zerdix::alphad
