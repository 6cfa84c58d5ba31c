// SPDX-License-Identifier: MIT
#include "alphad/demo/demo_data.h"

#include "alphad/store/external_phone_book.h"
#include "platform/encoding.h"

namespace zerdix::alphad {

namespace {

constexpr const char* server_name = "alpha";
constexpr const char* sales = "vertrieb";

// The members of the group put entries in and change them, everybody reads and uses them.
constexpr opaque<3> shared_rights{
    {all_rights, right_read | right_use | right_add | right_change, right_read | right_use}};

struct demo_entry {
    const char *book, *id, *comment, *tsi, *phone;
    nettypetype net;
    bool in_house;
};

// Names are invented; the numbers lie in ranges kept free for such use.
constexpr demo_entry entries[] = {
    {"common", "baecker",
     "B\xc3\xa4"
     "ckerei M\xc3\xbchlenhof",
     "+49 30 23125 101", "03023125101", NETTYPE_FAX, false},
    {"common", "buchhalt", "Buchhaltung, 2. Stock", "+49 30 23125 990", "990", NETTYPE_FAX, true},
    {"common", "druckerei", "Druckerei Gr\xc3\xbcn & S\xc3\xb6hne", "+49 69 90009 212",
     "06990009212", NETTYPE_FAX, false},
    {"common", "empfang", "Empfang", "+49 30 23125 900", "900", NETTYPE_FAX, true},
    {"common", "hansen", "Reederei Hansen, Telex", "402195 rehan d", "402195", NETTYPE_TELEX,
     false},
    {"common", "kanzlei", "Kanzlei Wei\xc3\x9f und Partner", "+49 40 66969 330", "04066969330",
     NETTYPE_FAX, false},
    {"common", "lager",
     "Lager S\xc3\xbc"
     "d",
     "+49 30 23125 950", "950", NETTYPE_FAX, true},
    {"common", "spedition", "Spedition K\xc3\xb6rner", "+49 89 99998 417", "08999998417",
     NETTYPE_FAX, false},
    {"private", "arzt", "Praxis Dr. J\xc3\xa4ger", "+49 30 23125 614", "03023125614", NETTYPE_FAX,
     false},
    {"private", "garten", "G\xc3\xa4rtnerei Lindner", "+49 221 4710 733", "02214710733",
     NETTYPE_FAX, false},
    {"private", "kunde1", "Modehaus Fr\xc3\xb6hlich", "+49 30 23125 208", "03023125208",
     NETTYPE_FAX, false},
    {"private", "kunde2",
     "M\xc3\xb6"
     "bel Overath",
     "+49 221 4710 925", "02214710925", NETTYPE_FAX, false},
};

constexpr const char* kunden[][2] = {
    {"common", "druckerei"}, {"common", "spedition"}, {"private", "kunde1"}, {"private", "kunde2"}};

template <class Field>
void set(Field& field, const char* utf8) {
    field.assign(platform::utf8_to_cp1252(utf8));
}

void add_book(store& store, const char* id, const char* comment, const char* owner) {
    o_tebu book{};
    set(book.tbookid, id);
    set(book.comment, comment);
    set(book.alphaid, server_name);
    set(book.owner, owner);
    set(book.group, sales);
    book.perms = shared_rights;
    store.phone_books.put_book(book);
}

void add_entry(store& store, const demo_entry& from) {
    o_tebul entry{};
    set(entry.tbookid, from.book);
    set(entry.teleid, from.id);
    set(entry.comment, from.comment);
    set(entry.tsi, from.tsi);
    set(entry.phone, from.phone);
    entry.intern = from.in_house;
    entry.nettype = from.net;
    store.phone_books.put_entry(entry);
}

void add_group(store& store, const char* id, const char* comment) {
    o_tgroup group{};
    set(group.groupid, id);
    set(group.comment, comment);
    set(group.alphaid, server_name);
    set(group.owner, "zerdix");
    set(group.group, sales);
    group.perms = shared_rights;
    store.phone_books.put_group(group);
}

void add_member(store& store, const char* group, const char* book, const char* entry) {
    o_tgroupl member{};
    set(member.groupid, group);
    set(member.tbookid, book);
    set(member.teleid, entry);
    store.phone_books.put_member(member);
}

// Its labels name the parameters of a query.
void add_external_phone_book(store& store) {
    o_tebu book{};
    set(book.tbookid, "extern");
    set(book.comment, "Externes Verzeichnis");
    set(book.alphaid, server_name);
    set(book.owner, "zerdix");
    set_external(book);
    for (std::size_t i = 0; i < external_phone_book::labels.size(); ++i)
        set(book.t_labels[i], external_phone_book::labels[i]);
    store.phone_books.put_book(book);
}

void add_user(store& store, const char* id, const char* name, const char* printer) {
    store.users.add(id, name);
    store.users.set_password(id, id);
    a_user_rec preferences{};
    set(preferences.userid, id);
    set(preferences.defprinter, printer);
    set(preferences.defscanner, "empfang");
    preferences.hwfeatures = hwf_fine | hwf_scan;
    preferences.priority = 50;
    store.users.set_preferences(preferences);
    a_member_rec member{};
    set(member.alphaid, server_name);
    set(member.userid, id);
    set(member.comment, name);
    store.user_groups.put_member(sales, member);
}

void add_printer(store& store, const char* id, const char* comment, const char* place,
                 const char* model, bool stopped = false) {
    a_printer_rec printer{};
    set(printer.printerid, id);
    set(printer.comment, comment);
    set_place(printer, platform::utf8_to_cp1252(place));
    set_model(printer, platform::utf8_to_cp1252(model));
    set_stopped(printer, stopped);
    store.devices.put(printer);
}

void add_scanner(store& store, const char* id, const char* place, const char* model,
                 std::int16_t features, bool busy = false) {
    a_scanner_rec scanner{};
    set(scanner.scannerid, id);
    set_place(scanner, platform::utf8_to_cp1252(place));
    set_model(scanner, platform::utf8_to_cp1252(model));
    set_features(scanner, features);
    set_busy(scanner, busy);
    store.devices.put(scanner);
}

void add_settings(configuration& values) {
    values.set("ALPHAID", server_name);
    values.set("JOURNALBLK", "30");
    values.set("PHONEBOOKB", "30");
    values.set("COVER", "");
    values.set("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
}

void add_people(store& store) {
    store.user_groups.put(sales, "Vertrieb");
    add_user(store, "zerdix", "Clara Beispiel", "laser1");
    add_user(store, "meier", "Jonas Meier", "laser2");
}

void add_devices(store& store) {
    add_printer(store, "laser1", "Laserdrucker Empfang", "Erdgeschoss", "Laser A4");
    add_printer(store, "laser2", "Laserdrucker Vertrieb", "1. Stock", "Laser A4 und A3");
    add_printer(store, "matrix", "Matrixdrucker Lager", "Halle 2", "Endlospapier", true);
    add_scanner(store, "empfang", "Empfang", "Flachbett", hwf_normal | hwf_fine | hwf_scan);
    add_scanner(store, "vertrieb", "Vertrieb", "Einzug",
                hwf_normal | hwf_fine | hwf_scan | hwf_halftone, true);
}

void add_messages(board& board) {
    for (const char* text :
         {"Willkommen auf dem Alpha-Server.", "Der Matrixdrucker im Lager steht bis Freitag.",
          "Neue Eintr\xc3\xa4ge im allgemeinen Telefonbuch: B\xc3\xa4"
          "ckerei, Kanzlei."})
        board.add(0, administrator, platform::utf8_to_cp1252(text));
}

void add_phone_books(store& store) {
    add_book(store, "common", "Allgemeines Telefonbuch", "zerdix");
    add_book(store, "private", "Pers\xc3\xb6nliches Telefonbuch", "meier");
    add_external_phone_book(store);
    for (const demo_entry& entry : entries)
        add_entry(store, entry);
    add_group(store, "alle", "Alle Eintr\xc3\xa4ge");
    add_group(store, "kunden", "Kunden");
    for (const demo_entry& entry : entries)
        add_member(store, "alle", entry.book, entry.id);
    for (const auto& member : kunden)
        add_member(store, "kunden", member[0], member[1]);
}

} // namespace

void add_demo_data(store& store) {
    transaction adding(store.database());
    add_settings(store.configuration);
    add_people(store);
    add_devices(store);
    add_messages(store.board);
    add_phone_books(store);
    adding.commit();
}

} // namespace zerdix::alphad
