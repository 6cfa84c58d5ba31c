// SPDX-License-Identifier: MIT
// Making a document on the way to a receiver.
#ifndef ZERDIX_SENDING_MADE_DOCUMENT_H
#define ZERDIX_SENDING_MADE_DOCUMENT_H

#include <cstdint>

#include "rpc/call.h"
#include "sending/outcome.h"

namespace zerdix::sending {

// No document could be made.
constexpr std::int32_t no_document = 0;

// Calls `make`, an operation that gives a document's id, 0 when the server made none, and -1 for
// both a lost connection and a failed call. The document counts as left behind until it is gone.
// Gives no_document, and notes the failure, when there is none.
template <class F>
std::int32_t made_document(outcome& result, F&& make) {
    const rpc::failed_call_mark calls;
    const std::int32_t made = make();
    if (made != 0 && made != -1) {
        result.left_behind(made);
        return made;
    }
    const std::int32_t by_server = calls.any_failed() ? rpc::call_failed : rpc::no_client;
    result.failed(ZX_STEP_CREATE, made == 0 ? std::int32_t{rpc::refused} : by_server);
    return no_document;
}

} // namespace zerdix::sending

#endif
