// The owner of documents that exist only to be printed.
#ifndef ZERDIX_JOURNAL_PRINT_USER_H
#define ZERDIX_JOURNAL_PRINT_USER_H

namespace zerdix::journal {

constexpr const char* print_user = ".winpr";

} // namespace zerdix::journal

#endif
