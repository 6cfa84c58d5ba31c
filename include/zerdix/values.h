// SPDX-License-Identifier: MIT
// What the values in records and results mean, for callers that show them: an inbox, a list of send
// jobs, a phone book.
//
// Each value is marked. "Protocol": every Alpha server means the same by it. "alphad": the library
// carries the field between server and caller and reads none of it; what is told here is how alphad
// fills it in, and another server may do otherwise.
//
// Times are seconds since 1970-01-01 00:00:00 UTC. Texts are Windows-1252, and good as long as the
// record that they are read from.
#ifndef ZERDIX_VALUES_H
#define ZERDIX_VALUES_H

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <zerdix/records.h>

namespace zerdix {

// Protocol: the ONC RPC program. A server has the program number plus the value of the environment
// variable ZERDIXRPCOFFSET.
constexpr std::uint32_t ZERDIX_PROG = 0xF452BF;
constexpr std::uint32_t ZERDIX_VERS = 1;
inline std::uint32_t with_program_offset(std::uint32_t program) {
    const char* offset = std::getenv("ZERDIXRPCOFFSET");
    return program + static_cast<std::uint32_t>(offset != nullptr ? std::atol(offset) : 0);
}

// Protocol: names that every server keeps for itself.
constexpr const char* print_user = ".winpr";    // owns documents that exist only to be printed
constexpr const char* administrator = "FAXADM"; // reaches everybody's documents, may do everything
constexpr const char* telex_printer = ".zerdixpr"; // what is printed on it goes out as a telex

// Protocol: results of the long operations. Single operations add others, as their headers tell.
enum call_result : std::int32_t {
    call_succeeded = 0,
    call_refused = 4, // or not found
    call_failed = 8,  // the server may have carried it out all the same
    call_without_connection = 12,
};

// Protocol: the status of a login and of a change of password.
enum login_answer : std::int32_t {
    login_accepted = 0,
    login_omega_not_reached = 3,
    login_present_already = 4,
    login_unknown_user = 6,
    login_wrong_password = 8,
};

// What ZERDIX::login and chgPassword give beside the results of the long operations.
enum login_result : std::int32_t {
    result_present_already = 4,
    result_unknown_user = 6,
    result_wrong_password = 9,
    result_not_accepted = 10, // the versions don't fit, or a reason of the server's own
    result_omega_not_reached = 11,
};

// Protocol: the HWF bits, what a device or a user's workstation can do.
enum hardware_feature : std::int16_t {
    hwf_normal = 0x001, // resolution
    hwf_fine = 0x002,   // resolution
    hwf_res1 = 0x004,   // without a meaning here, as the next one
    hwf_res2 = 0x008,
    hwf_scan = 0x010,
    hwf_halftone = 0x020,
    hwf_print = 0x040,
    hwf_receive = 0x080,
    hwf_send = 0x100,
    hwf_telex = 0x200,
};

// Protocol: the AT bits, what happens at an event.
enum user_action : std::int16_t {
    at_print_send = 0x001,
    at_print_error = 0x002,
    at_print_receive = 0x004,
    at_mail_send = 0x008,
    at_mail_error = 0x010,
    at_mail_receive = 0x020,
    at_lamp_send = 0x040,
    at_lamp_error = 0x080,
    at_lamp_receive = 0x100,
    at_voice_send = 0x200,
    at_voice_error = 0x400,
    at_voice_receive = 0x800,
};

// Protocol: the forms in which a page can exist. Bit n of a page's mask (a_get_inf_o) stands for
// type n.
enum picture_type : std::int16_t {
    picture_page = 0,        // a fax page, compressed (zerdix/page.h)
    picture_second_page = 1, // another one, compressed likewise
    picture_text = 4,        // text
    picture_telex = 6,       // a telex: its control record, then its text
    picture_cover_text = 10, // the commands of a cover template, beside its form in type 0
};

constexpr bool has_picture(std::int32_t mask, picture_type type) {
    return (mask >> type & 1) != 0;
}
constexpr bool has_fax_data(std::int32_t mask) {
    return has_picture(mask, picture_page) || has_picture(mask, picture_second_page);
}
constexpr bool has_telex_data(std::int32_t mask) {
    return has_picture(mask, picture_text) || has_picture(mask, picture_telex);
}

// Protocol: the field `resolution` of a_s_rec.
enum send_resolution : std::int32_t {
    resolution_as_is = 0,
    resolution_fine = 1,
    resolution_normal = 2,
};

// Protocol: the two scales of priority. A user's record, and whoever asks a person, has 0 to 100;
// a send record and chgSRec have 0 to 32767.
constexpr int highest_user_priority = 100;
constexpr int highest_send_priority = 32767;

// Rounded to the nearest.
constexpr std::int16_t send_priority(int priority) {
    return static_cast<std::int16_t>((priority * highest_send_priority + 50) /
                                     highest_user_priority);
}
constexpr int user_priority(std::int16_t priority) {
    return (priority * highest_user_priority + highest_send_priority / 2) / highest_send_priority;
}

// Protocol: how SendStoredDocuments ended; -1 when it couldn't run.
constexpr std::int32_t send_dialog_accepted = 2301;
constexpr std::int32_t send_dialog_cancelled = 2302;

// Protocol: the bits of each byte of `perms`, in the order owner, group, everybody.
enum book_right : unsigned char {
    right_read = 1,    // see the record and what is in it
    right_use = 2,     // send to its entries
    right_add = 4,     // put entries or members in
    right_change = 8,  // change entries, and the record
    right_remove = 16, // take entries or members out, and the record away
    right_hold = 32,   // change owner, group and rights
    all_rights = 63,
};

// alphad: which documents a list shows. A selection that a pool doesn't know shows all.
enum list_selection : selectiontype {
    select_all = 0,
    select_new = 1,    // not looked at yet: incoming documents and the desk's
    select_public = 2, // public desk documents, of all users
    select_errors = 3, // outgoing documents with an error
};

// alphad: the two values of a document list's block form. The first is the id at which the block
// begins, itself included, and this for the first block; the second is how many documents there may
// be. Ids ascend.
constexpr std::int32_t first_block = 0;

// alphad: an incoming document.
inline std::int32_t received_at(const a_e_rec& in) {
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
inline std::string_view forwarded_by(const a_e_rec& in) { // a user, or empty
    return in.e_text3.view();
}
inline bool is_new(const a_e_rec& in) {
    return (in.e_value4 & 1) != 0;
}
inline int error_status(const a_e_rec& in) { // 0: it came whole
    return in.e_value5;
}
inline void set_received_at(a_e_rec& in, std::int32_t time) {
    in.e_value1 = time;
}
inline void set_page_count(a_e_rec& in, std::int16_t pages) {
    in.e_value2 = pages;
}
inline void set_net_type(a_e_rec& in, std::int16_t net) {
    in.e_value3 = net;
}
inline void set_title(a_e_rec& in, std::string_view title) {
    in.e_text1.assign(title);
}
inline void set_sender_station(a_e_rec& in, std::string_view station) {
    in.e_text2.assign(station);
}
inline void set_sender_number(a_e_rec& in, std::string_view number) {
    in.e_text4.assign(number);
}
inline void set_forwarded_by(a_e_rec& in, std::string_view user) {
    in.e_text3.assign(user);
}
inline void set_new(a_e_rec& in, bool is_new) {
    in.e_value4 = is_new ? 1 : 0;
}
inline void set_error_status(a_e_rec& in, std::int16_t error) {
    in.e_value5 = error;
}

// alphad: a desk document.
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
inline void set_created_at(a_p_rec& desk, std::int32_t time) {
    desk.p_value1 = time;
}
inline void set_page_count(a_p_rec& desk, std::int16_t pages) {
    desk.p_value2 = pages;
}
inline void set_title(a_p_rec& desk, std::string_view title) {
    desk.p_text.assign(title);
}
inline void set_public(a_p_rec& desk, bool is_public) {
    desk.p_flag = is_public;
}
inline void set_new(a_p_rec& desk, bool is_new) {
    desk.p_value3 = is_new ? 1 : 0;
}

// alphad: `status` of a_s_rec.
enum send_status : std::int32_t {
    send_waiting = 1,   // for its time or for the night tariff
    send_spooled = 2,   // handed over; nothing can be changed any more
    send_cancelled = 3, // can be changed, and started anew
};

// alphad: `errorstatus` of a_s_rec.
enum send_error : std::int16_t {
    send_error_none = 0,
    send_error_other_net = 1, // the receiver is on the other net
};

// alphad: a printer has a place and a model, and may be stopped.
inline bool is_stopped(const a_printer_rec& printer) {
    return printer.pr_val1 != 0;
}
inline std::string_view place(const a_printer_rec& printer) {
    return printer.pr_text1.view();
}
inline std::string_view model(const a_printer_rec& printer) {
    return printer.pr_text2.view();
}
inline void set_stopped(a_printer_rec& printer, bool is_stopped) {
    printer.pr_val1 = is_stopped ? 1 : 0;
}
inline void set_place(a_printer_rec& printer, std::string_view place) {
    printer.pr_text1.assign(place);
}
inline void set_model(a_printer_rec& printer, std::string_view model) {
    printer.pr_text2.assign(model);
}

// alphad: the scanner lists' selector is this for all, else the HWF bits that a scanner must have;
// the value of scanDoc is HWF bits as well.
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
inline void set_place(a_scanner_rec& scanner, std::string_view place) {
    scanner.sc_text1.assign(place);
}
inline void set_model(a_scanner_rec& scanner, std::string_view model) {
    scanner.sc_text2.assign(model);
}
inline void set_features(a_scanner_rec& scanner, std::int16_t features) { // HWF bits
    scanner.sc_val1 = features;
}
inline void set_busy(a_scanner_rec& scanner, bool is_busy) {
    scanner.sc_val2 = is_busy ? 1 : 0;
}

// alphad: when an entry of the bulletin board was put up.
inline std::int32_t posted_at(const a_board_entry& entry) {
    return entry.value;
}
inline void set_posted_at(a_board_entry& entry, std::int32_t time) {
    entry.value = time;
}

// alphad: an external phone book is asked with the parameters that its t_labels name. A row of what
// it found is "name;number;place".
inline bool is_external(const o_tebu& book) {
    return book.t_kind == 1;
}
inline void set_external(o_tebu& book) {
    book.t_kind = 1;
}
enum fetch_state : std::int32_t {
    fetch_finished = 0, // and forgotten by the server
    fetch_running = 1,
    fetch_unknown = 2,
};

} // namespace zerdix

#endif
