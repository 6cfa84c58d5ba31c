// SPDX-License-Identifier: MIT
// The block sizes of lists, from the server's configuration.

#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/config_number.h"

using namespace zerdix;
using rpc::trace_lines;

namespace {

constexpr std::int32_t default_block_size = 30;
constexpr std::int32_t largest_block_size = 200;

struct block_size {
    std::int32_t& cached;
    const char* id;        // of the configuration value
    const char* operation; // with its class and parentheses
    const char* word;      // as the trace calls it
};

// The server's value: 0 where it has none; nothing when the call failed.
bool ask_server(const block_size& size, const rpc::by_session& caller, client* handle) {
    a_get_config_i request{};
    request.cfgid.assign(size.id);
    request.cfgindex = 1;
    const str80* value = rpc::call<rpc::proc::a_get_config_1>(caller, handle, request);
    if (value == nullptr)
        return false;
    size.cached = rpc::config_number(*value);
    trace_lines.info("%s: %s block size %ld", size.operation, size.word, size.cached);
    return true;
}

std::int32_t get_block_size(const block_size& size) {
    const rpc::by_session caller{size.operation};
    client* handle = caller.handle();
    if (handle == nullptr)
        return rpc::no_client;
    if (size.cached == 0 && !ask_server(size, caller, handle))
        return -1;
    if (size.cached == 0) {
        caller.exit("--> %s: No Value for Id: %s, default is %ld", size.operation, size.id,
                    default_block_size);
        return default_block_size;
    }
    if (size.cached > largest_block_size) {
        trace_lines.info("%s: %s block size %ld reduced to %ld", size.operation, size.word,
                         size.cached, largest_block_size);
        size.cached = largest_block_size;
    }
    caller.exit("--> %s: %s block size: %ld", size.operation, size.word, size.cached);
    return size.cached;
}

} // namespace

std::int32_t ZERDIX::clsGetJournalBlockSize() {
    return get_block_size({rpc::session().lJournalBlockSize, "JOURNALBLK",
                           "ZERDIX::clsGetJournalBlockSize()", "Journal"});
}

std::int32_t ZERDIX::clsGetTelebookBlockSize() {
    return get_block_size({rpc::session().lTelebookBlockSize, "PHONEBOOKB",
                           "ZERDIX::clsGetTelebookBlockSize()", "Telebook"});
}
