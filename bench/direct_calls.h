// SPDX-License-Identifier: MIT
// Calls made directly through the RPC library, with argument and result as opaque bytes: the peer
// of the library's own calls.
#ifndef ZERDIX_BENCH_DIRECT_CALLS_H
#define ZERDIX_BENCH_DIRECT_CALLS_H

#include <arpa/inet.h>
#include <cstdarg>
#include <vector>

#include <zerdix/call_time.h>

#include "bench/measure.h"
#include "rpc/wire/stub.h"

namespace zerdix::bench {

using bytes_on_wire = std::vector<char>;

// What a record of at most `most` bytes is on the wire.
template <class Record>
bytes_on_wire encoded(Record record, std::size_t most = 64u << 10) {
    bytes_on_wire buffer(most);
    XDR stream;
    xdrmem_create(&stream, buffer.data(), static_cast<u_int>(buffer.size()), XDR_ENCODE);
    require(wire::filter(&stream, record), "encoding");
    buffer.resize(xdr_getpos(&stream));
    return buffer;
}

// A result whose list are these nodes, which are linked up in place; `most` bytes a record at most.
template <class Result, class Node>
bytes_on_wire list_of(std::vector<Node>& nodes, std::size_t most) {
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i)
        nodes[i].next = &nodes[i + 1];
    Result result{static_cast<std::int32_t>(nodes.size()), nodes.empty() ? nullptr : nodes.data()};
    return encoded(result, nodes.size() * (most + 4) + 64);
}

inline bool_t opaque_bytes(XDR* stream, ...) {
    std::va_list arguments;
    va_start(arguments, stream);
    auto* bytes = va_arg(arguments, bytes_on_wire*);
    va_end(arguments);
    return xdr_opaque(stream, bytes->data(), static_cast<u_int>(bytes->size()));
}

class direct_client {
  public:
    explicit direct_client(std::uint32_t program) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int socket = RPC_ANYSOCK;
        handle_ = clnttcp_create(&address, program, ZERDIX_VERS, &socket, 0, 0);
        require(handle_ != nullptr, "clnttcp_create");
    }
    ~direct_client() { clnt_destroy(handle_); }
    direct_client(const direct_client&) = delete;
    direct_client& operator=(const direct_client&) = delete;

    // The result takes as many bytes as it has.
    void call(std::uint32_t number, bytes_on_wire& argument, bytes_on_wire& result) {
        const clnt_stat status = clnt_call(handle_, number, &opaque_bytes, &argument, &opaque_bytes,
                                           &result, (timeval{call_seconds, 0}));
        require(status == RPC_SUCCESS, "clnt_call");
    }

  private:
    CLIENT* handle_;
};

} // namespace zerdix::bench

#endif
