// SPDX-License-Identifier: MIT
#include "dialogs/recipient_lists.h"

#include <utility>

#include "common/string_table.h"
#include "dialogs/application.h"
#include "dialogs/entry_dialog.h"
#include "dialogs/kept_setting.h"
#include "dialogs/message.h"
#include "dialogs/notify_dialog.h"
#include "dialogs/search_pattern.h"
#include "dialogs/send_controls.h"
#include "dialogs/wait_cursor.h"
#include "sending/group_members.h"

namespace zerdix::dialogs {

using enum send::send_control;
using common::string_text;
using forms::control_event;

namespace {

constexpr std::int32_t entry_titles[] = {1406, 1407, 1408, 1409, 1410, 1411};
constexpr std::int32_t group_titles[] = {1432, 1433, 1434, 1435};

constexpr std::int32_t entry_stored = 1901; // the end of the dialog for an entry

// The net type as the lists have it: what isn't for telex is for fax.
nettypetype net_of(const o_tebul& entry) {
    return entry.nettype == NETTYPE_TELEX ? NETTYPE_TELEX : NETTYPE_FAX;
}

} // namespace

recipient_lists::recipient_lists(forms::dialog& dialog, std::function<void(recipient_pick)> on_pick)
    : dialog_(dialog), on_pick_(std::move(on_pick)), idNetType(fax), pager_(telebook) {
    map_messages();
}

recipient_lists::~recipient_lists() {
    if (!curTBook.empty())
        keep_text("TBookId", curTBook.view());
}

void recipient_lists::map_messages() {
    using self = recipient_lists;
    const auto map = [this](std::int32_t id, control_event event, void (self::*handler)()) {
        dialog_.on(id, event, [this, handler] { guarded(handler); });
    };
    map(recipient_side, control_event::clicked, &self::OnRecipientSide);
    map(group_side, control_event::clicked, &self::OnGroupSide);
    map(fax, control_event::clicked, &self::OnFax);
    map(telex, control_event::clicked, &self::OnTelex);
    map(new_button, control_event::clicked, &self::OnNewEntry);
    map(book_choice, control_event::selection_changed, &self::OnChooseBook);
    map(entry_list, control_event::selection_changed, &self::OnSelectionMoved);
    map(entry_list, control_event::scrolled, &self::OnScroll);
    dialog_.on_posted(recipient_search_command, [this] { guarded(&self::OnFindInRecipients); });
    dialog_.on_posted(group_search_command, [this] { OnFindInGroups(); });
    dialog_.on(find_button, control_event::clicked, [this] { OnFind(); });
    dialog_.on(entry_list, control_event::double_clicked, [this] { OnPickEntry(); });
    dialog_.on(group_list, control_event::double_clicked, [this] { OnPickGroup(); });
    for (const std::int32_t command : {choose_list_font, choose_text_font})
        dialog_.on_posted(command, [this, command] { OnChooseFont(command); });
}

void recipient_lists::guarded(void (recipient_lists::*handler)()) {
    if (fUpdating != 0)
        return;
    fUpdating = 1;
    (this->*handler)();
    fUpdating = 0;
}

void recipient_lists::set_up() {
    teleList.attach(dialog_.list(entry_list));
    groupList.attach(dialog_.list(group_list));
    teleList.setupColumns({.titles = entry_titles, .columnKey = "SendTeleSel"});
    groupList.setupColumns({.titles = group_titles, .columnKey = "SendTGroupSel"});
    dialog_.enable(find_button, false);
    dialog_.enable(new_button, false);
}

void recipient_lists::unselect() {
    teleList.unselectAll();
    groupList.unselectAll();
}

void recipient_lists::save_columns() {
    teleList.saveColumns();
    groupList.saveColumns();
}

bool recipient_lists::is_telex() const {
    return idNetType == telex;
}

void recipient_lists::OnRecipientSide() {
    if (fTeleListEmpty != 0 && !setUpBooks())
        return;
    if (idRecipientMode != recipient_side)
        showSide(recipient_side);
}

// Groups that couldn't be had are asked for again when the user comes back to their side. A click
// on the side that is there already does nothing.
void recipient_lists::OnGroupSide() {
    if (idRecipientMode == group_side)
        return;
    if (fGroupListEmpty != 0) {
        fGroupListEmpty = fillGroups() ? 0 : 1;
        dialog_.enable(find_button);
    }
    showSide(group_side);
}

// The choice of phone books, and the first block of the one that was chosen last time.
bool recipient_lists::setUpBooks() {
    dialog_.enable(find_button);
    PTRLIST* books = telebook.getTBooks();
    if (books == nullptr) {
        showMessage(dialog_.window(), send::no_books);
        return false;
    }
    for (std::uint32_t i = 0; i < books->getSize(); ++i)
        dialog_.add_item(book_choice, static_cast<const o_tebu*>((*books)[i])->tbookid.view());
    const std::string last = kept_text("TBookId", "common", 12);
    dialog_.select_item(book_choice, last);
    curTBook.assign(last);
    fTeleListEmpty = 0;
    resetListState();
    fillBlocks(0);
    return true;
}

bool recipient_lists::fillGroups() {
    PTRLIST* groups = telebook.getTGroups();
    if (groups == nullptr) {
        showMessage(dialog_.window(), send::no_groups);
        return false;
    }
    groupList.removeRows();
    for (std::uint32_t i = 0; i < groups->getSize(); ++i) {
        const auto& group = *static_cast<const o_tgroup*>((*groups)[i]);
        groupList.addRecord(group, {group.groupid.view(), group.comment.view(), group.owner.view(),
                                    group.group.view()});
    }
    return true;
}

void recipient_lists::showSide(std::int32_t mode) {
    idRecipientMode = mode;
    const bool recipients = mode == recipient_side;
    for (const std::int32_t id : {group_list, group_frame})
        dialog_.show(id, !recipients);
    for (const std::int32_t id : {book_choice, entry_list, book_label, book_frame})
        dialog_.show(id, recipients);
    dialog_.enable(new_button, recipients);
}

void recipient_lists::OnFax() {
    switchNetType(fax);
}

void recipient_lists::OnTelex() {
    switchNetType(telex);
}

void recipient_lists::switchNetType(std::int32_t id) {
    if (idNetType == id)
        return;
    idNetType = id;
    resetListState();
    if (!curTBook.empty())
        fillBlocks(0);
}

void recipient_lists::OnChooseBook() {
    const std::string book = dialog_.selected_item(book_choice);
    if (curTBook == book)
        return;
    curTBook.assign(book);
    resetListState();
    fillBlocks(0);
}

void recipient_lists::resetListState() {
    pager_.start(curTBook, is_telex() ? NETTYPE_TELEX : NETTYPE_FAX);
    teleList.removeRows();
}

void recipient_lists::OnNewEntry() {
    o_tebul entry{};
    forms::window_handle window = dialog_.window();
    CDialogTeleEntry form(window, &entry, curTBook.bytes, &telebook, 1);
    if (form.DoModal() == entry_stored)
        addEntryRow(entry);
}

void recipient_lists::pick_selected() {
    if (idRecipientMode == recipient_side)
        OnPickEntry();
    if (idRecipientMode == group_side)
        OnPickGroup();
}

void recipient_lists::OnPickEntry() {
    const o_tebul* entry = teleList.selectedRecord();
    if (entry == nullptr)
        return;
    teleSearch.go_on_behind(teleList.selectedRow());
    on_pick_({sending::receiver_string(curTBook, entry->teleid), 0, net_of(*entry)});
}

void recipient_lists::OnPickGroup() {
    const o_tgroup* group = groupList.selectedRecord();
    if (group == nullptr)
        return;
    groupSearch.go_on_behind(groupList.selectedRow());
    on_pick_({std::string{group->groupid.view()}, 1, 0});
}

// The application's own command; the lists show at once what the user has chosen.
void recipient_lists::OnChooseFont(std::int32_t command) {
    CZerdixApp* application = CZerdixApp::current();
    if (application == nullptr)
        return;
    application->OnCommand(command);
    teleList.useListFont();
    groupList.useListFont();
}

void recipient_lists::addEntryRow(const o_tebul& entry) {
    const bool is_telex = net_of(entry) == NETTYPE_TELEX;
    teleList.addRecord(entry, {entry.teleid.view(), entry.comment.view(), entry.tsi.view(),
                               entry.phone.view(),
                               string_text(entry.intern ? send::intern_word : send::extern_word),
                               string_text(is_telex ? send::telex_word : send::fax_word)});
}

int recipient_lists::fillBlocks(int all) {
    if (pager_.is_complete())
        return 0;
    const wait_cursor waits;
    do {
        const auto block = pager_.next();
        if (!block) {
            showMessage(dialog_.window(), send::no_entries);
            return 0;
        }
        for (const o_tebul& entry : *block)
            addEntryRow(entry);
    } while (all != 0 && !pager_.is_complete());
    return 1;
}

// On the last row that was fetched, the next block follows.
void recipient_lists::OnSelectionMoved() {
    const o_tebul* entry = teleList.selectedRecord();
    if (entry != nullptr && entry->teleid == pager_.last_key())
        fillBlocks(0);
}

void recipient_lists::OnScroll() {
    if (teleList.isInView(teleList.rowCount() - 1))
        fillBlocks(0);
}

// The search runs while the find dialog stays open, so this handler doesn't keep others out.
void recipient_lists::OnFind() {
    const bool recipients = idRecipientMode == recipient_side;
    forms::window_handle window = dialog_.window();
    CDialogFind find(window, recipients ? search_recipients : search_groups);
    pFindDialog = &find;
    find.DoModal();
    pFindDialog = nullptr;
}

void recipient_lists::OnFindInRecipients() {
    teleList.unselectAll();
    fillBlocks(1);
    searchList(teleList, teleSearch);
}

void recipient_lists::OnFindInGroups() {
    groupList.unselectAll();
    searchList(groupList, groupSearch);
}

void recipient_lists::searchList(CSftList& list, list_search& search) {
    switch (search.next(list, searchText())) {
    case list_search::end::found:
        if (pFindDialog != nullptr)
            pFindDialog->ready();
        return;
    case list_search::end::not_found:
        return tellNotFound(send::not_found);
    case list_search::end::bad_text:
        return tellNotFound(text_bad_search);
    }
}

// The dialog stays disabled until the find dialog ends; without one nobody would enable it again.
void recipient_lists::tellNotFound(std::int32_t message) {
    const std::string told = string_text(message);
    forms::window_handle window = dialog_.window();
    CDialogNotify(window, &told).DoModal();
    if (pFindDialog != nullptr) {
        forms::current_presenter().enable(window, false);
        pFindDialog->ready();
    }
}

} // namespace zerdix::dialogs
