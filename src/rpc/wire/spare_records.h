// SPDX-License-Identifier: MIT
// Records of procedures that the library has no operation for. They complete the protocol; a
// number in a name is the procedure's, and what the fields mean isn't known.
#ifndef ZERDIX_WIRE_SPARE_RECORDS_H
#define ZERDIX_WIRE_SPARE_RECORDS_H

#include <zerdix/records.h>

#include "rpc/wire/document_records.h"

namespace zerdix {

// A byte field with an upper bound of its own.
template <std::uint32_t N>
struct bounded_bytes : bytes {};

} // namespace zerdix

struct a_dir_rec {
    zerdix::str10 text1;
    zerdix::str30 text2;
    zerdix::str20 text3;
    zerdix::str30 text4;
    zerdix::boolean flag;
    std::int16_t value;
};

struct a_dir_node {
    a_dir_node* next;
    a_dir_rec record;
};

struct a_dir_list_o {
    std::int32_t count;
    a_dir_node* first;
};

struct a_tag_rec {
    zerdix::str80 text;
    zerdix::str10 tagid;
    std::int32_t value;
};

struct a_tag_node {
    a_tag_node* next;
    a_tag_rec record;
};

struct a_tag_list_i {
    zerdix::str80 text;
    std::int32_t value;
};

struct a_tag_listb_i {
    zerdix::str10 tagid;
    std::int32_t value;
};

struct a_tag_list_o {
    std::int32_t count;
    a_tag_node* first;
};

struct a_proc39_o {
    std::int32_t value1;
    std::int32_t value2;
    a_log_line* first;
};

struct a_proc56_o {
    std::int16_t value1;
    std::int16_t value2;
    std::int32_t value3;
    zerdix::boolean flag1;
    zerdix::boolean flag2;
    zerdix::boolean flag3;
    zerdix::boolean flag4;
    std::int16_t value4;
    std::int16_t value5;
    std::int16_t value6;
    std::int16_t value7;
    std::int16_t value8;
};

struct a_proc71_i {
    zerdix::str10 text1;
    zerdix::str20 text2;
    std::int32_t value1;
    std::int32_t value2;
};

struct a_proc73_i {
    zerdix::str80 text;
    zerdix::bytes data;
};

struct a_proc76_i {
    zerdix::str10 text;
    std::int16_t value1;
    std::int32_t value2;
    zerdix::boolean flag;
};

struct a_proc76_o {
    zerdix::boolean flag1;
    zerdix::boolean flag2;
};

struct a_proc91_i {
    zerdix::str35 text1;
    zerdix::str10 text2;
    zerdix::str10 text3;
    std::int16_t value;
};

struct a_proc92_i {
    zerdix::str10 text1;
    zerdix::str35 text2;
    zerdix::str10 text3;
};

struct a_proc1000_node {
    a_proc1000_node* next;
    zerdix::str20 text;
};

struct a_proc1001_i {
    zerdix::bounded_bytes<80> data;
};

struct a_proc1004_i {
    std::int32_t value1;
    std::int32_t value2;
    std::int32_t value3;
    std::int16_t value4;
    std::int16_t value5;
    std::int16_t value6;
    std::int16_t value7;
    zerdix::str20 text;
};

#endif
