// SPDX-License-Identifier: MIT
// The part of the send dialog from which recipients are picked: the entries of a phone book on one
// side, recipient groups on the other, and the search in both.
//
// One handler at a time works on the lists: those that could be started by the message loop of a
// dialog that another one has opened look at fUpdating first.
#ifndef ZERDIX_DIALOGS_RECIPIENT_LISTS_H
#define ZERDIX_DIALOGS_RECIPIENT_LISTS_H

#include <cstdint>
#include <functional>

#include <zerdix/telebook.h>

#include "dialogs/entry_pager.h"
#include "dialogs/find_dialog.h"
#include "dialogs/list_search.h"
#include "dialogs/recipient_picks.h"
#include "dialogs/sft_list.h"
#include "forms/dialog.h"

namespace zerdix::dialogs {

class recipient_lists {
  public:
    // The dialog has the controls of send_controls.h and outlives this part of it. `on_pick` takes
    // what the user picks.
    recipient_lists(forms::dialog& dialog, std::function<void(recipient_pick)> on_pick);
    // Keeps the chosen phone book in the settings.
    ~recipient_lists();
    recipient_lists(const recipient_lists&) = delete;
    recipient_lists& operator=(const recipient_lists&) = delete;

    // The net whose entries show; `control` is the one that stands for it. Before the dialog opens.
    void set_net_type(std::int32_t control) { idNetType = control; }
    // How the lists stand when the dialog opens. Nothing is fetched for it.
    void set_up();

    // Picks the selected row of the side that shows, if there is one.
    void pick_selected();
    void unselect();
    void save_columns();

    bool is_telex() const;
    TELEBOOK& phone_book() { return telebook; }

  private:
    void map_messages();
    // Runs the handler unless another one is at work on the lists.
    void guarded(void (recipient_lists::*handler)());

    void OnRecipientSide();
    void OnGroupSide();
    bool setUpBooks();
    // False when they couldn't be had, which the user has been told.
    bool fillGroups();
    void showSide(std::int32_t mode);
    void OnFax();
    void OnTelex();
    void switchNetType(std::int32_t id);
    void OnChooseBook();
    void resetListState();
    void OnNewEntry();
    void OnPickEntry();
    void OnPickGroup();
    void OnChooseFont(std::int32_t command);

    void addEntryRow(const o_tebul& entry);
    // One block of the chosen book, or all that are left. 0 when a block failed or all were there.
    int fillBlocks(int all);
    void OnSelectionMoved();
    void OnScroll();

    void OnFind();
    void OnFindInRecipients();
    void OnFindInGroups();
    void searchList(CSftList& list, list_search& search);
    void tellNotFound(std::int32_t message);

    forms::dialog& dialog_;
    std::function<void(recipient_pick)> on_pick_;
    int fUpdating = 0;
    int fTeleListEmpty = 1;
    int fGroupListEmpty = 1;
    std::int32_t idNetType;
    std::int32_t idRecipientMode = 0;
    str10 curTBook{};
    TELEBOOK telebook;
    entry_pager pager_;
    CRecordList<o_tebul> teleList;
    CRecordList<o_tgroup> groupList;
    list_search teleSearch;
    list_search groupSearch;
    CDialogFind* pFindDialog = nullptr;
};

} // namespace zerdix::dialogs

#endif
