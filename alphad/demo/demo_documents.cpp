// SPDX-License-Identifier: MIT
#include "alphad/demo/demo_data.h"
#include "alphad/sending/drawn_page.h"
#include "alphad/store/log_text.h"
#include "platform/encoding.h"

namespace zerdix::alphad {

namespace {

// Senders are invented, their numbers lie in ranges kept free for such use. The pages show ASCII.
struct demo_document {
    topftype pool;
    const char *owner, *title, *number, *tsi;
    bool is_new, is_public;
    std::vector<std::pair<const char*, std::vector<std::string>>> pages; // headings and lines
};

const std::vector<demo_document>& demo_documents() {
    static const std::vector<demo_document> documents = {
        {TOPF_E,
         "zerdix",
         "Bestellung 4711",
         "06990009212",
         "+49 69 90009 212",
         true,
         false,
         {{"Bestellung 4711",
           {"Druckerei Gruen", "", "20 Kartons Papier A4", " 5 Kartons Papier A3", " 1 Satz Toner",
            "", "Lieferung bis Freitag, 12 Uhr."}},
          {"Anlage zu 4711", {"Lieferadresse:", "Halle 2, Tor 3", "Rechnung an die Zentrale"}}}},
        {TOPF_E,
         "zerdix",
         "Preisliste",
         "08999998417",
         "+49 89 99998 417",
         false,
         false,
         {{"Preisliste", {"Spedition Koerner", "", "bis  50 km:   40", "bis 200 km:  110"}}}},
        {TOPF_E,
         "meier",
         "Terminbestaetigung",
         "04066969330",
         "+49 40 66969 330",
         true,
         false,
         {{"Termin", {"Kanzlei Weiss und Partner", "", "Montag, 10:30, Raum 4"}}}},
        {TOPF_E,
         "meier",
         "Angebot 208",
         "03023125208",
         "+49 30 23125 208",
         false,
         false,
         {{"Angebot 208", {"Modehaus Froehlich", "", "120 Jacken, Muster liegt bei."}}}},
        {TOPF_P,
         "zerdix",
         "Anfahrt",
         "",
         "",
         false,
         true,
         {{"So finden Sie uns", {"A 100, Ausfahrt 7", "zweite links, Hof durch Tor 3"}}}},
    };
    return documents;
}

void add_document(store& store, const demo_document& from) {
    const std::int32_t id =
        store.documents.create(from.pool, from.owner, platform::utf8_to_cp1252(from.title));
    std::int16_t page = 0;
    for (const auto& [heading, lines] : from.pages)
        store.pages.put_block({id, ++page, picture_page}, 0, drawn_page(heading, lines));
    document origin{};
    origin.nettype = NETTYPE_FAX;
    origin.number = from.number;
    origin.tsi = from.tsi;
    store.documents.set_origin(id, origin);
    store.documents.set_bif(id, from.is_new);
    store.documents.set_public(id, from.is_public);
    store.logs.add(id, log_line("$as.demo_document:"));
}

} // namespace

void add_demo_documents(store& store) {
    transaction adding(store.database());
    for (const demo_document& each : demo_documents())
        add_document(store, each);
    adding.commit();
}

} // namespace zerdix::alphad
