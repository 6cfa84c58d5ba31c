// SPDX-License-Identifier: MIT
// The protocol's records of the document pools, in wire order: arguments as the client sends them,
// results as the server answers. The document records themselves are public (zerdix/records.h).
#ifndef ZERDIX_WIRE_DOCUMENT_RECORDS_H
#define ZERDIX_WIRE_DOCUMENT_RECORDS_H

#include <zerdix/records.h>

// The nodes of the three document lists name the record first and the pointer last, so that the
// wire holds each record and then the bool of the next one. All other nodes are the other way
// round.
struct a_e_node {
    a_e_rec record;
    a_e_node* next;
};

struct a_p_node {
    a_p_rec record;
    a_p_node* next;
};

struct a_s_node {
    a_s_rec record;
    a_s_node* next;
};

// The list procedures name the session by its login id, all others name the user.
struct a_get_elist_i {
    std::int32_t loginid;
    std::int16_t selection;
};
using a_get_plist_i = a_get_elist_i;
using a_get_slist_i = a_get_elist_i;

struct a_get_elistb_i {
    std::int32_t loginid;
    std::int16_t selection;
    std::int32_t firstvalue;
    std::int32_t secondvalue;
};
using a_get_plistb_i = a_get_elistb_i;
using a_get_slistb_i = a_get_elistb_i;

struct a_get_e_i {
    zerdix::str10 userid;
    std::int32_t faxid;
};
using a_get_p_i = a_get_e_i;
using a_get_s_i = a_get_e_i;
using a_cancel_job_i = a_get_e_i;
using a_restart_job_i = a_get_e_i;

struct a_is_bif_i {
    zerdix::str10 userid;
    topftype pool;
};

struct a_get_inf_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
};
using a_get_log_i = a_get_inf_i;

struct a_copy_doc_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t sourceid;
    std::int32_t targetid;
};

struct a_del_doc_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    zerdix::boolean del_flag; // always 1 from this client
};

struct a_del_page_i {
    zerdix::str10 userid;
    std::int32_t faxid;
    std::int16_t page;
};
using a_insert_page_i = a_del_page_i;

struct a_copy_page_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t sourceid;
    std::int16_t sourcepage;
    std::int32_t targetid;
    std::int16_t targetpage;
};

struct a_put_comment_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    zerdix::str30 comment;
};

struct a_set_public_i {
    zerdix::str10 userid;
    std::int32_t faxid;
    zerdix::boolean ispublic;
};

struct a_set_bif_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    zerdix::boolean flag;
};

struct a_send_doc_i {
    zerdix::str10 userid;
    std::int32_t faxid;
    a_s_rec record;
};

struct a_chg_s_rec_i {
    std::int32_t faxid;
    zerdix::str10 userid;
    std::int16_t priority;
    zerdix::str30 comment;
    std::int32_t sendtime;
    zerdix::boolean nighttariff;
    std::int16_t maxretries;
    std::int32_t resolution;
};

struct a_forward_doc_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    zerdix::str35 targetalpha;
    zerdix::str10 targetone;
    zerdix::str10 targettwo;
    topftype targetpool;
};

struct a_print_doc_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    std::int16_t frompage;
    std::int16_t topage;
    zerdix::str10 printer;
    std::int16_t copies;
};

struct a_scan_doc_i {
    zerdix::str10 scanner;
    zerdix::str10 userid;
    std::int32_t scanvalue;
    zerdix::str30 comment;
};

struct a_put_log_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    zerdix::bytes data; // the line with its NUL
};

struct a_get_logl_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    std::int32_t position; // place in the log
    std::int32_t lines;    // most lines wanted
    zerdix::str30 language;
};

struct a_get_pageb_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    std::int16_t page;
    std::int16_t picturetype;
    std::int32_t offset;
    std::int32_t length; // 0 asks for the page's size alone
};

struct a_put_pageb_i {
    zerdix::str10 userid;
    std::int32_t faxid;
    std::int16_t page;
    std::int16_t picturetype;
    std::int32_t offset;
    std::int32_t length;
    zerdix::bytes data;
};

struct a_put_page_i {
    zerdix::str10 userid;
    std::int32_t faxid;
    std::int16_t page;
    std::int16_t picturetype;
    zerdix::bytes data;
};

struct a_get_page_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    std::int16_t page;
    std::int16_t picturetype;
};

struct a_get_logb_i {
    zerdix::str10 userid;
    topftype pool;
    std::int32_t faxid;
    std::int32_t offset;
    std::int32_t length;
};

struct a_get_elist_o {
    std::int32_t count;
    a_e_node* first;
};

struct a_get_plist_o {
    std::int32_t count;
    a_p_node* first;
};

struct a_get_slist_o {
    std::int32_t count;
    a_s_node* first;
};

struct a_get_pageb_o {
    zerdix::boolean page_flag;
    std::int32_t size; // of the whole page when the request's length was 0, else of this block
    zerdix::bytes data;
};

struct a_get_logl_o {
    zerdix::boolean more;
    std::int32_t position;
    a_log_line* first;
};

struct a_get_logb_o {
    zerdix::boolean log_flag;
    std::int32_t size;
    zerdix::bytes data;
};

#endif
