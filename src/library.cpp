// SPDX-License-Identifier: MIT
// The shared library is the rooms, whole, and the one application object, which comes up when the
// library is loaded. Only the tracer is made before it.
#include "dialogs/application.h"
#include "dialogs/dialog_resources.h"
#include "dialogs/send_dialog_bridge.h"

namespace {

class loaded_library {
  public:
    loaded_library() {
        zerdix::dialogs::install_dialog_resources();
        zerdix::dialogs::install_send_select();
    }

  private:
    zerdix::dialogs::CZerdixApp application_;
};

loaded_library library;

} // namespace
