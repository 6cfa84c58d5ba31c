// SPDX-License-Identifier: MIT
// The protocol's records of the session: configuration, time zone, login, users, directories,
// signature and bulletin board, in wire order.
#ifndef ZERDIX_WIRE_SESSION_RECORDS_H
#define ZERDIX_WIRE_SESSION_RECORDS_H

#include <zerdix/records.h>

struct a_get_config_i {
    zerdix::str10 cfgid;
    std::int16_t cfgindex; // always 1
};

struct a_get_tz_o {
    std::int32_t tzvalue;
    std::int32_t tzflag;
    std::array<zerdix::str80, 3> tztexts; // the third is the time zone as TZ takes it
};

struct a_get_compat_o {
    std::int32_t compat_low;
    std::int32_t compat_high;
};

struct a_get_login_i {
    zerdix::str10 userid;
    zerdix::str20 password; // plain text
};

struct a_get_login_o {
    std::int32_t loginid;
    std::int32_t status;
};

struct a_logout_i {
    zerdix::str10 userid;
    std::int32_t loginid;
};

struct o_get_user_i {
    zerdix::str35 alphaid; // empty: the connected server
    zerdix::str10 userid;
};

struct a_chg_pw_i {
    zerdix::str10 userid;
    zerdix::boolean pwflag; // always 0 from this client
    zerdix::str20 oldpassword;
    zerdix::str20 newpassword;
};

struct a_check_cycle_i {
    zerdix::str10 userid;
    zerdix::str35 repl_alphaid;
    zerdix::str10 repl_userid;
};

struct o_user_node {
    o_user_node* next;
    o_user_rec user;
};

struct a_get_users_o {
    std::int32_t count;
    o_user_node* first;
};
using a_get_usersb_o = a_get_users_o;

struct a_get_usersb_i {
    zerdix::str10 userid; // user at which the block begins, empty for the first
    zerdix::str35 alphaid;
    std::int32_t number;
};

struct a_group_node {
    a_group_node* next;
    a_group_rec group;
};

struct a_get_groups_o {
    std::int32_t count;
    a_group_node* first;
};

struct a_member_rec {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str30 comment;
};

struct a_member_node {
    a_member_node* next;
    a_member_rec member;
};

struct a_get_members_o {
    std::int32_t count;
    a_member_node* first;
};

struct a_printer_node {
    a_printer_node* next;
    a_printer_rec printer;
};

struct a_get_printers_o {
    std::int32_t count;
    a_printer_node* first;
};
using a_get_printersb_o = a_get_printers_o;

struct a_get_printersb_i {
    zerdix::str10 printerid; // printer at which the block begins, empty for the first
    std::int32_t number;
};

struct a_scanner_node {
    a_scanner_node* next;
    a_scanner_rec scanner;
};

struct a_get_scanners_o {
    std::int32_t count;
    a_scanner_node* first;
};
using a_get_freescanners_o = a_get_scanners_o;

struct a_get_board_o {
    a_board_entry* first;
    std::int32_t stamp;
};
using a_get_board0_o = a_get_board_o;

struct a_put_board_i {
    std::int16_t boardkind;
    zerdix::str10 boardid;
    zerdix::str80 text;
};

struct a_get_sigb_i {
    zerdix::str10 userid;
    std::int32_t offset;
    std::int32_t length; // 0 asks for the size alone
};

struct a_get_sigb_o {
    zerdix::boolean sig_flag;
    std::int32_t size;
    zerdix::bytes data;
};

struct a_put_sigb_i {
    zerdix::str10 userid;
    std::int32_t offset;
    std::int32_t length;
    zerdix::bytes data;
};

struct a_put_sig_i {
    zerdix::str10 userid;
    zerdix::bytes data;
};

#endif
