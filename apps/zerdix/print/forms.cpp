// SPDX-License-Identifier: MIT
#include "print/forms.h"

#include <string>

#include <zerdix/journal.h>
#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "output/failure.h"
#include "pictures/stored_page.h"

namespace zerdix::app {

namespace {

// The first page of a document as a picture.
void require_form(JOURNAL& journal, std::int32_t document, const std::string& name) {
    const page_dat* form = journal.getDocPage(TOPF_P, document, 1, 0);
    if (form == nullptr)
        return;
    const std::string which = name + ", document " + std::to_string(document) + ',';
    if (form->size == 0)
        throw failure(exit_no_input, which + " has no form that you may read");
    try {
        expand_page(form->data, form->size);
    } catch (const failure& why) {
        throw failure(why.code(), which + ' ' + why.what());
    }
}

} // namespace

void require_cover_form() {
    JOURNAL journal;
    const std::int32_t id = journal.getCoverId();
    if (id == 0)
        throw failure(exit_no_input, "the server names no cover template");
    if (id > 0)
        require_form(journal, id, "the cover template");
}

void require_letterhead(int paper) {
    const a_user_rec* user = pzerdix->getAUserRecord();
    if (user == nullptr)
        return;
    const std::int32_t id = user->papertrays[static_cast<std::size_t>(paper)];
    if (id == 0 && paper == 0)
        return;
    if (id == 0)
        throw failure(exit_no_input, "you have no letterhead for paper " + std::to_string(paper) +
                                         "; \"zerdix letterhead install\" stores one");
    JOURNAL journal;
    require_form(journal, id, "the letterhead for paper " + std::to_string(paper));
}

} // namespace zerdix::app
