// The send dialog's birth, end and message map.

#include "dialogs/send_select.h"

#include "dialogs/application.h"
#include "dialogs/kept_setting.h"
#include "dialogs/message.h"
#include "dialogs/send_controls.h"
#include "rpc/gathered_list.h"

namespace zerdix::dialogs {

using enum send::send_control;
using forms::control_event;

// The number of the form is the one that the setting of its size has chosen.
CDialogSendSelect::CDialogSendSelect(forms::window_handle& parent)
    : CDialogDriver(chosen_templates.send, parent), lBlockSize(rpc::block_to_gather()),
      idNetType(fax) {
    mapMessages();
    mapListMessages();
}

CDialogSendSelect::CDialogSendSelect(forms::window_handle& parent, a_s_rec* sRec, char** receivers,
                                     std::int32_t* coverFlag)
    : CDialogSendSelect(parent) {
    pSRec = sRec;
    ppJobReceiver = receivers;
    pfCover = coverFlag;
    idNetType = sRec->nettype == NETTYPE_FAX ? fax : telex;
    if (receivers == nullptr)
        AfxMessageBox("Invalid Pointer");
}

CDialogSendSelect::CDialogSendSelect(forms::window_handle& parent, JOURNAL* journal,
                                     std::int32_t* docIds, const char* comments)
    : CDialogSendSelect(parent) {
    pJournalForSend = journal;
    pDocIds = docIds;
    pDocComments = comments;
}

CDialogSendSelect::~CDialogSendSelect() {
    if (!curTBook.empty())
        keep_text("TBookId", curTBook.view());
}

std::int32_t CDialogSendSelect::DoModal() {
    if (pSRec != nullptr && ppJobReceiver == nullptr)
        return -1;
    const remote_wait waits;
    return CDialogDriver::DoModal();
}

void CDialogSendSelect::guarded(void (CDialogSendSelect::*handler)()) {
    if (fUpdating != 0)
        return;
    fUpdating = 1;
    (this->*handler)();
    fUpdating = 0;
}

void CDialogSendSelect::mapMessages() {
    using self = CDialogSendSelect;
    const auto clicked = [this](std::int32_t id, auto handler) {
        on(id, control_event::clicked, handler);
    };
    clicked(ok_button, [this] { OnAccept(); });
    clicked(cancel_button, [this] { OnCancel(); });
    clicked(new_button, [this] { guarded(&self::OnNewEntry); });
    clicked(desk_button, [this] { OnStoreOnDesk(); });
    clicked(find_button, [this] { OnFind(); });
    clicked(add_button, [this] { OnAdd(); });
    clicked(reset_button, [this] { OnReset(); });
    clicked(recipient_side, [this] { guarded(&self::OnRecipientSide); });
    clicked(group_side, [this] { guarded(&self::OnGroupSide); });
    clicked(fax, [this] { guarded(&self::OnFax); });
    clicked(telex, [this] { guarded(&self::OnTelex); });
}

void CDialogSendSelect::mapListMessages() {
    using self = CDialogSendSelect;
    on(typed_recipient, control_event::changed, [this] { showUnconfirmed(); });
    on(book_choice, control_event::selection_changed, [this] { guarded(&self::OnChooseBook); });
    on(entry_list, control_event::double_clicked, [this] { OnPickEntry(); });
    on(group_list, control_event::double_clicked, [this] { OnPickGroup(); });
    on(entry_list, control_event::selection_changed, [this] { guarded(&self::OnSelectionMoved); });
    on(entry_list, control_event::scrolled, [this] { guarded(&self::OnScroll); });
    on_posted(recipient_search_command, [this] { guarded(&self::OnFindInRecipients); });
    on_posted(group_search_command, [this] { OnFindInGroups(); });
    for (const std::int32_t command : {choose_list_font, choose_text_font})
        on_posted(command, [this, command] { OnChooseFont(command); });
}

} // namespace zerdix::dialogs
