// SPDX-License-Identifier: MIT
// The part of the send dialog that says how and when a document goes: net type, resolution, tariff,
// time, retries. What comes of it is a send record.
#ifndef ZERDIX_DIALOGS_SEND_SETTINGS_H
#define ZERDIX_DIALOGS_SEND_SETTINGS_H

#include <cstdint>

#include <zerdix/records.h>

#include "forms/dialog.h"

namespace zerdix::dialogs {

class send_settings {
  public:
    // The dialog has the controls of send_controls.h and outlives this part of it.
    explicit send_settings(forms::dialog& dialog) : dialog_(dialog) {}

    // How they stand when the dialog opens.
    void set_up();
    // Reads the controls into a new record: all but priority, comment and receiver. The number of
    // the message that tells what is wrong, 0 when all is well.
    std::int32_t read();
    // The user's own priority, which the server knows. The user is told when it can't be had.
    void fetch_priority();

    const a_s_rec& record() const { return sRecWork; }

  private:
    bool read_send_time();
    bool read_retries();

    forms::dialog& dialog_;
    a_s_rec sRecWork{};
};

} // namespace zerdix::dialogs

#endif
