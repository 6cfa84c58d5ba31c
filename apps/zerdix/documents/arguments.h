// SPDX-License-Identifier: MIT
// Arguments that name documents.
#ifndef ZERDIX_APP_DOCUMENTS_ARGUMENTS_H
#define ZERDIX_APP_DOCUMENTS_ARGUMENTS_H

#include <string>
#include <vector>

#include "arguments/command.h"

namespace zerdix::app {

inline void add_document(cli::command command, std::string& place) {
    command.add_argument("ID", place, "The document: 17, in:17, out:17 or desk:17");
}

inline void add_documents(cli::command command, std::vector<std::string>& places) {
    command.add_argument("ID", places, "The documents: 17, in:17, out:17 or desk:17");
}

} // namespace zerdix::app

#endif
