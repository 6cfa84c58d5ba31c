// SPDX-License-Identifier: MIT
// The command that looks recipients up in an external phone book.
#ifndef ZERDIX_APP_BOOKS_EXTERNAL_QUERY_H
#define ZERDIX_APP_BOOKS_EXTERNAL_QUERY_H

#include "arguments/command.h"

namespace zerdix::app {

void add_external_query(cli::command group);

} // namespace zerdix::app

#endif
