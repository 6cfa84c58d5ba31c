// SPDX-License-Identifier: MIT
#include "dialogs/stored_sending.h"

#include <zerdix/book_entry.h>
#include <zerdix/values.h>

#include "common/string_table.h"
#include "cover/state.h"
#include "dialogs/message.h"
#include "imaging/owned_bitmap.h"
#include "sending/telex_record.h"
#include "sending/telex_sender.h"

namespace zerdix::dialogs {

namespace {

enum stored_text : std::int32_t {
    no_fax_data = 512,
    no_telex_data = 513,
    not_copied = 1223,
    not_made = 1235,
    not_sent = 1242,
    no_cover_page = 1469,
};

constexpr std::int16_t first_page = 1;
constexpr std::size_t told_limit = 199;

void tell_count(std::int32_t stringId, std::int32_t count) {
    if (count != 0)
        AfxMessageBox(common::string_text_with(stringId, count).substr(0, told_limit));
}

} // namespace

stored_sending::stored_sending(JOURNAL& journal, TELEBOOK& telebook, const a_s_rec& record,
                               bool withCover, forms::window_handle window)
    : journal_(journal), telebook_(telebook), record_(record), outcome_(sending::stored_outcome()),
      steps_(journal_, record_, outcome_), withCover_(withCover && record.nettype != NETTYPE_TELEX),
      window_(window) {
    if (withCover_)
        session_.emplace();
}

// What the composer keeps of a session goes with the object that it came from.
stored_sending::~stored_sending() {
    cover::forget_session();
}

void stored_sending::send(std::int32_t& document, std::string_view comment,
                          const std::vector<final_receiver>& receivers) {
    const std::int32_t original = document;
    record_.comment.assign(comment);
    const std::size_t first = name(receivers);
    for (std::size_t i = 0; i < receivers.size(); ++i) {
        receiver_ = first + i;
        record_.phone.assign(receivers[i].text);
        if (withCover_ && !addCover(original, document))
            return;
        sendTo(receivers[i], document);
    }
}

// All in front of the first one is sent, so that those of a failed cover page show as not tried.
std::size_t stored_sending::name(const std::vector<final_receiver>& receivers) {
    std::size_t first = 0;
    for (std::size_t i = 0; i < receivers.size(); ++i) {
        const std::size_t index = outcome_.name_receiver(receivers[i].text);
        first = i == 0 ? index : first;
    }
    return first;
}

void stored_sending::tellFailures() const {
    tell_count(no_fax_data, failedFax);
    tell_count(no_telex_data, failedTelex);
}

bool stored_sending::addCover(std::int32_t original, std::int32_t& document) {
    std::int32_t made = 0;
    if (!copyOf(original, made) || !storeCover(made))
        return false;
    document = made;
    return true;
}

bool stored_sending::copyOf(std::int32_t original, std::int32_t& made) {
    made = steps_.make_document();
    if (made == sending::no_document)
        return refuse(not_made);
    return steps_.copy(original, made) || refuse(not_copied);
}

bool stored_sending::storeCover(std::int32_t made) {
    imaging::owned_bitmap bitmap;
    if (!steps_.compose_cover(session_->object(), bitmap, made)) {
        refuse(no_cover_page);
        steps_.remove(made);
        return false;
    }
    // The record counts cover pages, of all jobs: the server knows each document's pages.
    const auto pages = static_cast<std::int16_t>(record_.pages + 1);
    return steps_.store_cover(bitmap, made, pages) == sending::sender::cover_end::stored ||
           refuse(not_sent);
}

void stored_sending::sendTo(const final_receiver& receiver, std::int32_t document) {
    const rpc::failed_call_mark calls;
    const a_get_inf_o* inf = journal_.getDocInf(TOPF_P, document, 0);
    if (inf == nullptr) {
        outcome_.failed(ZX_STEP_INSPECT, calls.any_failed() ? rpc::call_failed : rpc::no_client);
        refuse(not_sent);
        return;
    }
    const std::int32_t mask = inf->pagemasks[0];
    if (lacksTelexData(receiver, mask))
        lacksData(failedTelex);
    else if (record_.nettype == NETTYPE_TELEX)
        sendTelex(document, mask);
    else
        sendPages(document, mask);
}

// A member of a group may have become a telex entry, or gone, since the group was read.
bool stored_sending::lacksTelexData(const final_receiver& receiver, std::int32_t mask) {
    if (receiver.isGroup == 0)
        return receiver.nettype == NETTYPE_TELEX && !has_telex_data(mask);
    const book_entry named = parse_book_entry(receiver.text).value_or(book_entry{});
    const o_tebul* entry = telebook_.getTBookEntry(named.book.c_str(), named.entry.c_str(), 1);
    return entry == nullptr ||
           (entry->nettype == NETTYPE_TELEX && !has_picture(mask, picture_telex));
}

void stored_sending::sendTelex(std::int32_t document, std::int32_t mask) {
    if (!has_telex_data(mask)) {
        lacksData(failedTelex);
        return;
    }
    const picture_type type = has_picture(mask, picture_telex) ? picture_telex : picture_text;
    const page_dat* text = journal_.getDocPage(TOPF_P, document, first_page, type);
    const bool has_text = text != nullptr && text->size != 0;
    if (!has_text)
        outcome_.failed(ZX_STEP_INSPECT, 0);
    if (!has_text || !printTelex(*text, type))
        refuse(not_sent);
}

// A print document of its own for each receiver, in the name of the session's user. On a failure
// what was made until then stays on the server.
bool stored_sending::printTelex(const page_dat& text, std::int16_t type) {
    sending::telex_sender telex(journal_, outcome_);
    const std::int32_t document = telex.make_document();
    if (document == sending::no_document)
        return false;
    std::string content = sending::control_record(record_, ZERDIX::clsGetUserId(),
                                                  sending::telex_send_time(record_.sendtime));
    content.append(reinterpret_cast<const char*>(text.data), text.size);
    return telex.print(document, content, type, receiver_) == sending::telex_sender::end::printed &&
           telex.remove(document);
}

void stored_sending::sendPages(std::int32_t document, std::int32_t mask) {
    if (!has_fax_data(mask))
        lacksData(failedFax);
    else if (!steps_.send(document, receiver_))
        refuse(not_sent);
}

void stored_sending::lacksData(std::int32_t& count) {
    ++count;
    outcome_.failed(ZX_STEP_INSPECT, 0);
}

bool stored_sending::refuse(std::int32_t stringId) {
    showMessage(window_, stringId);
    return false;
}

} // namespace zerdix::dialogs
