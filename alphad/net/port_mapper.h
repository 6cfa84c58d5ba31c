// SPDX-License-Identifier: MIT
// The server's entry in this machine's port mapper.
#ifndef ZERDIX_ALPHAD_NET_PORT_MAPPER_H
#define ZERDIX_ALPHAD_NET_PORT_MAPPER_H

#include <cstdint>
#include <netinet/in.h>
#include <stdexcept>

namespace zerdix::alphad {

class registration_error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Stands as long as the object, also when the process ends in an orderly way.
class registration {
  public:
    // Replaces an entry that nobody answers under any more. Throws registration_error when there
    // is no port mapper or the entry is a living server's.
    registration(std::uint32_t program, std::uint32_t version, const sockaddr_in& address);
    ~registration();
    registration(const registration&) = delete;
    registration& operator=(const registration&) = delete;

  private:
    std::uint32_t program_;
    std::uint32_t version_;
};

} // namespace zerdix::alphad

#endif
