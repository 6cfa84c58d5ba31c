// SPDX-License-Identifier: MIT
#include "dialogs/user_select.h"

#include <cstring>

#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "dialogs/kept_setting.h"
#include "dialogs/message.h"
#include "dialogs/templates.h"

namespace zerdix::dialogs {

using forms::control_event;

namespace {

enum control : std::int32_t { ok_button = 2451, cancel_button = 2452, users = 2453 };

constexpr std::int32_t titles[] = {1338, 1339, 1340};
constexpr std::int32_t nothing_chosen = 1273;

constexpr const char* user_key = "User-Userid";
constexpr const char* server_key = "User-Alphaid";
constexpr std::size_t user_width = 12;
constexpr std::size_t server_width = 37;

} // namespace

CDialogUserSelect::CDialogUserSelect(forms::window_handle& parent, char* user, char* server)
    : CDialogDriver(user_form, parent),
      pUsers(pzerdix != nullptr ? pzerdix->getUserList() : nullptr),
      lUserCount(pUsers != nullptr ? pUsers->getSize() : 0), pUserid(user), pAlphaid(server) {
    on(ok_button, control_event::clicked, [this] { OnOk(); });
    on(users, control_event::double_clicked, [this] { OnOk(); });
    on(cancel_button, control_event::clicked, [this] { OnCancel(); });
}

CDialogUserSelect::~CDialogUserSelect() {
    if (!fOpened)
        return;
    keep_text(user_key, rememberedUser.view());
    keep_text(server_key, rememberedServer.view());
}

bool CDialogUserSelect::OnInitDialog() {
    userList.attach(list(users));
    userList.setupColumns({.titles = titles, .second = 1, .own_font = false});
    readRemembered();
    fillList();
    set_focus(users);
    return false;
}

void CDialogUserSelect::readRemembered() {
    rememberedUser.assign(kept_text(user_key, ZERDIX::clsGetUserId(), user_width));
    rememberedServer.assign(kept_text(server_key, ZERDIX::clsGetAlphaServer(), server_width));
    fOpened = true;
}

void CDialogUserSelect::fillList() {
    std::int32_t remembered = 0;
    for (std::uint32_t i = 0; i < lUserCount; ++i) {
        const auto& user = *static_cast<const o_user_rec*>((*pUsers)[i]);
        userList.addRow({user.userid.view(), user.comment.view(), user.alphaid.view()});
        if (user.userid == rememberedUser && user.alphaid == rememberedServer)
            remembered = static_cast<std::int32_t>(i);
    }
    userList.selectRow(remembered);
    userList.showRow(remembered);
}

void CDialogUserSelect::OnOk() {
    const std::int32_t row = userList.selectedRow();
    if (row < 0) {
        showMessage(window_, nothing_chosen);
        return;
    }
    const auto& user = *static_cast<const o_user_rec*>((*pUsers)[static_cast<std::uint32_t>(row)]);
    rememberedUser.assign(user.userid.view());
    rememberedServer.assign(user.alphaid.view());
    std::memcpy(pUserid, rememberedUser.bytes, sizeof rememberedUser.bytes);
    std::memcpy(pAlphaid, rememberedServer.bytes, sizeof rememberedServer.bytes);
    EndDialog(ok_button);
}

void CDialogUserSelect::OnCancel() {
    EndDialog(cancel_button);
}

} // namespace zerdix::dialogs
