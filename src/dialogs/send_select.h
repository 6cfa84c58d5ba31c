// The send dialog: when, how and to whom a document goes.
//
// For a print job it leaves its choices in the job's state (zerdix/sendfax.h) and sends nothing
// itself. On documents that are stored already it sends them (dialogs/stored_sending.h).
//
// One handler at a time works on the lists: those that could be started by the message loop of a
// dialog that another one has opened look at fUpdating first.
#ifndef ZERDIX_DIALOGS_SEND_SELECT_H
#define ZERDIX_DIALOGS_SEND_SELECT_H

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <zerdix/journal.h>
#include <zerdix/telebook.h>

#include "dialogs/driver.h"
#include "dialogs/find.h"
#include "dialogs/recipients.h"
#include "dialogs/remote_wait.h"
#include "dialogs/sft_list.h"

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

    // Keeps the chosen phone book in the settings, however the dialog ended.
    ~CDialogSendSelect() override;

    // 2301 accepted, 2302 cancelled; anything else: it couldn't run.
    std::int32_t DoModal() override;

  private:
    explicit CDialogSendSelect(forms::window_handle& parent);
    void mapMessages();
    void mapListMessages();
    // Runs the handler unless another one is at work on the lists.
    void guarded(void (CDialogSendSelect::*handler)());

    // Opening (send_select_opening.cpp).
    bool OnInitDialog() override;
    void showNetTypes();
    void setLimits();
    void showComment();
    // Of the document with that index.
    std::string_view storedComment(std::size_t index) const;

    // Sides, phone books and the buttons beside them (send_select_sides.cpp).
    void OnRecipientSide();
    void OnGroupSide();
    bool setUpBooks();
    void showSide(std::int32_t mode);
    void OnFax();
    void OnTelex();
    void switchNetType(std::int32_t id);
    void OnChooseBook();
    void resetListState();
    void OnNewEntry();
    void OnStoreOnDesk();

    // Rows, blocks and the search (send_select_lists.cpp).
    void setUpLists();
    void OnChooseFont(std::int32_t command);
    void addEntryRow(const o_tebul& entry);
    // One block of the chosen book, or all that are left. 0 when a block failed or all were there.
    int fillBlocks(int all);
    PTRLIST* fetchBlock();
    void addBlock(PTRLIST& block);
    // False when they couldn't be had, which the user has been told.
    bool fillGroups();
    void OnSelectionMoved();
    void OnScroll();
    void OnFind();
    void OnFindInRecipients();
    void OnFindInGroups();
    int searchList(CSftList& list, std::int32_t& lastHit);
    int tellNotFound(std::int32_t message);

    // Picks (send_select_picks.cpp).
    void addPick(recipient_pick pick);
    void showUnconfirmed();
    void OnAdd();
    void OnPickEntry();
    void OnPickGroup();
    void OnReset();

    // "OK" and cancelling (send_select_accept.cpp).
    void OnAccept();
    void OnCancel() override;
    void saveColumns();
    // The number of the message that tells why the dialog stays open, 0 when it ends.
    std::int32_t acceptInput();
    bool takeLastPick();
    std::int32_t readSettings();
    bool readSendTime();
    bool readRetries();
    void readPriority();
    bool handOver();
    void sendStored();

    int fUpdating = 0;
    int fAccepting = 0; // "OK" is at work
    int fTeleListEmpty = 1;
    int fGroupListEmpty = 1;
    int fListComplete = 0;
    str10 startKey{};
    std::set<std::string> seenKeys; // all values of startKey since the list was empty
    std::int32_t lBlockSize;
    std::int32_t lRowCount = 0;
    std::int32_t* pfCover = nullptr;
    char** ppJobReceiver = nullptr;
    std::vector<recipient_pick> pPicks;
    std::vector<final_receiver> ppFinal;
    std::size_t lShownLength = 0;
    a_s_rec* pSRec = nullptr;
    JOURNAL* pJournalForSend = nullptr;
    std::int32_t* pDocIds = nullptr;
    const char* pDocComments = nullptr;
    std::int32_t idNetType;
    std::int32_t idRecipientMode = 0;
    str10 curTBook{};
    CSftList teleList;
    CSftList groupList;
    TELEBOOK telebook;
    std::int32_t lLastTeleHit = -1;
    std::int32_t lLastGroupHit = -1;
    CDialogFind* pFindDialog = nullptr;
    a_s_rec sRecWork{};
};

} // namespace zerdix::dialogs

#endif
