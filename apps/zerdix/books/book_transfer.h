// SPDX-License-Identifier: MIT
// The commands that carry a phone book to a file and back.
#ifndef ZERDIX_APP_BOOKS_BOOK_TRANSFER_H
#define ZERDIX_APP_BOOKS_BOOK_TRANSFER_H

#include "arguments/command.h"

namespace zerdix::app {

void add_book_export(cli::command group);
void add_book_import(cli::command group);

} // namespace zerdix::app

#endif
