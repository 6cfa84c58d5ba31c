// SPDX-License-Identifier: MIT
#include "dialogs/send_dialog_bridge.h"

#include <new>

#include <zerdix/dialogs.h>
#include <zerdix/sendfax.h>

#include "dialogs/send_select.h"
#include "sendfax/send_dialog.h"
#include "sending/outcome.h"

namespace zerdix::dialogs {

namespace {

constexpr std::int32_t cannot_run = -1;

// A dialog for which there is no memory can't run.
template <class... Arguments>
std::int32_t run(forms::window_handle parent, Arguments... arguments) {
    try {
        return CDialogSendSelect(parent, arguments...).DoModal();
    } catch (const std::bad_alloc&) {
        return cannot_run;
    }
}

std::int32_t run_for_job(forms::window_handle parent) {
    return run(parent, pa_s_rec, ppReceiver, &fCoverpage);
}

} // namespace

void install_send_select() {
    sendfax::install_send_dialog(&run_for_job);
}

} // namespace zerdix::dialogs

std::int32_t SendStoredDocuments(void* parent, JOURNAL* journal, std::int32_t* docIds,
                                 const char* comments) {
    using namespace zerdix::dialogs;
    if (journal == nullptr || docIds == nullptr || docIds[0] == 0)
        return cannot_run;
    zerdix::sending::outcome& outcome = zerdix::sending::stored_outcome();
    outcome.begin();
    const std::int32_t ended = run(parent, journal, docIds, comments);
    outcome.ended(ended);
    return ended;
}
