// SPDX-License-Identifier: MIT
#include "cover/composer.h"

#include <zerdix/values.h>

#include <algorithm>

#include "common/show_message.h"
#include "cover/page_painter.h"
#include "cover/state.h"

namespace zerdix::cover {

namespace {

using common::show_message;
using imaging::LeadBitmap;

// Numbers of messages.
constexpr std::int32_t no_user = 1204;
constexpr std::int32_t no_room = 1232;
constexpr std::int32_t no_template = 1264;

// Of the template's page 1 and of the new page.
constexpr std::int16_t first_page = 1;

// 0 when the server names none. A failed call doesn't count as an answer.
std::int32_t template_id(JOURNAL& journal) {
    std::int32_t& lCoverDocId = state().lCoverDocId;
    if (lCoverDocId == 0)
        lCoverDocId = std::max(journal.getCoverId(), 0);
    return lCoverDocId;
}

// Null when the template has no such picture.
const page_dat* template_picture(JOURNAL& journal, std::int16_t type) {
    const std::int32_t id = template_id(journal);
    const page_dat* page = id != 0 ? journal.getDocPage(TOPF_P, id, first_page, type) : nullptr;
    return page != nullptr && page->size != 0 ? page : nullptr;
}

// Fetched when first needed, and kept while the session and its user stay the same.
const o_user_rec* cover_user(ZERDIX& session) {
    std::optional<kept_user>& pCoverUser = state().pCoverUser;
    const std::string_view userid = ZERDIX::clsGetUserId();
    if (pCoverUser && pCoverUser->session == &session && pCoverUser->userid == userid)
        return &pCoverUser->record;
    pCoverUser.reset();
    const o_user_rec* record = session.getOUserRecord();
    if (record == nullptr)
        return nullptr;
    pCoverUser = kept_user{&session, {}, *record};
    pCoverUser->userid.assign(userid);
    return &pCoverUser->record;
}

class server_content final : public page_content {
  public:
    explicit server_content(ZERDIX& session) : session_(session) {}

    const page_dat* signature() override { return session_.getSignature(); }

    const o_tebul* find_entry() override {
        o_tebul* entry = nullptr;
        return FindReceiverEntry(record, &entry) == 1 ? entry : nullptr;
    }

  private:
    ZERDIX& session_;
};

struct sources {
    ZERDIX& session;
    JOURNAL& journal;
};

// A form that can't be expanded leaves the bitmap empty, and the painter can't open it.
bool compose(sources from, const page_dat& form, LeadBitmap& bitmap, server_content& content) {
    state().form.expand(form);
    state().form.copy_to(bitmap);
    auto painter = page_painter::open(bitmap);
    if (!painter)
        return false;
    const page_dat* text = template_picture(from.journal, picture_cover_text);
    if (text == nullptr)
        return true;
    content.user = cover_user(from.session);
    if (content.user == nullptr) {
        show_message(no_user);
        return false;
    }
    return painter->draw({reinterpret_cast<const char*>(text->data), text->size}, content,
                         state().signature);
}

} // namespace

int InsertCoverPage(ZERDIX* session, JOURNAL* journal, LeadBitmap* bitmap, const a_s_rec* record,
                    std::int32_t faxid) {
    FreeLeadBitmap(bitmap);
    const page_dat* form = template_picture(*journal, picture_page);
    if (form == nullptr) {
        show_message(no_template);
        return 0;
    }
    if (journal->insertDocPage(faxid, first_page) != 0) {
        show_message(no_room);
        return 0;
    }
    server_content content{*session};
    content.record = record;
    content.document = faxid;
    content.language = ZERDIX::clsGetLanguage();
    if (!compose({*session, *journal}, *form, *bitmap, content)) {
        journal->delPoolPage(faxid, first_page);
        return 0;
    }
    if (bitmap->width > bitmap->height)
        L_RotateBitmap(bitmap, -90, 1);
    return 1;
}

} // namespace zerdix::cover
