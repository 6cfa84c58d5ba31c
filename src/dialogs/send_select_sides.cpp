// The two sides from which recipients are picked, and the buttons beside them.

#include <cstring>

#include <zerdix/sendfax.h>

#include "dialogs/kept_setting.h"
#include "dialogs/message.h"
#include "dialogs/send_controls.h"
#include "dialogs/send_select.h"
#include "dialogs/tele_entry.h"
#include "dialogs/user_select.h"
#include "sendfax/receivers.h"

namespace zerdix::dialogs {

using enum send::send_control;

namespace {

// How the dialogs that this one opens say that something was chosen.
constexpr std::int32_t entry_stored = 1901;
constexpr std::int32_t user_chosen = 2451;

} // namespace

void CDialogSendSelect::OnRecipientSide() {
    if (fTeleListEmpty != 0 && !setUpBooks())
        return;
    if (idRecipientMode != recipient_side)
        showSide(recipient_side);
}

// Groups that couldn't be had are asked for again when the user comes back to their side. A click
// on the side that is there already does nothing.
void CDialogSendSelect::OnGroupSide() {
    if (idRecipientMode == group_side)
        return;
    if (fGroupListEmpty != 0) {
        fGroupListEmpty = fillGroups() ? 0 : 1;
        enable(find_button);
    }
    showSide(group_side);
}

// The choice of phone books, and the first block of the one that was chosen last time.
bool CDialogSendSelect::setUpBooks() {
    enable(find_button);
    PTRLIST* books = telebook.getTBooks();
    if (books == nullptr) {
        showMessage(window_, send::no_books);
        return false;
    }
    for (std::uint32_t i = 0; i < books->getSize(); ++i)
        add_item(book_choice, static_cast<const o_tebu*>((*books)[i])->tbookid.view());
    const std::string last = kept_text("TBookId", "common", 12);
    select_item(book_choice, last);
    curTBook.assign(last);
    fTeleListEmpty = 0;
    fillBlocks(0);
    return true;
}

void CDialogSendSelect::showSide(std::int32_t mode) {
    idRecipientMode = mode;
    const bool recipients = mode == recipient_side;
    for (const std::int32_t id : {group_list, group_frame})
        show(id, !recipients);
    for (const std::int32_t id : {book_choice, entry_list, book_label, book_frame})
        show(id, recipients);
    enable(new_button, recipients);
}

void CDialogSendSelect::OnFax() {
    switchNetType(fax);
}

void CDialogSendSelect::OnTelex() {
    switchNetType(telex);
}

void CDialogSendSelect::switchNetType(std::int32_t id) {
    if (idNetType == id)
        return;
    idNetType = id;
    resetListState();
    if (!curTBook.empty())
        fillBlocks(0);
}

void CDialogSendSelect::OnChooseBook() {
    const std::string book = selected_item(book_choice);
    if (curTBook == book)
        return;
    curTBook.assign(book);
    resetListState();
    fillBlocks(0);
}

void CDialogSendSelect::resetListState() {
    fListComplete = 0;
    lRowCount = 0;
    startKey = {};
    seenKeys.clear();
    teleList.removeRows();
}

void CDialogSendSelect::OnNewEntry() {
    o_tebul entry{};
    CDialogTeleEntry form(window_, &entry, curTBook.bytes, &telebook, 1);
    if (form.DoModal() != entry_stored)
        return;
    addEntryRow(entry);
    ++lRowCount;
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
