// SPDX-License-Identifier: MIT
#include "pictures/page_fetch.h"

#include "output/failure.h"
#include "platform/encoding.h"
#include "session/connection_probe.h"

namespace zerdix::app {

namespace {

// Picture types.
constexpr std::int16_t compressed_bitmap = 0;
constexpr std::int16_t text_types[] = {6, 4, 10}; // telex, text, text of a cover

const char* place_of(topftype pool) {
    if (pool == TOPF_E)
        return "among the incoming documents";
    return pool == TOPF_S ? "among the outgoing documents" : "on the desk";
}

std::string name_of(const wanted_page& wanted) {
    return "page " + std::to_string(wanted.page) + " of document " +
           std::to_string(wanted.document);
}

const page_dat& fetch(JOURNAL& journal, const wanted_page& wanted, std::int16_t type,
                      const std::string& host) {
    const call_probe watch;
    const page_dat* page = journal.getDocPage(wanted.pool, wanted.document,
                                              static_cast<std::int16_t>(wanted.page), type);
    if (page != nullptr)
        return *page;
    const failure_cause why = watch.explain(host);
    throw failure(why.code, "fetching " + name_of(wanted) + " failed: " + why.cause);
}

bool has_text(std::int32_t mask) {
    for (const std::int16_t type : text_types) {
        if ((mask >> type & 1) != 0)
            return true;
    }
    return false;
}

failure no_such_page(JOURNAL& journal, const wanted_page& wanted, const char* form) {
    const std::string document = "document " + std::to_string(wanted.document);
    const a_get_inf_o* info = journal.getDocInf(wanted.pool, wanted.document, 0);
    if (info == nullptr || info->pagecount <= 0)
        return {exit_no_input, "there is no " + document + " with pages " + place_of(wanted.pool)};
    if (wanted.page > info->pagecount)
        return {exit_no_input, document + " has no page " + std::to_string(wanted.page) +
                                   ", only " + std::to_string(info->pagecount)};
    const auto index = static_cast<std::size_t>(wanted.page) - 1;
    const std::int32_t mask = index < info->pagemasks.size() ? info->pagemasks[index] : 0;
    return {exit_no_input, name_of(wanted) + " has no " + form +
                               (has_text(mask) ? "; it has a text, for a file named .txt" : "")};
}

} // namespace

page_picture fetch_picture(JOURNAL& journal, const wanted_page& wanted, const std::string& host) {
    const page_dat& page = fetch(journal, wanted, compressed_bitmap, host);
    if (page.size == 0)
        throw no_such_page(journal, wanted, "picture");
    try {
        return expand_page(page.data, page.size);
    } catch (const failure& error) {
        throw failure(error.code(), name_of(wanted) + ' ' + error.what());
    }
}

std::string fetch_text(JOURNAL& journal, const wanted_page& wanted, const std::string& host) {
    for (const std::int16_t type : text_types) {
        const page_dat& page = fetch(journal, wanted, type, host);
        if (page.size > 0)
            return platform::cp1252_to_utf8({reinterpret_cast<const char*>(page.data), page.size});
    }
    throw no_such_page(journal, wanted, "text");
}

} // namespace zerdix::app
