// SPDX-License-Identifier: MIT
#include "dialogs/entry_dialog.h"

#include <algorithm>

#include <zerdix/values.h>

#include "dialogs/message.h"
#include "dialogs/templates.h"

namespace zerdix::dialogs {

using forms::control_event;

namespace {

enum control : std::int32_t {
    ok_button = 1901,
    cancel_button = 1902,
    external = 1903,
    internal = 1904,
    fax = 1905,
    telex = 1906,
    name_edit = 1908,
    comment_edit = 1911,
    station_edit = 1913,
    number_edit = 1915,
};

enum message : std::int32_t {
    no_right = 491,
    bad_input = 511,
    not_stored = 1298,
    entry_exists = 1456,
    not_looked_up = 1459,
};

bool is_letter_or_digit(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

} // namespace

bool isTeleIdChar(unsigned char c) {
    constexpr std::string_view others = "\b#._-+";
    return is_letter_or_digit(c) || (c >= 0x81 && c <= 0xfe) ||
           others.find(static_cast<char>(c)) != std::string_view::npos;
}

CDialogTeleEntry::CDialogTeleEntry(forms::window_handle& parent, o_tebul* record,
                                   const char* tbookid, TELEBOOK* telebook, int isNew)
    : CDialogDriver(entry_form, parent), pRecord(record), work{}, book(tbookid),
      pTelebook(telebook), fNew(isNew) {
    work.nettype = NETTYPE_FAX;
    if (fNew == 0)
        work = *record;
    on(ok_button, control_event::clicked, [this] { OnOk(); });
    on(cancel_button, control_event::clicked, [this] { OnCancel(); });
}

bool CDialogTeleEntry::OnInitDialog() {
    set_limit(name_edit, 10);
    set_limit(comment_edit, 30);
    set_limit(station_edit, 20);
    set_limit(number_edit, 30);
    set_filter(name_edit, CEditTeleId::takes);
    showRecord();
    set_focus(name_edit);
    return false;
}

void CDialogTeleEntry::showRecord() {
    set_text(name_edit, work.teleid.view());
    set_read_only(name_edit, fNew == 0);
    set_text(comment_edit, work.comment.view());
    set_text(station_edit, work.tsi.view());
    set_text(number_edit, work.phone.view());
    check(work.intern ? internal : external);
    check(work.nettype == NETTYPE_TELEX ? telex : fax);
}

void CDialogTeleEntry::OnOk() {
    if (fNew != 0 && !acceptsNewId())
        return;
    readRecord();
    const std::int32_t result = pTelebook->putTBookEntry(&work);
    if (result == call_refused)
        return refuse(no_right);
    if (result == call_failed || result == call_without_connection)
        return refuse(not_stored);
    *pRecord = work;
    EndDialog(ok_button);
}

// Pasted text hasn't gone through the field's filter.
bool CDialogTeleEntry::acceptsNewId() {
    const std::string id = text(name_edit, 10);
    if (id.empty() || !std::all_of(id.rbegin(), id.rend(), [](char c) {
            return isTeleIdChar(static_cast<unsigned char>(c));
        })) {
        refuse(bad_input);
        set_focus(name_edit);
        return false;
    }
    const o_tebul* there = pTelebook->getTBookEntry(book.c_str(), id.c_str(), 1);
    if (there != nullptr && there->tbookid.empty())
        return true;
    refuse(there == nullptr ? not_looked_up : entry_exists);
    return false;
}

void CDialogTeleEntry::refuse(std::int32_t stringId) {
    showMessage(window_, stringId);
}

void CDialogTeleEntry::readRecord() {
    work.teleid.assign(text(name_edit));
    work.comment.assign(text(comment_edit));
    work.tsi.assign(text(station_edit));
    work.phone.assign(text(number_edit));
    work.intern = is_checked(internal);
    work.nettype = is_checked(telex) ? NETTYPE_TELEX : NETTYPE_FAX;
    work.tbookid.assign(book);
}

void CDialogTeleEntry::OnCancel() {
    EndDialog(cancel_button);
}

} // namespace zerdix::dialogs
