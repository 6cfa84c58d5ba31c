// How the send dialog looks when it opens. Nothing is fetched for it.

#include <cstring>

#include "common/string_table.h"
#include "dialogs/send_controls.h"
#include "dialogs/send_select.h"

namespace zerdix::dialogs {

using enum send::send_control;

bool CDialogSendSelect::OnInitDialog() {
    CDialogDriver::OnInitDialog();
    teleList.attach(list(entry_list));
    groupList.attach(list(group_list));
    enable(find_button, false);
    if (pSRec != nullptr)
        showNetTypes();
    else
        check(fax);
    setLimits();
    check(normal_tariff);
    check(as_stored);
    set_text(retries, "9");
    showComment();
    setUpLists();
    enable(new_button, false);
    set_focus(typed_recipient);
    return false;
}

// A job's net type is fixed, and a telex has no cover page.
void CDialogSendSelect::showNetTypes() {
    show(desk_button);
    const bool is_telex = pSRec->nettype == NETTYPE_TELEX;
    show(is_telex ? fax : telex, false);
    check(is_telex ? telex : fax);
    enable(cover_page, !is_telex);
}

void CDialogSendSelect::setLimits() {
    set_read_only(all_picks);
    set_limit(all_picks, send::picks_limit);
    set_limit(typed_recipient, send::receiver_limit);
    set_limit(send_date, send::date_limit);
    set_limit(send_clock, send::date_limit);
    set_limit(retries, 1);
}

void CDialogSendSelect::showComment() {
    const bool several = pDocIds != nullptr && pDocIds[0] != 0 && pDocIds[1] != 0;
    if (several) {
        set_text(comment, common::string_text(send::several_comments));
        set_read_only(comment);
        return;
    }
    set_limit(comment, send::comment_limit);
    if (pSRec != nullptr)
        set_text(comment, pSRec->comment.view());
    else
        set_text(comment, storedComment(0));
}

std::string_view CDialogSendSelect::storedComment(std::size_t index) const {
    constexpr std::size_t comment_size = send::comment_limit + 1;
    if (pDocComments == nullptr)
        return {};
    const char* text = pDocComments + index * comment_size;
    return {text, ::strnlen(text, send::comment_limit)};
}

} // namespace zerdix::dialogs
