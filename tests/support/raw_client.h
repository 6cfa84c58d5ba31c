// SPDX-License-Identifier: MIT
// A client without the library: one connection, and any procedure of the table on it.
#ifndef ZERDIX_TESTS_RAW_CLIENT_H
#define ZERDIX_TESTS_RAW_CLIENT_H

#include <arpa/inet.h>
#include <stdexcept>
#include <string_view>

#include "rpc/wire/stub.h"
#include "rpc/wire/transport.h"

namespace zerdix::test {

template <class Field>
Field field(std::string_view text) {
    Field made{};
    made.assign(text);
    return made;
}
inline str10 id(std::string_view text) {
    return field<str10>(text);
}

inline sockaddr_in loopback(std::uint16_t port = 0) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

class raw_client {
  public:
    // By way of the port mapper. Throws when there is no such server.
    explicit raw_client(std::uint32_t program) {
        handle_ = wire::connect(loopback(), program);
        if (handle_ == nullptr)
            throw std::runtime_error(clnt_spcreateerror("no connection"));
    }
    ~raw_client() { clnt_destroy(handle_); }
    raw_client(const raw_client&) = delete;
    raw_client& operator=(const raw_client&) = delete;

    // Null when the call failed. Good until the next call of the same procedure.
    template <class P>
    typename P::result* try_call(P, typename P::argument argument) {
        return wire::stub<P>(argument, handle_);
    }

    template <class P>
    typename P::result& call(P procedure, typename P::argument argument) {
        auto* result = try_call(procedure, argument);
        if (result == nullptr)
            throw std::runtime_error(std::string{P::name} + " failed");
        return *result;
    }

    CLIENT* handle() { return handle_; }

  private:
    CLIENT* handle_;
};

} // namespace zerdix::test

#endif
