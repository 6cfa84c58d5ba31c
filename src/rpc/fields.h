// SPDX-License-Identifier: MIT
// Members of argument records, made of what callers hand in.
#ifndef ZERDIX_RPC_FIELDS_H
#define ZERDIX_RPC_FIELDS_H

#include <zerdix/text.h>
#include <zerdix/zerdix.h>

namespace zerdix::rpc {

inline const char* or_empty(const char* value) {
    return value != nullptr ? value : "";
}

// A text field, cut to its width; a null text counts as an empty one. No more than the width is
// read, so that a field without a NUL, as a peer may send it, can be handed in again.
template <std::size_t N>
text<N> field(const char* value) {
    text<N> filled;
    filled.assign({or_empty(value), ::strnlen(or_empty(value), N)});
    return filled;
}

// The same for fields that may be full: N + 1 characters, and then no NUL.
template <std::size_t N>
text<N> whole_field(const char* value) {
    text<N> filled;
    filled.assign_field({or_empty(value), ::strnlen(or_empty(value), N + 1)});
    return filled;
}

inline boolean truth(int flag) {
    return {flag != 0 ? 1 : 0};
}

// The session's user and server.
inline str10 user_id() {
    return field<10>(ZERDIX::clsGetUserId());
}
inline str35 alpha_id() {
    return field<35>(ZERDIX::clsGetAlphaServer());
}

} // namespace zerdix::rpc

#endif
