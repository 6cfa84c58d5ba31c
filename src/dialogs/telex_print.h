// Printing a stored text as a telex.
#ifndef ZERDIX_DIALOGS_TELEX_PRINT_H
#define ZERDIX_DIALOGS_TELEX_PRINT_H

#include <cstdint>

#include <zerdix/journal.h>
#include <zerdix/records.h>

namespace zerdix::dialogs {

// Prints the text for the receiver of the record, in the name of the session's user, by way of a
// print document of its own with the text as a page of that picture type. False on a failure; what
// was made on the server until then stays.
bool print_telex(JOURNAL& journal, const page_dat& text, const a_s_rec& record,
                 std::int16_t pictureType);

} // namespace zerdix::dialogs

#endif
