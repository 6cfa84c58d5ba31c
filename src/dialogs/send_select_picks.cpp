// What the user has picked so far.

#include <algorithm>

#include "common/string_table.h"
#include "dialogs/message.h"
#include "dialogs/send_controls.h"
#include "dialogs/send_select.h"

namespace zerdix::dialogs {

using enum send::send_control;

// Nothing looks whether the same recipient has been picked before. More than the display holds
// counts all the same.
void CDialogSendSelect::addPick(recipient_pick pick) {
    std::string shown = text(all_picks).substr(0, lShownLength);
    shown += pick.text + ' ';
    set_text(all_picks, std::string_view{shown}.substr(0, send::picks_limit));
    lShownLength += pick.text.size() + 1;
    pPicks.push_back(std::move(pick));
    showUnconfirmed();
}

// "OK" takes what stands typed only when nothing has been picked. So the window says of a text
// beside picks that it isn't one of them. A group of that name is no number.
void CDialogSendSelect::showUnconfirmed() {
    const std::string typed = text(typed_recipient, send::receiver_limit);
    const bool is_picked =
        std::any_of(pPicks.begin(), pPicks.end(), [&typed](const recipient_pick& pick) {
            return pick.isGroup == 0 && pick.text == typed;
        });
    const bool is_lost = !typed.empty() && !pPicks.empty() && !is_picked;
    mark(typed_recipient, is_lost ? caption_of(unconfirmed_note) : std::string());
    show(unconfirmed_note, is_lost);
}

void CDialogSendSelect::OnAdd() {
    const std::string typed = text(typed_recipient, send::receiver_limit);
    if (typed.empty()) {
        showMessage(window_, send::input_missing);
        return;
    }
    set_text(typed_recipient, "");
    addPick({typed});
}

void CDialogSendSelect::OnPickEntry() {
    const std::int32_t row = teleList.selectedRow();
    if (row < 0)
        return;
    lLastTeleHit = row;
    const std::string net = teleList.cell(row, 5);
    std::int16_t nettype = 0;
    if (net == common::string_text(send::telex_word))
        nettype = NETTYPE_TELEX;
    else if (net == common::string_text(send::fax_word))
        nettype = NETTYPE_FAX;
    addPick({std::string{curTBook.view()} + ':' + teleList.cell(row, 0), 0, nettype});
}

void CDialogSendSelect::OnPickGroup() {
    const std::int32_t row = groupList.selectedRow();
    if (row < 0)
        return;
    lLastGroupHit = row;
    addPick({groupList.cell(row, 0), 1, 0});
}

void CDialogSendSelect::OnReset() {
    set_text(all_picks, "");
    lShownLength = 0;
    ppFinal.clear();
    pPicks.clear();
    teleList.unselectAll();
    groupList.unselectAll();
    showUnconfirmed();
}

} // namespace zerdix::dialogs
