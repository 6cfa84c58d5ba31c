// Members of argument records out of what callers hand in.
#ifndef ZERDIX_RPC_FIELDS_H
#define ZERDIX_RPC_FIELDS_H

#include <zerdix/text.h>
#include <zerdix/zerdix.h>

namespace zerdix::rpc {

// A text field, cut to its width; a null text counts as an empty one.
template <std::size_t N>
text<N> field(const char* value) {
    text<N> filled;
    filled.assign(value != nullptr ? value : "");
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
