// SPDX-License-Identifier: MIT
// The server with all that belongs to it, put together.
#ifndef ZERDIX_ALPHAD_NET_SERVICE_H
#define ZERDIX_ALPHAD_NET_SERVICE_H

#include <optional>

#include "alphad/answers/answers.h"
#include "alphad/answers/gate.h"
#include "alphad/net/dispatch.h"
#include "alphad/net/server.h"
#include "alphad/sending/sending.h"
#include "alphad/sending/spool.h"
#include "alphad/store/store.h"

namespace zerdix::alphad {

struct service_options {
    std::string store = ":memory:"; // a file, or ":memory:"
    std::filesystem::path spool;
    std::string calls; // file of the call log, empty for none
    std::string listen = "127.0.0.1";
    std::uint16_t port = 0;      // 0: one that is free
    bool demo_data = true;       // into a new store only
    bool demo_documents = false; // beside it
};

class service {
  public:
    // Ready for calls when it returns; throws what its parts throw. The time zone of the process
    // becomes the server's. The gate must outlive the object.
    service(const service_options& options, alphad::gate& gate);

    const alphad::server& server() const { return *server_; }

    // Takes calls until SIGTERM or SIGINT comes.
    void run() { server_->run(); }

  private:
    alphad::store store_;
    alphad::spool spool_;
    alphad::sending sending_;
    alphad::answers answers_;
    call_log calls_;
    dispatcher dispatcher_;
    std::optional<alphad::server> server_;
};

} // namespace zerdix::alphad

#endif
