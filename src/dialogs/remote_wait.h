// SPDX-License-Identifier: MIT
// Tells the presenter of each remote call, and of how long it lasts, as long as the object lives.
#ifndef ZERDIX_DIALOGS_REMOTE_WAIT_H
#define ZERDIX_DIALOGS_REMOTE_WAIT_H

#include "rpc/wire/call_observer.h"

namespace zerdix::dialogs {

class remote_wait {
  public:
    remote_wait();
    ~remote_wait();
    remote_wait(const remote_wait&) = delete;
    remote_wait& operator=(const remote_wait&) = delete;

  private:
    wire::call_observer* before_;
};

} // namespace zerdix::dialogs

#endif
