// SPDX-License-Identifier: MIT
#include "dialogs/remote_wait.h"

#include "forms/presenter.h"

namespace zerdix::dialogs {

namespace {

class told_to_presenter final : public wire::call_observer {
  public:
    void begins() override { forms::current_presenter().remote_call_begins(); }
    void goes_on() override { forms::current_presenter().remote_call_goes_on(); }
    void ended() override { forms::current_presenter().remote_call_ended(); }
};

constinit told_to_presenter watch;

} // namespace

remote_wait::remote_wait() : before_(wire::replace_call_observer(&watch)) {}

remote_wait::~remote_wait() {
    wire::replace_call_observer(before_);
}

} // namespace zerdix::dialogs
