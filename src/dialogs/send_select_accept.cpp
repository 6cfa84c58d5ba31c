// "OK": the checks in their order, and what becomes of the choices.

#include <algorithm>
#include <utility>

#include <zerdix/sendfax.h>
#include <zerdix/timetext.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "dialogs/message.h"
#include "dialogs/send_controls.h"
#include "dialogs/send_select.h"
#include "dialogs/stored_sending.h"
#include "dialogs/wait.h"
#include "sendfax/receivers.h"

namespace zerdix::dialogs {

using enum send::send_control;

// A message box that it shows on its way runs a loop, from which it mustn't begin again.
void CDialogSendSelect::OnAccept() {
    if (std::exchange(fAccepting, 1) != 0)
        return;
    saveColumns();
    const std::int32_t refusal = acceptInput();
    fAccepting = 0;
    if (refusal != 0)
        showMessage(window_, refusal);
}

void CDialogSendSelect::OnCancel() {
    saveColumns();
    EndDialog(cancel_button);
}

void CDialogSendSelect::saveColumns() {
    teleList.saveColumns();
    groupList.saveColumns();
}

// The wait dialog is on the screen meanwhile, and gone before the user is told of a refusal. What
// is gone through while messages may come is a copy, since their loops reach the lists.
std::int32_t CDialogSendSelect::acceptInput() {
    CDialogWait waits(window_, 0);
    waits.create();
    if (pPicks.empty() && !takeLastPick())
        return send::no_recipient;
    sRecWork = {};
    const std::int32_t refusal = readSettings();
    if (refusal != 0)
        return refusal;
    readPriority();
    const std::vector<recipient_pick> picks = pPicks;
    ppFinal = expand_picks(picks, telebook, idNetType == telex, window_);
    if (pSRec == nullptr)
        sendStored();
    EndDialog(pSRec == nullptr || handOver() ? std::int32_t{ok_button} : -1);
    return 0;
}

// A number that was typed and not confirmed, or else the selected row. In the latter case the empty
// input counts as a pick of its own, which leads to no receiver.
bool CDialogSendSelect::takeLastPick() {
    const std::string typed = text(typed_recipient, send::receiver_limit);
    if (typed.empty() && idRecipientMode == recipient_side)
        OnPickEntry();
    if (typed.empty() && idRecipientMode == group_side)
        OnPickGroup();
    if (typed.empty() && pPicks.empty())
        return false;
    addPick({typed});
    return true;
}

// The number of the message that tells what is wrong, 0 when all is well.
std::int32_t CDialogSendSelect::readSettings() {
    sRecWork.nighttariff = is_checked(night_tariff);
    sRecWork.nettype = is_checked(telex) ? NETTYPE_TELEX : NETTYPE_FAX;
    if (pfCover != nullptr)
        *pfCover = is_checked(cover_page) ? 1 : 0;
    if (is_checked(fine_resolution))
        sRecWork.resolution = JOURNAL::clssetPCTFine();
    else if (is_checked(normal_resolution))
        sRecWork.resolution = JOURNAL::clssetPCTNormal();
    if (!readSendTime())
        return send::bad_send_time;
    return readRetries() ? 0 : std::int32_t{send::bad_retries};
}

bool CDialogSendSelect::readSendTime() {
    std::string when = text(send_date);
    if (!when.empty())
        when += ' ';
    when += text(send_clock);
    if (when.empty())
        return true;
    setTZ();
    sRecWork.sendtime = str2time_t(when.c_str());
    return sRecWork.sendtime != 0;
}

bool CDialogSendSelect::readRetries() {
    const std::string typed = text(retries, 1);
    if (typed.empty() || typed[0] < '1' || typed[0] > '9')
        return false;
    sRecWork.maxretries = static_cast<std::int16_t>(typed[0] - '0');
    return true;
}

void CDialogSendSelect::readPriority() {
    const a_user_rec* user = ZERDIX::clsGetAUserRecord();
    if (user == nullptr)
        AfxMessageBox(send::no_user_record);
    else
        sRecWork.priority = send_priority(std::clamp<int>(user->priority, 0, 100));
}

// The job's record is replaced whole: the job fills in again what it knows better.
bool CDialogSendSelect::handOver() {
    *pSRec = sRecWork;
    pSRec->comment.assign(text(comment, send::comment_taken));
    std::vector<std::string> receivers;
    for (const final_receiver& each : ppFinal)
        receivers.push_back(each.text);
    return sendfax::replace_receivers(receivers);
}

void CDialogSendSelect::sendStored() {
    const std::vector<final_receiver> receivers = ppFinal;
    stored_sending sending(*pJournalForSend, telebook, sRecWork, is_checked(cover_page), window_);
    if (pDocIds[1] == 0)
        sending.send(pDocIds[0], text(comment, send::comment_taken), receivers);
    else
        for (std::size_t i = 0; pDocIds[i] != 0; ++i)
            sending.send(pDocIds[i], storedComment(i), receivers);
    sending.tellFailures();
}

} // namespace zerdix::dialogs
