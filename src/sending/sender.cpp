// SPDX-License-Identifier: MIT
#include "sending/sender.h"

#include <cstdlib>

#include <zerdix/values.h>

#include "cover/composer.h"
#include "imaging/page_forms.h"
#include "journal/sent_document.h"
#include "rpc/call.h"

namespace zerdix::sending {

namespace {

constexpr std::int16_t first_page = 1;

} // namespace

std::int32_t sender::make_document() {
    return made_document(result_, [this] { return journal_.makeDoc(); });
}

bool sender::note(zx_step step, std::int32_t rc) {
    if (rc != rpc::success)
        result_.failed(step, rc);
    return rc == rpc::success;
}

bool sender::copy(std::int32_t from, std::int32_t to) {
    return note(ZX_STEP_COPY, journal_.copyDoc(TOPF_P, from, to));
}

bool sender::compose_cover(ZERDIX& session, imaging::LeadBitmap& bitmap, std::int32_t document) {
    const rpc::failed_call_mark calls;
    if (cover::InsertCoverPage(&session, &journal_, &bitmap, &record_, document) != 1) {
        result_.failed(ZX_STEP_COVER, calls.any_failed() ? rpc::call_failed : 0);
        return false;
    }
    record_.faxid = document;
    return true;
}

sender::cover_end sender::store_cover(imaging::LeadBitmap& bitmap, std::int32_t document,
                                      std::int16_t pages) {
    page_dat page{0, nullptr};
    if (imaging::ConvertLeadToCompressedFax(&page, &bitmap, 0) != 1) {
        result_.failed(ZX_STEP_COVER, 0);
        return cover_end::not_converted;
    }
    record_.pages = pages;
    const std::int32_t rc = journal_.putDocPage(document, first_page, picture_page, &page);
    std::free(page.data);
    return note(ZX_STEP_STORE, rc) ? cover_end::stored : cover_end::not_stored;
}

bool sender::send(std::int32_t document, std::size_t receiver) {
    const std::int32_t rc = journal_.sendDoc(document, &record_);
    if (rc == rpc::success)
        result_.delivered(receiver, document, journal::sent_document());
    else
        result_.not_delivered(receiver, document, rc);
    return note(ZX_STEP_SEND, rc);
}

bool sender::remove(std::int32_t document) {
    const bool gone = note(ZX_STEP_DELETE, journal_.delDoc(TOPF_P, document));
    if (gone)
        result_.gone(document);
    return gone;
}

} // namespace zerdix::sending
