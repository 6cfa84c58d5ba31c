// SPDX-License-Identifier: MIT
// The records that callers of the library see: what the server keeps of documents, users, phone
// books and groups. Members stand in the order in which they cross the wire, and each record is a
// plain aggregate: `a_s_rec record{};` gives one that is zero throughout.
//
// A "long" of the protocol is std::int32_t, a "short" std::int16_t, a "bool" zerdix::boolean.
// Fields named aux, value or text with a number are the server's own: the library carries them
// between server and caller and reads none of them.
#ifndef ZERDIX_RECORDS_H
#define ZERDIX_RECORDS_H

#include <array>
#include <cstdint>

#include <zerdix/text.h>

// The client handle of the ONC RPC library. Opaque to callers.
struct __rpc_client; // NOLINT: the tag is the ONC RPC library's
using client = struct __rpc_client;

// The pools of documents that each user has.
enum topftype : std::int16_t {
    TOPF_S = 0, // outgoing
    TOPF_E = 1, // incoming
    TOPF_P = 2, // desk
};

// Which documents of a pool a list shows. The values are agreed between caller and server.
using selectiontype = std::int16_t;

enum nettypetype : std::int16_t {
    NETTYPE_FAX = 1,
    NETTYPE_TELEX = 2,
};

// A page or a signature in memory: `size` bytes at `data`, which may be null when size is 0. What
// the bytes of a page mean stands in zerdix/journal.h.
struct page_dat {
    std::uint32_t size;
    unsigned char* data;
};

// One source of JOURNAL::combineDocs: the first `pages` pages of a document.
struct fax_info {
    topftype pool;
    std::int32_t faxid;
    std::uint16_t pages;
};

// An outgoing document, and the settings of a send job. 440 bytes on the wire. The fields that the
// server fills are zero in a record that the client sends.
struct a_s_rec {
    std::int32_t faxid;    // document id
    zerdix::str10 userid;  // owner
    std::int16_t priority; // 0 (the lowest) to 32767; a user's 0 to 100 times 327.67
    std::int32_t status;   // from the server
    std::int16_t pages;    // number of pages
    zerdix::str30 comment; // title
    std::int32_t s_aux1;
    std::int32_t sendtime;       // seconds since 1970-01-01 UTC, 0: at once
    zerdix::boolean nighttariff; // wait for the night tariff
    std::int32_t s_aux2;
    std::int16_t s_aux3;
    std::int16_t s_aux4;
    std::int32_t s_aux5;
    std::int16_t errorstatus; // from the server
    std::int16_t maxretries;  // retries allowed
    std::int16_t retries;     // retries made, from the server
    zerdix::str20 tsi;        // station identification of the receiver, from the server
    zerdix::str30 phone;      // a number, or "BOOK:ENTRY"
    std::int16_t nettype;     // a nettypetype
    std::int32_t resolution;  // 0 as it is, 1 fine, 2 normal
};

// An incoming document.
struct a_e_rec {
    std::int32_t faxid;   // document id
    zerdix::str10 userid; // owner
    std::int32_t e_value1;
    std::int16_t e_value2;
    std::int16_t e_value3;
    zerdix::str30 e_text1;
    zerdix::str20 e_text2;
    std::int32_t e_value4;
    std::int16_t e_value5;
    zerdix::str10 e_text3;
    zerdix::str30 e_text4;
};

// A desk document.
struct a_p_rec {
    std::int32_t faxid;   // document id
    zerdix::str10 userid; // owner
    zerdix::boolean p_flag;
    std::int32_t p_value1;
    std::int16_t p_value2;
    zerdix::str30 p_text;
    std::int32_t p_value3;
};

// The pages of a document. Entry 0 of the masks is page 1; bit n of a mask says that the page
// exists in picture type n.
struct a_get_inf_o {
    std::int32_t pagecount;
    std::array<std::int32_t, 1000> pagemasks;
};

// A phone book.
struct o_tebu {
    zerdix::str10 tbookid;
    zerdix::str30 comment;
    zerdix::str35 alphaid; // Alpha server of the book
    zerdix::str10 owner;
    zerdix::str10 group;     // user group
    zerdix::opaque<3> perms; // rights of the owner, the group, all others
    std::int16_t t_kind;
    std::array<zerdix::str30, 10> t_labels;
    zerdix::str80 t_text1;
    zerdix::str80 t_text2;
};

