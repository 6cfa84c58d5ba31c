// SPDX-License-Identifier: MIT
// The dialog for an entry of a phone book, and edit fields that don't take every character.
#ifndef ZERDIX_DIALOGS_ENTRY_DIALOG_H
#define ZERDIX_DIALOGS_ENTRY_DIALOG_H

#include <cstdint>
#include <string>

#include <zerdix/telebook.h>

#include "dialogs/modal_dialog.h"

namespace zerdix::dialogs {

// Whether an entry's id may hold the byte.
bool isTeleIdChar(unsigned char c);

// Edit fields that swallow what `takes` refuses.
struct CEditTeleId {
    static bool takes(unsigned char c) { return isTeleIdChar(c); }
};
struct CEditDigits {
    static bool takes(unsigned char c) { return (c >= '0' && c <= '9') || c == '\b'; }
};

// DoModal: 1901 the entry is stored, 1902 cancelled.
class CDialogTeleEntry final : public CDialogDriver {
  public:
    // With `isNew` 1 the dialog starts empty, and `record` is only written when the entry is
    // stored; else it starts with the record. Record, id and phone book outlive the dialog.
    CDialogTeleEntry(forms::window_handle& parent, o_tebul* record, const char* tbookid,
                     TELEBOOK* telebook, int isNew);

  private:
    bool OnInitDialog() override;
    void OnCancel() override;
    void OnOk();
    bool acceptsNewId();
    void refuse(std::int32_t stringId);
    void showRecord();
    void readRecord();

    o_tebul* pRecord;
    o_tebul work;
    std::string book;
    TELEBOOK* pTelebook;
    int fNew;
};

} // namespace zerdix::dialogs

#endif
