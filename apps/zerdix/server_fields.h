// What the server's own fields mean: those that the library carries and doesn't read. The one place
// of this program that knows their names.
#ifndef ZERDIX_APP_SERVER_FIELDS_H
#define ZERDIX_APP_SERVER_FIELDS_H

#include <cstdint>
#include <string_view>

#include <zerdix/records.h>

namespace zerdix::app {

// Which documents a list shows. A selection that a pool doesn't know shows all.
enum selection : selectiontype {
    select_all = 0,
    select_new = 1,    // not looked at yet: incoming documents and the desk's
    select_public = 2, // public desk documents, of all users
    select_errors = 3, // outgoing documents with an error
};

// The block form of a document list: `firstvalue` is the id at which the block begins, itself
// included, 0 for the first block; `secondvalue` is how many there may be. Ids ascend.
constexpr std::int32_t first_block = 0;

// Documents, by pool. Times are seconds since 1970 UTC.
inline std::int32_t came_at(const a_e_rec& in) {
    return in.e_value1;
}
inline int page_count(const a_e_rec& in) {
    return in.e_value2;
}
inline int net_type(const a_e_rec& in) { // a nettypetype
    return in.e_value3;
}
inline std::string_view title(const a_e_rec& in) {
    return in.e_text1.view();
}
inline std::string_view sender_station(const a_e_rec& in) {
    return in.e_text2.view();
}
inline std::string_view sender_number(const a_e_rec& in) {
    return in.e_text4.view();
}
inline std::string_view forwarded_by(const a_e_rec& in) {
    return in.e_text3.view();
}
inline bool is_new(const a_e_rec& in) {
    return (in.e_value4 & 1) != 0;
}
inline int error_status(const a_e_rec& in) { // 0: it came whole
    return in.e_value5;
}

inline std::int32_t created_at(const a_p_rec& desk) {
    return desk.p_value1;
}
inline int page_count(const a_p_rec& desk) {
    return desk.p_value2;
}
inline std::string_view title(const a_p_rec& desk) {
    return desk.p_text.view();
}
inline bool is_public(const a_p_rec& desk) {
    return desk.p_flag;
}
inline bool is_new(const a_p_rec& desk) {
    return (desk.p_value3 & 1) != 0;
}

enum send_status : std::int32_t {
    send_waiting = 1,   // for its time or for the night tariff
    send_spooled = 2,   // handed over; nothing can be changed any more
    send_cancelled = 3, // can be changed, and started anew
};

// forwardDoc's two target names: the first is a user, the second a user group. One of them is
// empty.
struct forward_target {
    const char* user;
    const char* group;
};

// Printers: a place and a model, and whether it prints.
inline bool is_stopped(const a_printer_rec& printer) {
    return printer.pr_val1 != 0;
}
inline std::string_view place(const a_printer_rec& printer) {
    return printer.pr_text1.view();
}
inline std::string_view model(const a_printer_rec& printer) {
    return printer.pr_text2.view();
}

// Scanners. The lists' selector is 0 for all, else the HWF bits that a scanner must have. scanDoc's
// value is HWF bits as well.
constexpr std::int32_t any_scanner = 0;
inline std::string_view place(const a_scanner_rec& scanner) {
    return scanner.sc_text1.view();
}
inline std::string_view model(const a_scanner_rec& scanner) {
    return scanner.sc_text2.view();
}
inline std::int32_t features(const a_scanner_rec& scanner) { // HWF bits
    return scanner.sc_val1;
}
inline bool is_busy(const a_scanner_rec& scanner) {
    return scanner.sc_val2 != 0;
}

// Bulletin board: when an entry was put up.
inline std::int32_t posted_at(const a_board_entry& entry) {
    return entry.value;
}

// Phone books: an external one is asked with the parameters that its t_labels name. A row of what
// it found is "name;number;place".
inline bool is_external(const o_tebu& book) {
    return book.t_kind == 1;
}
enum fetch_state : std::int32_t {
    fetch_finished = 0, // and forgotten by the server
    fetch_running = 1,
    fetch_unknown = 2,
};

} // namespace zerdix::app

#endif
