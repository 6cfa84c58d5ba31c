// SPDX-License-Identifier: MIT
// A document as a user names it: 17, or in:17, out:17, desk:17 when the number alone won't do.
#ifndef ZERDIX_APP_DOCUMENTS_DOCUMENT_NAME_H
#define ZERDIX_APP_DOCUMENTS_DOCUMENT_NAME_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <zerdix/records.h>

#include "session/user_session.h"

namespace zerdix::app {

struct document {
    topftype pool;
    std::int32_t id;
};

struct document_name {
    std::optional<topftype> pool;
    std::int32_t id;
};

// "incoming", "outgoing" or "desk".
const char* pool_word(topftype pool);

// The pool of such a word, or of "in" and "out".
std::optional<topftype> pool_of_word(std::string_view word);

// "incoming document 17".
std::string name_of(const document& which);

// Throw failure for a text that names none.
document_name read_document_name(const std::string& typed);
void check_document_names(const std::vector<std::string>& typed);

// Where it lies; a bare number is looked for in all pools. Throws failure when there is none of
// that number, and when there are several.
document find_document(user_session& user, const std::string& typed);

// The same for what can be done in one pool alone; `rule` is the sentence that says so.
document find_document(user_session& user, const std::string& typed, topftype pool,
                       const char* rule);

} // namespace zerdix::app

#endif
