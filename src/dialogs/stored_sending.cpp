#include "dialogs/stored_sending.h"

#include <cstdlib>

#include "common/string_table.h"
#include "cover/composer.h"
#include "cover/state.h"
#include "dialogs/message.h"
#include "dialogs/telex_print.h"
#include "imaging/owned_bitmap.h"

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

constexpr std::int32_t success = 0;
constexpr std::int16_t first_page = 1;
constexpr std::size_t told_limit = 199;

// Picture types, and the bits of page 1 that stand for data of a kind.
constexpr std::int16_t compressed_bitmap = 0;
constexpr std::int16_t text_page = 4;
constexpr std::int16_t telex_page = 6;
constexpr std::int32_t telex_bit = 1 << telex_page;
constexpr std::int32_t fax_data = 1 << 0 | 1 << 1;
constexpr std::int32_t telex_data = 1 << text_page | telex_bit;

void tell_count(std::int32_t stringId, std::int32_t count) {
    if (count != 0)
        AfxMessageBox(common::string_text_with(stringId, count).substr(0, told_limit));
}

} // namespace

stored_sending::stored_sending(JOURNAL& journal, TELEBOOK& telebook, const a_s_rec& record,
                               bool withCover, platform::window_handle window)
    : journal_(journal), telebook_(telebook), record_(record),
      withCover_(withCover && record.nettype != NETTYPE_TELEX), window_(window) {
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
    for (const final_receiver& receiver : receivers) {
        record_.phone.assign(receiver.text);
        if (withCover_ && !addCover(original, document))
            return;
        sendTo(receiver, document);
    }
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
    made = journal_.makeDoc();
    if (made == 0 || made == -1)
        return refuse(not_made);
    return journal_.copyDoc(TOPF_P, original, made) == success || refuse(not_copied);
}

bool stored_sending::storeCover(std::int32_t made) {
    imaging::owned_bitmap bitmap;
    if (cover::InsertCoverPage(&session_->object(), &journal_, &bitmap, &record_, made) != 1) {
        refuse(no_cover_page);
        journal_.delDoc(TOPF_P, made);
        return false;
    }
    record_.faxid = made;
    page_dat page{0, nullptr};
    if (ConvertLeadToCompressedFax(&page, &bitmap, 0) != 1)
        return refuse(not_sent);
    ++record_.pages; // counts cover pages, of all jobs: the server knows each document's pages
    const std::int32_t stored = journal_.putDocPage(made, first_page, compressed_bitmap, &page);
    std::free(page.data);
    return stored == success || refuse(not_sent);
}

void stored_sending::sendTo(const final_receiver& receiver, std::int32_t document) {
    const a_get_inf_o* inf = journal_.getDocInf(TOPF_P, document, 0);
    if (inf == nullptr) {
        refuse(not_sent);
        return;
    }
    const std::int32_t mask = inf->pagemasks[0];
    if (lacksTelexData(receiver, mask))
        ++failedTelex;
    else if (record_.nettype == NETTYPE_TELEX)
        sendTelex(document, mask);
    else
        sendPages(document, mask);
}

// A member of a group may have become a telex entry, or gone, since the group was read.
bool stored_sending::lacksTelexData(const final_receiver& receiver, std::int32_t mask) {
    if (receiver.isGroup == 0)
        return receiver.nettype == NETTYPE_TELEX && (mask & telex_data) == 0;
    const std::size_t colon = receiver.text.find(':');
    const std::string book = receiver.text.substr(0, colon);
    const o_tebul* entry =
        telebook_.getTBookEntry(book.c_str(), receiver.text.c_str() + colon + 1, 1);
    return entry == nullptr || (entry->nettype == NETTYPE_TELEX && (mask & telex_bit) == 0);
}

void stored_sending::sendTelex(std::int32_t document, std::int32_t mask) {
    if ((mask & telex_data) == 0) {
        ++failedTelex;
        return;
    }
    const std::int16_t type = (mask & telex_bit) != 0 ? telex_page : text_page;
    const page_dat* text = journal_.getDocPage(TOPF_P, document, first_page, type);
    if (text == nullptr || text->size == 0 || !print_telex(journal_, *text, record_, type))
        refuse(not_sent);
}

void stored_sending::sendPages(std::int32_t document, std::int32_t mask) {
    if ((mask & fax_data) == 0)
        ++failedFax;
    else if (journal_.sendDoc(document, &record_) != success)
        refuse(not_sent);
}

bool stored_sending::refuse(std::int32_t stringId) {
    showMessage(window_, stringId);
    return false;
}

} // namespace zerdix::dialogs
