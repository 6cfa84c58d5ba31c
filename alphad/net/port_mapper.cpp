// SPDX-License-Identifier: MIT
#include "alphad/net/port_mapper.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <netconfig.h>
#include <optional>
#include <rpc/rpc.h>
#include <string>
#include <unistd.h>

#include "rpc/wire/filter.h"

namespace zerdix::alphad {

namespace {

// How long an entry's server may take to show that it lives.
constexpr timeval alive_time{3, 0};

struct free_transport {
    void operator()(netconfig* transport) const { freenetconfigent(transport); }
};
using transport_ptr = std::unique_ptr<netconfig, free_transport>;

transport_ptr tcp_transport() {
    transport_ptr transport{getnetconfigent("tcp")};
    if (!transport)
        throw registration_error("the RPC library knows no transport \"tcp\" (see /etc/netconfig)");
    return transport;
}

std::optional<sockaddr_in> socket_address(const netconfig* transport, const char* text) {
    netbuf* buffer = uaddr2taddr(transport, text);
    if (buffer == nullptr)
        return std::nullopt;
    sockaddr_in address{};
    const bool fits = buffer->len >= sizeof address;
    if (fits)
        std::memcpy(&address, buffer->buf, sizeof address);
    std::free(buffer->buf);
    std::free(buffer);
    return fits ? std::optional{address} : std::nullopt;
}

struct free_list {
    void operator()(rpcblist* list) const {
        xdr_free(reinterpret_cast<xdrproc_t>(&xdr_rpcblist_ptr), &list);
    }
};

// Where the port mapper says that the program is.
std::optional<sockaddr_in> present_entry(const netconfig* transport, std::uint32_t program,
                                         std::uint32_t version) {
    const std::unique_ptr<rpcblist, free_list> list{rpcb_getmaps(transport, "127.0.0.1")};
    if (!list)
        throw registration_error("no port mapper answers on this machine (start rpcbind)");
    for (const rpcblist* entry = list.get(); entry != nullptr; entry = entry->rpcb_next) {
        const rpcb& map = entry->rpcb_map;
        if (map.r_prog == program && map.r_vers == version && std::strcmp(map.r_netid, "tcp") == 0)
            return socket_address(transport, map.r_addr);
    }
    return std::nullopt;
}

// Whether a server of the program answers there. One that takes the call and stays silent counts
// as living; another program behind the same port doesn't.
bool is_alive(sockaddr_in address, std::uint32_t program, std::uint32_t version) {
    int socket = RPC_ANYSOCK;
    CLIENT* handle = clnttcp_create(&address, program, version, &socket, 0, 0);
    if (handle == nullptr)
        return false;
    wire::none nothing;
    const clnt_stat status = clnt_call(handle, NULLPROC, &wire::xdr_record<wire::none>, &nothing,
                                       &wire::xdr_record<wire::none>, &nothing, alive_time);
    clnt_destroy(handle);
    return status == RPC_SUCCESS || status == RPC_TIMEDOUT;
}

std::string name(std::uint32_t program, std::uint32_t version) {
    return "program " + std::to_string(program) + " version " + std::to_string(version);
}

} // namespace

registration::registration(std::uint32_t program, std::uint32_t version, const sockaddr_in& address)
    : program_(program), version_(version) {
    const transport_ptr transport = tcp_transport();
    const auto present = present_entry(transport.get(), program, version);
    if (present && is_alive(*present, program, version))
        throw registration_error(name(program, version) +
                                 " is already registered by a server that answers on port " +
                                 std::to_string(ntohs(present->sin_port)) +
                                 " (set ZERDIXRPCOFFSET to run a second one)");
    rpcb_unset(program, version, transport.get());
    sockaddr_in entered = address;
    const netbuf buffer{sizeof entered, sizeof entered, &entered};
    if (!rpcb_set(program, version, transport.get(), &buffer))
        throw registration_error("the port mapper refused to register " + name(program, version));
}

registration::~registration() {
    const transport_ptr transport{getnetconfigent("tcp")};
    if (transport)
        rpcb_unset(program_, version_, transport.get());
}

} // namespace zerdix::alphad
