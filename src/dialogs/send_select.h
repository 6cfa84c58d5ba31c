// SPDX-License-Identifier: MIT
// The send dialog: when, how and to whom a document goes.
//
// For a print job it leaves its choices in the job's state (zerdix/sendfax.h) and sends nothing
// itself. On documents that are stored already it sends them (dialogs/stored_sending.h).
#ifndef ZERDIX_DIALOGS_SEND_SELECT_H
#define ZERDIX_DIALOGS_SEND_SELECT_H

#include <cstdint>
#include <vector>

#include <zerdix/journal.h>

#include "dialogs/modal_dialog.h"
#include "dialogs/pick_expansion.h"
#include "dialogs/recipient_lists.h"
#include "dialogs/recipient_picks.h"
#include "dialogs/send_settings.h"

namespace zerdix::dialogs {

class CDialogSendSelect final : public CDialogDriver {
  public:
    // For the print job: pa_s_rec, ppReceiver and the address of fCoverpage, which are written when
    // the user accepts. Without receivers the user is told so, and the dialog can't run.
    CDialogSendSelect(forms::window_handle& parent, a_s_rec* sRec, char** receivers,
                      std::int32_t* coverFlag);

    // For stored documents of the desk, by id, ended by 0: they are sent when the user accepts.
    // Elements are replaced as zerdix/dialogs.h tells. `comments` has 31 bytes for each document
    // and may be null.
    CDialogSendSelect(forms::window_handle& parent, JOURNAL* journal, std::int32_t* docIds,
                      const char* comments);

    // send_dialog_accepted or send_dialog_cancelled; anything else: it couldn't run.
    std::int32_t DoModal() override;

  private:
    explicit CDialogSendSelect(forms::window_handle& parent);
    void mapMessages();

    // Nothing is fetched for the opening.
    bool OnInitDialog() override;
    void showNetTypes();
    void showComment();
    // Of the document with that index.
    std::string_view storedComment(std::size_t index) const;

    std::string typedRecipient();
    void addPick(recipient_pick pick);
    void showUnconfirmed();
    void OnAdd();
    void OnReset();

    void OnAccept();
    void OnCancel() override;
    // The number of the message that tells why the dialog stays open, 0 when it ends.
    std::int32_t acceptInput();
    bool takeLastPick();
    bool handOver(const std::vector<final_receiver>& receivers);
    void sendStored(const std::vector<final_receiver>& receivers);
    void OnStoreOnDesk();

    recipient_lists lists_;
    recipient_picks picks_;
    send_settings settings_;
    int fAccepting = 0; // "OK" is at work
    std::int32_t* pfCover = nullptr;
    char** ppJobReceiver = nullptr;
    a_s_rec* pSRec = nullptr;
    JOURNAL* pJournalForSend = nullptr;
    std::int32_t* pDocIds = nullptr;
    const char* pDocComments = nullptr;
};

} // namespace zerdix::dialogs

#endif
