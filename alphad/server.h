// The RPC server: a listening socket, the port mapper's entry for it, and the loop that takes
// calls.
//
// One thread takes the calls of all clients one after the other. There is at most one server in a
// process.
#ifndef ZERDIX_ALPHAD_SERVER_H
#define ZERDIX_ALPHAD_SERVER_H

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

#include "alphad/dispatch.h"
#include "alphad/port_mapper.h"

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

    std::uint16_t port() const { return port_; }
    std::uint32_t program() const { return program_; }

    // Takes calls until SIGTERM or SIGINT comes.
    void run();

  private:
    std::uint32_t program_;
    std::uint16_t port_ = 0;
    int signals_ = -1;
    SVCXPRT* listener_ = nullptr;
    std::unique_ptr<registration> registration_;
};

} // namespace zerdix::alphad

#endif
