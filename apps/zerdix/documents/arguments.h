// SPDX-License-Identifier: MIT
// Arguments that name documents.
#ifndef ZERDIX_APP_DOCUMENTS_ARGUMENTS_H
#define ZERDIX_APP_DOCUMENTS_ARGUMENTS_H

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace zerdix::app {

inline void add_document(CLI::App& command, std::string& place) {
    command.add_option("ID", place, "The document: 17, in:17, out:17 or desk:17")
        ->required()
        ->option_text(" ");
}

inline void add_documents(CLI::App& command, std::vector<std::string>& places) {
    command.add_option("ID", places, "The documents: 17, in:17, out:17 or desk:17")
        ->required()
        ->option_text("...");
}

} // namespace zerdix::app

#endif
