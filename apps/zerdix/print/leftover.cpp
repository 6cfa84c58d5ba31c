// SPDX-License-Identifier: MIT
#include "print/leftover.h"

#include <cstdio>

#include <zerdix/journal.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "platform/encoding.h"
#include "session/new_connection.h"

namespace zerdix::app {

namespace {

enum class removal { gone, refused, unknown };

removal remove(JOURNAL& journal, std::int32_t document) {
    if (journal.delDoc(TOPF_P, document) == 0)
        return removal::gone;
    const a_p_rec* record = journal.getPDoc(document);
    if (record == nullptr)
        return removal::unknown;
    return record->faxid == 0 ? removal::gone : removal::refused;
}

void tell_what_stays(std::int32_t document, removal removed) {
    if (removed == removal::gone)
        return;
    const std::string sentence =
        "zerdix: document " + std::to_string(document) +
        (removed == removal::refused ? " couldn't be deleted and stays" : " may still lie") +
        " on the desk of " + platform::cp1252_to_utf8(ZERDIX::clsGetUserId()) + '\n';
    std::fputs(sentence.c_str(), stderr);
}

} // namespace

void clear_leftover(JOURNAL& journal, std::int32_t document) {
    tell_what_stays(document, remove(journal, document));
}

void clear_leftovers(const std::vector<std::int32_t>& documents, const std::string& host) {
    if (documents.empty())
        return;
    const new_connection connection(host);
    JOURNAL journal;
    for (const std::int32_t document : documents)
        tell_what_stays(document,
                        connection.stands() ? remove(journal, document) : removal::unknown);
}

void clear_leftovers_anywhere(const std::vector<std::int32_t>& documents, const std::string& host) {
    new_connection connection(host);
    JOURNAL journal;
    const std::string user = ZERDIX::clsGetUserId();
    for (const std::int32_t document : documents) {
        connection.session().setUserId(administrator);
        const removal removed = connection.stands() ? remove(journal, document) : removal::unknown;
        connection.session().setUserId(user.c_str());
        tell_what_stays(document, removed);
    }
}

bool clear_print_document(std::int32_t document, const std::string& host) {
    const new_connection connection(host);
    if (!connection.stands())
        return false;
    JOURNAL journal;
    return journal.delPrintDoc(TOPF_P, document) == 0;
}

} // namespace zerdix::app
