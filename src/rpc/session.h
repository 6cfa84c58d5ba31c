// The state of the connection, process-wide: what ZERDIX, JOURNAL and TELEBOOK share.
//
// It comes up with the library and stays until the library goes. `handle` is null while the
// connection is closed: GetClientAddr opens it, CleanupHostConnection and a call that timed out
// close it. User, server and language survive the connection and every object.
#ifndef ZERDIX_RPC_SESSION_H
#define ZERDIX_RPC_SESSION_H

#include <zerdix/records.h>

namespace zerdix::rpc {

struct session_state {
    std::int32_t login_id = 0; // 0: not logged on
    client* handle = nullptr;
    char language = 'G';
    str30 language_string{"german_germany"};
    str10 user_id{};
    str35 alpha_server{};
    std::int32_t journal_block_size = 0; // 0: not asked for yet
    std::int32_t telebook_block_size = 0;
};

session_state& session();

} // namespace zerdix::rpc

#endif
