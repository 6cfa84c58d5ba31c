// SPDX-License-Identifier: MIT
#include "dialogs/send_select.h"

#include <cstring>
#include <utility>

#include <zerdix/sendfax.h>

#include "common/string_table.h"
#include "dialogs/application.h"
#include "dialogs/message.h"
#include "dialogs/remote_wait.h"
#include "dialogs/send_controls.h"
#include "dialogs/stored_sending.h"
#include "dialogs/user_select.h"
#include "dialogs/wait_dialog.h"
#include "sendfax/receivers.h"

namespace zerdix::dialogs {

using enum send::send_control;
using forms::control_event;

namespace {

constexpr std::int32_t user_chosen = 2451; // the end of the dialog for a user

} // namespace

// The number of the form is the one that the setting of its size has chosen.
CDialogSendSelect::CDialogSendSelect(forms::window_handle& parent)
    : CDialogDriver(chosen_templates.send, parent),
      lists_(*this, [this](recipient_pick pick) { addPick(std::move(pick)); }), settings_(*this) {
    mapMessages();
}

CDialogSendSelect::CDialogSendSelect(forms::window_handle& parent, a_s_rec* sRec, char** receivers,
                                     std::int32_t* coverFlag)
    : CDialogSendSelect(parent) {
    pSRec = sRec;
    ppJobReceiver = receivers;
    pfCover = coverFlag;
    lists_.set_net_type(sRec->nettype == NETTYPE_FAX ? fax : telex);
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

std::int32_t CDialogSendSelect::DoModal() {
    if (pSRec != nullptr && ppJobReceiver == nullptr)
        return -1;
    const remote_wait waits;
    return CDialogDriver::DoModal();
}

void CDialogSendSelect::mapMessages() {
    using self = CDialogSendSelect;
    const auto clicked = [this](std::int32_t id, void (self::*handler)()) {
        on(id, control_event::clicked, [this, handler] { (this->*handler)(); });
    };
    clicked(ok_button, &self::OnAccept);
    clicked(cancel_button, &self::OnCancel);
    clicked(desk_button, &self::OnStoreOnDesk);
    clicked(add_button, &self::OnAdd);
    clicked(reset_button, &self::OnReset);
    on(typed_recipient, control_event::changed, [this] { showUnconfirmed(); });
}

bool CDialogSendSelect::OnInitDialog() {
    CDialogDriver::OnInitDialog();
    if (pSRec != nullptr)
        showNetTypes();
    else
        check(fax);
    set_read_only(all_picks);
    set_limit(all_picks, send::picks_limit);
    set_limit(typed_recipient, send::receiver_limit);
    settings_.set_up();
    showComment();
    lists_.set_up();
    set_focus(typed_recipient);
    return false;
}

// A job's net type is fixed, and a telex has no cover page.
void CDialogSendSelect::showNetTypes() {
    show(desk_button);
    const bool is_telex = pSRec->nettype == NETTYPE_TELEX;
    show(is_telex ? fax : telex, false);
    check(is_telex ? telex : fax);
    enable(cover_page, !is_telex);
}

void CDialogSendSelect::showComment() {
    const bool several = pDocIds != nullptr && pDocIds[0] != 0 && pDocIds[1] != 0;
    if (several) {
        set_text(comment, common::string_text(send::several_comments));
        set_read_only(comment);
        return;
    }
    set_limit(comment, send::comment_limit);
    set_text(comment, pSRec != nullptr ? pSRec->comment.view() : storedComment(0));
}

std::string_view CDialogSendSelect::storedComment(std::size_t index) const {
    constexpr std::size_t comment_size = send::comment_limit + 1;
    if (pDocComments == nullptr)
        return {};
    const char* text = pDocComments + index * comment_size;
    return {text, ::strnlen(text, send::comment_limit)};
}

std::string CDialogSendSelect::typedRecipient() {
    return text(typed_recipient, send::receiver_limit);
}

void CDialogSendSelect::addPick(recipient_pick pick) {
    picks_.add(std::move(pick));
    set_text(all_picks, picks_.shown());
    showUnconfirmed();
}

// "OK" takes what stands typed only when nothing has been picked. So the window says of a text
// beside picks that it isn't one of them.
void CDialogSendSelect::showUnconfirmed() {
    const std::string typed = typedRecipient();
    const bool is_lost = !typed.empty() && !picks_.empty() && !picks_.has_typed(typed);
    mark(typed_recipient, is_lost ? caption_of(unconfirmed_note) : std::string());
    show(unconfirmed_note, is_lost);
}

void CDialogSendSelect::OnAdd() {
    const std::string typed = typedRecipient();
    if (typed.empty()) {
        showMessage(window_, send::input_missing);
        return;
    }
    set_text(typed_recipient, "");
    addPick({typed});
}

void CDialogSendSelect::OnReset() {
    picks_.clear();
    set_text(all_picks, "");
    lists_.unselect();
    showUnconfirmed();
}

// A message box that it shows on its way runs a loop, from which it mustn't begin again.
void CDialogSendSelect::OnAccept() {
    if (std::exchange(fAccepting, 1) != 0)
        return;
    lists_.save_columns();
    const std::int32_t refusal = acceptInput();
    fAccepting = 0;
    if (refusal != 0)
        showMessage(window_, refusal);
}

void CDialogSendSelect::OnCancel() {
    lists_.save_columns();
    EndDialog(cancel_button);
}

// The wait dialog is on the screen meanwhile, and gone before the user is told of a refusal. What
// is gone through while messages may come is a copy, since their loops reach the picks.
std::int32_t CDialogSendSelect::acceptInput() {
    CDialogWait waits(window_, 0);
    waits.create();
    if (picks_.empty() && !takeLastPick())
        return send::no_recipient;
    if (pfCover != nullptr)
        *pfCover = is_checked(cover_page) ? 1 : 0;
    const std::int32_t refusal = settings_.read();
    if (refusal != 0)
        return refusal;
    settings_.fetch_priority();
    const std::vector<recipient_pick> picks = picks_.all();
    const auto receivers = expand_picks(picks, lists_.phone_book(), lists_.is_telex(), window_);
    if (pSRec == nullptr)
        sendStored(receivers);
    EndDialog(pSRec == nullptr || handOver(receivers) ? std::int32_t{ok_button} : -1);
    return 0;
}

// A number that was typed and not confirmed, or else the selected row. In the latter case the empty
// input counts as a pick of its own, which leads to no receiver.
bool CDialogSendSelect::takeLastPick() {
    const std::string typed = typedRecipient();
    if (typed.empty())
        lists_.pick_selected();
    if (typed.empty() && picks_.empty())
        return false;
    addPick({typed});
    return true;
}

// The job's record is replaced whole: the job fills in again what it knows better.
bool CDialogSendSelect::handOver(const std::vector<final_receiver>& receivers) {
    *pSRec = settings_.record();
    pSRec->comment.assign(text(comment, send::comment_taken));
    std::vector<std::string> texts;
    texts.reserve(receivers.size());
    for (const final_receiver& each : receivers)
        texts.push_back(each.text);
    return sendfax::replace_receivers(texts);
}

void CDialogSendSelect::sendStored(const std::vector<final_receiver>& receivers) {
    stored_sending sending(*pJournalForSend, lists_.phone_book(), settings_.record(),
                           is_checked(cover_page), window_);
    if (pDocIds[1] == 0)
        sending.send(pDocIds[0], text(comment, send::comment_taken), receivers);
    else
        for (std::size_t i = 0; pDocIds[i] != 0; ++i)
            sending.send(pDocIds[i], storedComment(i), receivers);
    sending.tellFailures();
}

// The document isn't sent but placed on a user's desk. The receiver that is added here isn't one;
// the next "OK" replaces it.
void CDialogSendSelect::OnStoreOnDesk() {
    std::memset(alphaid, 0, sizeof alphaid);
    std::memset(userid, 0, sizeof userid);
    pSRec->comment.assign(text(comment, send::comment_taken));
    sendfax::add_desk_receiver();
    CDialogUserSelect users(window_, userid, alphaid);
    if (users.DoModal() != user_chosen)
        return;
    *pfCover = is_checked(cover_page) ? 1 : 0;
    EndDialog(ok_button);
}

} // namespace zerdix::dialogs