// An entry of a phone book.
struct o_tebul {
    zerdix::str10 tbookid;
    zerdix::str10 teleid; // unique in its book
    zerdix::str30 comment;
    zerdix::str20 tsi;      // station identification of the recipient
    zerdix::str30 phone;    // fax or telex number
    zerdix::boolean intern; // in-house
    std::int16_t nettype;   // a nettypetype
};

// A recipient group.
struct o_tgroup {
    zerdix::str10 groupid;
    zerdix::str30 comment;
    zerdix::str35 alphaid; // Alpha server of the group
    zerdix::str10 owner;
    zerdix::str10 group;     // user group
    zerdix::opaque<3> perms; // rights of the owner, the group, all others
};

// A member of a recipient group: a reference to a phone book entry.
struct o_tgroupl {
    zerdix::str10 groupid;
    zerdix::str10 tbookid;
    zerdix::str10 teleid;
};

// A user's defaults.
struct a_user_rec {
    zerdix::str10 userid;
    zerdix::str10 defprinter;
    zerdix::str10 defscanner;
    std::int16_t hwfeatures;                 // HWF bits
    std::array<std::int32_t, 10> papertrays; // per paper source a pool document, 0: none
    std::int16_t priority;                   // of the user's send jobs, 0 (the lowest) to 100
    std::int32_t actions;                    // AT bits
    std::int32_t aux1;
    std::int32_t aux2;
    std::int32_t aux3;
    zerdix::str20 auxtext1;
    zerdix::str80 auxtext2;
    zerdix::str20 auxtext3;
};

// A user's identity on the Omega side.
struct o_user_rec {
    zerdix::str35 alphaid; // Alpha server on which the user lives
    zerdix::str10 userid;
    zerdix::str30 comment;
    zerdix::str35 repl_alphaid;
    zerdix::str10 repl_userid;
    zerdix::boolean repl_active;
    zerdix::str20 barcode; // digits, or empty
    std::int16_t aux;
};

// A user group.
struct a_group_rec {
    zerdix::str10 groupid;
    zerdix::str30 comment;
};

struct a_printer_rec {
    zerdix::str10 printerid;
    zerdix::str30 comment;
    std::int16_t pr_val1;
    zerdix::str35 pr_text1;
    zerdix::str80 pr_text2;
    std::int16_t pr_val2;
    std::int16_t pr_val3;
};

struct a_scanner_rec {
    zerdix::str10 scannerid;
    zerdix::str35 sc_text1;
    zerdix::str35 sc_text2;
    zerdix::str10 sc_id1;
    std::int16_t sc_val1;
    zerdix::str10 sc_id2;
    zerdix::str20 sc_text3;
    std::int32_t sc_val2;
    zerdix::str10 sc_id3;
    std::int32_t sc_val3;
    std::int32_t sc_val4;
    zerdix::str30 sc_text4;
    zerdix::str35 sc_text5;
    zerdix::str10 sc_id4;
    std::int16_t sc_val5;
    zerdix::str30 sc_text6;
    std::int16_t sc_val6;
    zerdix::str80 sc_text7;
};

// A request for the bulletin board: what ZERDIX keeps between two calls of getBoardEntries.
struct a_get_board_i {
    std::int16_t boardkind;
    std::int32_t stamp;     // mark of the last answer, 0 asks for all
    zerdix::str30 language; // of the session
};

// An entry of the bulletin board; `next` is null in the last one.
struct a_board_entry {
    a_board_entry* next;
    zerdix::str10 boardid;
    zerdix::str80 text;
    std::int32_t value;
};

// A line of a document's log or a row of an external query: at most 100 characters and a NUL, when
// it comes from a sound server. `next` is null in the last one.
struct a_log_line {
    a_log_line* next;
    zerdix::opaque<101> line;
};

// What an external query has found. The state belongs to the server's query protocol.
struct a_fetch_result_o {
    std::int32_t fetchstate;
    a_log_line* first; // null: no rows
};

#endif
