// SPDX-License-Identifier: MIT
// Opening and closing the connection, and the user, the server and the language of the session.

#include <arpa/inet.h>
#include <cctype>
#include <netinet/in.h>

#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "platform/host_lookup.h"
#include "platform/sockets.h"
#include "rpc/call.h"
#include "rpc/fields.h"
#include "rpc/wire/transport.h"

using namespace zerdix;
using rpc::or_empty;
using rpc::session;
using rpc::trace_lines;

namespace {

void trace_host_error(std::int32_t error, const char* name) {
    switch (error) {
    case platform::host_not_found:
        trace_lines.error("ZERDIX::GetClientAddr(): The host name %s is not found\n", name);
        break;
    case platform::host_no_recovery:
        trace_lines.error("ZERDIX::GetClientAddr(): An unrecoverable error has occured\n");
        break;
    case platform::host_no_data:
        trace_lines.error("ZERDIX::GetClientAddr(): The requested name %s is valid but does not "
                          "have an internet address at the name server\n",
                          name);
        break;
    default:
        trace_lines.error("ZERDIX::GetClientAddr(): Can't get internet address for %s\n", name);
    }
}

platform::host_result resolve(const char* name) {
    return std::isdigit(static_cast<unsigned char>(name[0])) != 0 ? platform::host_by_address(name)
                                                                  : platform::host_by_name(name);
}

void trace_create_error() {
    const char* reason = clnt_spcreateerror("clnttcp_create");
    trace_lines.error("ZERDIX::GetClientAddr(): <%s>",
                      reason != nullptr ? reason
                                        : "Error clnttcp_create(): no error buffer allocated");
}

// The port is left 0, so that the server's port mapper is asked for it.
sockaddr_in socket_address(std::uint32_t network_address) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = network_address;
    trace_lines.info("ZERDIX::GetClientAddr(): IP address <%s>", inet_ntoa(address.sin_addr));
    return address;
}

void close_handle() {
    if (session().pclient != nullptr)
        clnt_destroy(session().pclient);
    session().pclient = nullptr;
}

} // namespace

client* ZERDIX::clsGetClient() {
    trace_lines.property("ZERDIX::clsGetClient()");
    return session().pclient;
}

const char* ZERDIX::clsGetUserId() {
    trace_lines.property("ZERDIX::clsGetUserId(): current UserId %s", session().str10UserId.bytes);
    return session().str10UserId.bytes;
}

const char* ZERDIX::clsGetAlphaServer() {
    trace_lines.property("ZERDIX::clsGetAlphaServer(): current AlphaServer %s",
                         session().str35AlphaServer.bytes);
    return session().str35AlphaServer.bytes;
}

void ZERDIX::setUserId(const char* userid) {
    session().str10UserId.assign(or_empty(userid));
    trace_lines.property("ZERDIX::setUserId(): %s", session().str10UserId.bytes);
}

void ZERDIX::setAlphaserver(const char* alphaServer) {
    session().str35AlphaServer.assign(or_empty(alphaServer));
    trace_lines.property("ZERDIX::setAlphaserver(): %s", session().str35AlphaServer.bytes);
}

client* ZERDIX::GetClientAddr(const char* alphaServer) {
    alphaServer = or_empty(alphaServer);
    const trace::operation traced{trace_lines, "ZERDIX::GetClientAddr()",
                                  "<-- ZERDIX::GetClientAddr(): Alpha Server: %s", alphaServer};
    close_handle();
    if (platform::start_sockets() != 0) {
        trace_lines.error(
            "ZERDIX::GetClientAddr(): The TCP/IP stack is not WinSock 1.1 compatible\n");
        return nullptr;
    }
    const platform::host_result host = resolve(alphaServer);
    if (!host.found()) {
        trace_host_error(host.error, alphaServer);
        return nullptr;
    }
    const sockaddr_in address = socket_address(host.address);
    session().pclient = wire::connect(address, rpc_prog_nr(ZERDIX_PROG));
    if (session().pclient == nullptr)
        trace_create_error();
    return session().pclient;
}

void ZERDIX::CleanupHostConnection() {
    const trace::operation traced{
        trace_lines, "ZERDIX::CleanupHostConnection():", "<-- ZERDIX::CleanupHostConnection():"};
    platform::stop_sockets();
    close_handle();
    session().lLoginId = 0;
}

std::uint32_t ZERDIX::rpc_prog_nr(std::int32_t number) {
    trace_lines.entry("<-- ZERDIX::rpc_prog_nr: Old number: %ld", number);
    const std::uint32_t shifted = with_program_offset(static_cast<std::uint32_t>(number));
    trace_lines.exit("--> ZERDIX::rpc_prog_nr: New number: %ld", shifted);
    return shifted;
}

std::int32_t ZERDIX::clsSetLanguage(char letter) {
    const trace::operation traced{trace_lines, "ZERDIX::clsSetLanguage()",
                                  "<-- ZERDIX::clsSetLanguage(): %c", letter};
    const char* locale = nullptr;
    switch (letter) {
    case 'G':
        locale = "german_germany";
        break;
    case 'F':
        locale = "french_france";
        break;
    case 'A':
    case 'I':
    case 'S':
    case 'U':
        locale = "english_us";
        break;
    default:
        trace_lines.error("ZERDIX::clsSetLanguage(): language not supported");
        return rpc::refused;
    }
    session().cLanguage = letter;
    session().str30LanguageString.assign(locale);
    traced.exit("--> ZERDIX::clsSetLanguage(): [string: %s]", locale);
    return rpc::success;
}

char ZERDIX::clsGetLanguage() {
    return session().cLanguage;
}

const char* ZERDIX::clsGetLanguageString() {
    trace_lines.property("ZERDIX::clsGetLanguageString(): <%s>",
                         session().str30LanguageString.bytes);
    return session().str30LanguageString.bytes;
}
