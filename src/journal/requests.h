// What the argument records of the journal have in common.
#ifndef ZERDIX_JOURNAL_REQUESTS_H
#define ZERDIX_JOURNAL_REQUESTS_H

#include <zerdix/zerdix.h>

#include "rpc/call.h"

namespace zerdix::journal {

// The owner of documents that exist only to be printed.
constexpr const char* print_user = ".winpr";

template <std::size_t N>
text<N> field(const char* value) {
    text<N> filled;
    filled.assign(value != nullptr ? value : "");
    return filled;
}

// The session's user, as a field of an argument record.
inline str10 user_id() {
    return field<10>(ZERDIX::clsGetUserId());
}

} // namespace zerdix::journal

#endif
