// SPDX-License-Identifier: MIT
// The RPC server: a listening socket, the port mapper's entry for it, and the loop that takes
// calls.
//
// One thread takes the calls of all clients one after the other. A call is only taken when all of
// it is there, and a reply goes out as the client reads it, so that a client that falls silent
// holds up nobody.
#ifndef ZERDIX_ALPHAD_NET_SERVER_H
#define ZERDIX_ALPHAD_NET_SERVER_H

#include <cstdint>
#include <memory>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "alphad/net/dispatch.h"
#include "alphad/net/port_mapper.h"

namespace zerdix::alphad {

class server_error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The program number after the offset of the environment variable ZERDIXRPCOFFSET.
std::uint32_t program_number();

class server {
  public:
    // Listens and registers. Throws server_error or registration_error. From here on SIGTERM and
    // SIGINT are only looked at by run().
    server(dispatcher& calls, const std::string& address, std::uint16_t port = 0);
    ~server();
    server(const server&) = delete;
    server& operator=(const server&) = delete;

    std::uint16_t port() const { return ntohs(address_.sin_port); }
    std::uint32_t program() const { return program_; }

    // Takes calls until SIGTERM or SIGINT comes.
    void run();

  private:
    // A file that is closed with the object.
    class file {
      public:
        explicit file(int number) : number_(number) {}
        ~file();
        file(const file&) = delete;
        file& operator=(const file&) = delete;
        operator int() const { return number_; } // NOLINT: meant to be implicit

      private:
        int number_;
    };

    std::vector<pollfd> files() const;
    void accept_client();
    void move_bytes(connection& client);
    void serve(connection& client);
    void answer(const std::string& record, connection& client);
    void forget_ended();

    dispatcher& calls_;
    std::uint32_t program_;
    sockaddr_in address_;
    file listener_;
    file signals_;
    registration registration_;
    std::vector<std::unique_ptr<connection>> clients_;
    std::size_t room_ = 1000; // for clients; further ones wait until one of them goes
    std::uint64_t last_number_ = 0;
};

} // namespace zerdix::alphad

#endif
