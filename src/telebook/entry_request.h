// SPDX-License-Identifier: MIT
// The request for a block of a phone book's entries.
#ifndef ZERDIX_TELEBOOK_ENTRY_REQUEST_H
#define ZERDIX_TELEBOOK_ENTRY_REQUEST_H

#include "rpc/fields.h"
#include "rpc/wire/telebook_records.h"

namespace zerdix::telebook {

// `start` is a whole field, all 11 bytes of it: the server compares keys byte by byte, also behind
// a text's end.
inline o_get_tbookl_i entry_request(const char* tbookid, nettypetype nettype, const str10& start,
                                    std::int32_t blocksize) {
    const bool one_type = nettype == NETTYPE_FAX || nettype == NETTYPE_TELEX;
    const std::int32_t netmask = one_type ? 1 << nettype : 1 << NETTYPE_FAX | 1 << NETTYPE_TELEX;
    return {rpc::alpha_id(), rpc::user_id(), rpc::whole_field<10>(tbookid),
            netmask,         start,          blocksize};
}

} // namespace zerdix::telebook

#endif
