// SPDX-License-Identifier: MIT
// The records of documents as JSON objects: what lists and reports show of them.
#ifndef ZERDIX_APP_DOCUMENTS_DOCUMENT_RECORDS_H
#define ZERDIX_APP_DOCUMENTS_DOCUMENT_RECORDS_H

#include <zerdix/records.h>

#include "documents/document_name.h"
#include "output/report.h"

namespace zerdix::app {

// All three have pool, id, title, pages, state and owner. The state is in words, with commas.
json as_json(const a_e_rec& incoming);
json as_json(const a_s_rec& outgoing);
json as_json(const a_p_rec& desk);

// The columns of a pool's table, and the properties of one document.
std::vector<column> list_columns(topftype pool);
std::vector<column> property_columns(topftype pool);

// For a table of several pools: the object with a time and a receiver or sender under names that
// all pools share, and its columns.
json with_shared_names(json document);
std::vector<column> shared_columns();

// The words for the field `resolution` of a send job.
const char* resolution_word(std::int32_t resolution);
std::int32_t resolution_of_word(const std::string& word);

} // namespace zerdix::app

#endif
