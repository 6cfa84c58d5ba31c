// SPDX-License-Identifier: MIT
#include "sendfax/send_dialog.h"

#include <type_traits>

#include <zerdix/values.h>

#include "platform/port_slot.h"
#include "sendfax/job.h"
#include "sendfax/receivers.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

constinit platform::port_slot<std::remove_pointer_t<send_dialog>> slot;

std::int32_t job_result(std::int32_t ended) {
    switch (ended) {
    case send_dialog_accepted:
        return success;
    case send_dialog_cancelled:
        return declined;
    default:
        return failure;
    }
}

} // namespace

send_dialog install_send_dialog(send_dialog dialog) {
    return slot.replace(dialog);
}

std::int32_t run_send_dialog() {
    if (!make_receiver_array())
        return failure;
    add_blank_receiver();
    return CallSendDialog(job().hParentWnd);
}

std::int32_t CallSendDialog(void* parent) {
    trace_lines.entry("<-- CallSendDialog()");
    job().fDialogActive = 1;
    const std::int32_t ended = slot.is_replaced() ? slot.current()(parent) : 0;
    job().fDialogActive = 0;
    trace_lines.exit("--> CallSendDialog: RC from CDialogSendSelect: %ld ", ended);
    const std::int32_t rc = job_result(ended);
    trace_lines.exit("--> CallSendDialog(): Rc = %ld", rc);
    return rc;
}

} // namespace zerdix::sendfax
