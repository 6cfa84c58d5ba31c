// SPDX-License-Identifier: MIT
// The commands that carry a phone book to a file and back.
#ifndef ZERDIX_APP_BOOKS_BOOK_TRANSFER_H
#define ZERDIX_APP_BOOKS_BOOK_TRANSFER_H

#include <CLI/CLI.hpp>

namespace zerdix::app {

void add_book_export(CLI::App& group);
void add_book_import(CLI::App& group);

} // namespace zerdix::app

#endif
