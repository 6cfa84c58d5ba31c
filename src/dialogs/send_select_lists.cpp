// The lists of the send dialog: rows that come block by block, and the search in them.

#include "dialogs/application.h"
#include "dialogs/find_text.h"
#include "dialogs/message.h"
#include "dialogs/notify.h"
#include "dialogs/send_controls.h"
#include "dialogs/send_select.h"
#include "dialogs/wait_cursor.h"
#include "rpc/gathered_list.h"

namespace zerdix::dialogs {

using enum send::send_control;

namespace {

constexpr std::int32_t entry_titles[] = {1406, 1407, 1408, 1409, 1410, 1411};
constexpr std::int32_t group_titles[] = {1432, 1433, 1434, 1435};

constexpr std::int32_t unknown_size = -1; // the question for it failed

} // namespace

void CDialogSendSelect::setUpLists() {
    teleList.setupColumns({.titles = entry_titles, .columnKey = "SendTeleSel"});
    groupList.setupColumns({.titles = group_titles, .columnKey = "SendTGroupSel"});
}

// The application's own command; the lists show at once what the user has chosen.
void CDialogSendSelect::OnChooseFont(std::int32_t command) {
    CZerdixApp* application = CZerdixApp::current();
    if (application == nullptr)
        return;
    application->OnCommand(command);
    teleList.useListFont();
    groupList.useListFont();
}

void CDialogSendSelect::addEntryRow(const o_tebul& entry) {
    teleList.addRow(
        {entry.teleid.view(), entry.comment.view(), entry.tsi.view(), entry.phone.view(),
         string_text(entry.intern ? send::intern_word : send::extern_word),
         string_text(entry.nettype == NETTYPE_TELEX ? send::telex_word : send::fax_word)});
}

// A server that begins a block with the entry that it was asked for by, and one that begins behind
// it, both fill the list without a gap. A short block isn't the last one.
int CDialogSendSelect::fillBlocks(int all) {
    if (fListComplete != 0)
        return 0;
    const wait_cursor waits;
    do {
        PTRLIST* block = fetchBlock();
        if (block == nullptr)
            return 0;
        addBlock(*block);
    } while (all != 0 && fListComplete == 0);
    return 1;
}

// Without a size a server would send an empty block, which looks like the end of the book. So the
// size is asked for again, and one that still can't be had counts as a block that failed.
PTRLIST* CDialogSendSelect::fetchBlock() {
    if (lBlockSize == unknown_size)
        lBlockSize = rpc::block_to_gather();
    const nettypetype net = idNetType == fax ? NETTYPE_FAX : NETTYPE_TELEX;
    PTRLIST* block =
        lBlockSize == unknown_size
            ? nullptr
            : telebook.getTBookEntries(curTBook.bytes, net, startKey.bytes, lBlockSize);
    if (block != nullptr)
        return block;
    fListComplete = 1;
    showMessage(window_, send::no_entries);
    return nullptr;
}

// The list is complete when nothing new comes, also when the server leads back to a block that was
// there before.
void CDialogSendSelect::addBlock(PTRLIST& block) {
    const auto entry = [&block](std::uint32_t i) -> const o_tebul& {
        return *static_cast<const o_tebul*>(block[i]);
    };
    const std::uint32_t size = block.getSize();
    const std::uint32_t first = size > 0 && entry(0).teleid == startKey ? 1 : 0;
    if (first >= size || !seenKeys.emplace(entry(size - 1).teleid.view()).second) {
        fListComplete = 1;
        return;
    }
    startKey = entry(size - 1).teleid;
    for (std::uint32_t i = first; i < size; ++i)
        addEntryRow(entry(i));
    lRowCount += static_cast<std::int32_t>(size - first);
}

bool CDialogSendSelect::fillGroups() {
    PTRLIST* groups = telebook.getTGroups();
    if (groups == nullptr) {
        showMessage(window_, send::no_groups);
        return false;
    }
    groupList.removeRows();
    for (std::uint32_t i = 0; i < groups->getSize(); ++i) {
        const auto& group = *static_cast<const o_tgroup*>((*groups)[i]);
        groupList.addRow(
            {group.groupid.view(), group.comment.view(), group.owner.view(), group.group.view()});
    }
    return true;
}

// On the last row that was fetched, the next block follows.
void CDialogSendSelect::OnSelectionMoved() {
    const std::int32_t row = teleList.selectedRow();
    if (row >= 0 && fListComplete == 0 && startKey == teleList.cell(row, 0))
        fillBlocks(0);
}

void CDialogSendSelect::OnScroll() {
    if (teleList.isInView(teleList.rowCount() - 1))
        fillBlocks(0);
}

// The search runs while the find dialog stays open, so this handler doesn't keep others out.
void CDialogSendSelect::OnFind() {
    const bool recipients = idRecipientMode == recipient_side;
    CDialogFind find(window_, recipients ? search_recipients : search_groups);
    pFindDialog = &find;
    find.DoModal();
    pFindDialog = nullptr;
}

void CDialogSendSelect::OnFindInRecipients() {
    teleList.unselectAll();
    fillBlocks(1);
    searchList(teleList, lLastTeleHit);
}

void CDialogSendSelect::OnFindInGroups() {
    groupList.unselectAll();
    searchList(groupList, lLastGroupHit);
}

// Begins behind the last hit and goes round. A hit of another book may lie behind the last row.
int CDialogSendSelect::searchList(CSftList& list, std::int32_t& lastHit) {
    search_pattern pattern(searchText());
    const std::int32_t count = list.rowCount();
    std::int32_t row = lastHit + 1 < count ? lastHit + 1 : 0;
    for (std::int32_t looked = 0; looked < count; ++looked) {
        if (pattern.match(list.rowText(row)) >= 0) {
            lastHit = row;
            list.selectRow(row);
            list.showRow(row);
            if (pFindDialog != nullptr)
                pFindDialog->ready();
            return 1;
        }
        row = row + 1 < count ? row + 1 : 0;
    }
    // One that took too long hasn't looked at all rows.
    return tellNotFound(pattern.is_valid() ? send::not_found : text_bad_search);
}

// The dialog stays disabled until the find dialog ends; without one nobody would enable it again.
int CDialogSendSelect::tellNotFound(std::int32_t message) {
    const std::string told = string_text(message);
    CDialogNotify(window_, &told).DoModal();
    if (pFindDialog != nullptr) {
        forms::current_presenter().enable(window_, false);
        pFindDialog->ready();
    }
    return 0;
}

} // namespace zerdix::dialogs
