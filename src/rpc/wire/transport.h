// SPDX-License-Identifier: MIT
// The client's end of a connection: a handle that the RPC library makes, and whose calls are
// carried out here.
//
// The time given to clnt_call holds for the whole call, from the first byte sent to the last one
// read; the RPC library's own handle applies it to each wait anew. Replies to other calls are
// passed over until the time is up. A call that fails keeps the RPC library's status, with errno
// as re_errno for RPC_CANTSEND, RPC_CANTRECV and RPC_TIMEDOUT (ETIMEDOUT); no SIGPIPE is raised.
//
// After a reply that couldn't be taken, and after a time-out between two replies, the connection
// goes on: what is left of a reply, or comes too late, is passed over. After any other failure, a
// time-out within a reply among them, nobody knows where the next reply begins, so the connection
// is shut down, and each further call on it fails at once with RPC_CANTSEND.
//
// All macros of the RPC library work on the handle. CLSET_TIMEOUT gives every call from then on a
// time of its own, whatever it asks for. The credentials are those of cl_auth, AUTH_NONE at first.
#ifndef ZERDIX_WIRE_TRANSPORT_H
#define ZERDIX_WIRE_TRANSPORT_H

#include <cstdint>
#include <netinet/in.h>
#include <rpc/rpc.h>

namespace zerdix::wire {

// Connects to a program of version ZERDIX_VERS; a port of 0 asks the host's port mapper. Null on
// failure, and then clnt_spcreateerror tells why. This is the RPC library's and takes its time:
// see docs/reliability.md.
CLIENT* connect(sockaddr_in address, std::uint32_t program);

} // namespace zerdix::wire

#endif
