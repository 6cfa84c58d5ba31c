// SPDX-License-Identifier: MIT
// The dialog that picks the user on whose desk a document is placed.
#ifndef ZERDIX_DIALOGS_USER_SELECT_H
#define ZERDIX_DIALOGS_USER_SELECT_H

#include <cstdint>

#include <zerdix/ptrlist.h>
#include <zerdix/records.h>

#include "dialogs/modal_dialog.h"
#include "dialogs/sft_list.h"

namespace zerdix::dialogs {

// DoModal: 2451 with the two buffers filled, else 2452.
class CDialogUserSelect final : public CDialogDriver {
  public:
    // `user` has room for 11 bytes, `server` for 36. The users are those of the print job's
    // session; none when they can't be had.
    CDialogUserSelect(forms::window_handle& parent, char* user, char* server);
    // Keeps the remembered user in the settings.
    ~CDialogUserSelect() override;

  private:
    bool OnInitDialog() override;
    void OnCancel() override;
    void OnOk();
    void readRemembered();
    void fillList();

    PTRLIST* pUsers;
    std::uint32_t lUserCount;
    char* pUserid;
    char* pAlphaid;
    str10 rememberedUser{};
    str35 rememberedServer{};
    bool fOpened = false;
    CSftList userList;
};

} // namespace zerdix::dialogs

#endif
