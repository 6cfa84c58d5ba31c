// SPDX-License-Identifier: MIT
// Shows the pointer for waiting as long as the object lives.
#ifndef ZERDIX_DIALOGS_WAIT_CURSOR_H
#define ZERDIX_DIALOGS_WAIT_CURSOR_H

#include "forms/presenter.h"

namespace zerdix::dialogs {

class wait_cursor {
  public:
    wait_cursor() { forms::current_presenter().wait_cursor(true); }
    ~wait_cursor() { forms::current_presenter().wait_cursor(false); }
    wait_cursor(const wait_cursor&) = delete;
    wait_cursor& operator=(const wait_cursor&) = delete;
};

} // namespace zerdix::dialogs

#endif
