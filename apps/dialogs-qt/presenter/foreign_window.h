// SPDX-License-Identifier: MIT
// Windows that aren't dialogs of ours: the host's own, or those of another toolkit in the same
// process or of another program.
#ifndef ZERDIX_PRESENTER_FOREIGN_WINDOW_H
#define ZERDIX_PRESENTER_FOREIGN_WINDOW_H

#include <map>
#include <memory>

#include <QWindow>

#include "forms/presenter.h"

namespace zerdix::dialogs_qt {

class foreign_windows {
  public:
    // A window of the host's by this toolkit, or a stand-in for a window of X; null where there is
    // no such window, or the screen tells nothing about windows of others.
    QWindow* find(forms::window_handle window);
    bool is_stand_in(const QWindow* window) const;

  private:
    // Never given up: a dialog may still be in front of it.
    std::map<WId, std::unique_ptr<QWindow>> stand_ins_;
};

} // namespace zerdix::dialogs_qt

#endif
