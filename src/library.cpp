// The shared library is the rooms, whole, and the one application object. Of the objects that are
// made when the library is loaded it is the last but for those made here: the tracer goes first.
#include "dialogs/application.h"
#include "dialogs/resources.h"
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
