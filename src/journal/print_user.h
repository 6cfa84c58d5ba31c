// SPDX-License-Identifier: MIT
// The owner of documents that exist only to be printed.
#ifndef ZERDIX_JOURNAL_PRINT_USER_H
#define ZERDIX_JOURNAL_PRINT_USER_H

#include <zerdix/values.h>

namespace zerdix::journal {

using zerdix::print_user;

} // namespace zerdix::journal

#endif
