// SPDX-License-Identifier: MIT
// The protocol's records of phone books, recipient groups and the external query, in wire order.
// Every argument begins with the Alpha server's name and the user.
#ifndef ZERDIX_WIRE_TELEBOOK_RECORDS_H
#define ZERDIX_WIRE_TELEBOOK_RECORDS_H

#include <zerdix/records.h>

#include "rpc/wire/document_records.h"

struct o_get_tbooks_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
};
using o_get_tgroups_i = o_get_tbooks_i;

struct o_get_tbook_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 tbookid;
};
using o_del_tbook_i = o_get_tbook_i;

struct o_put_tbook_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    o_tebu record;
};

struct o_get_tbookl_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 tbookid;
    std::int32_t netmask; // bit n: entries of net type n
    zerdix::str10 start;  // key at which the block begins, empty for the first
    std::int32_t blocksize;
};

struct o_get_tbookentry_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 tbookid;
    zerdix::str10 teleid;
    zerdix::boolean flag;
};

struct o_put_tbookentry_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    o_tebul record;
};

struct o_del_tbookentry_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 tbookid;
    zerdix::str10 teleid;
};

struct o_get_tgroupsb_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 start;
    std::int32_t blocksize;
};
using o_get_tbooksb_i = o_get_tgroupsb_i;

struct o_get_tgroup_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 groupid;
};
using o_del_tgroup_i = o_get_tgroup_i;

struct o_put_tgroup_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    o_tgroup record;
};

struct o_get_tgroupl_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 groupid;
    zerdix::boolean flag;
};

struct o_get_tgrouplb_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 groupid;
    zerdix::boolean flag;
    zerdix::str10 starttbook; // the key of a member is its book and its entry together
    zerdix::str10 starttele;
    std::int32_t blocksize;
};

struct o_put_tgroupentry_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    o_tgroupl record;
};

struct o_del_tgroupentry_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 groupid;
    zerdix::str10 tbookid;
    zerdix::str10 teleid;
};

struct o_query_ext_i {
    zerdix::str35 alphaid;
    zerdix::str10 userid;
    zerdix::str10 tbookid;
    std::array<zerdix::str80, 10> params;
};

struct o_tebu_node {
    o_tebu_node* next;
    o_tebu book;
};

struct o_tebul_node {
    o_tebul_node* next;
    o_tebul entry;
};

struct o_tgroup_node {
    o_tgroup_node* next;
    o_tgroup tgroup;
};

struct o_tgroupl_node {
    o_tgroupl_node* next;
    o_tgroupl tmember;
};

struct o_get_tbooks_o {
    std::int32_t count;
    o_tebu_node* first;
};
using o_get_tbooksb_o = o_get_tbooks_o;

struct o_get_tbookl_o {
    std::int32_t count;
    o_tebul_node* first;
};

struct o_get_tgroups_o {
    std::int32_t count;
    o_tgroup_node* first;
};
using o_get_tgroupsb_o = o_get_tgroups_o;

struct o_get_tgroupl_o {
    std::int32_t count;
    o_tgroupl_node* first;
};
using o_get_tgrouplb_o = o_get_tgroupl_o;

#endif
