// SPDX-License-Identifier: MIT
// Checks the form of the cover page and the letterhead before the first page of a job: the library
// tells of neither why it couldn't be used, and does without a letterhead that isn't there.
//
// They ask over the connection of the open job, and throw failure. A call that fails is left to the
// job, which will fail with it and tell why.
#ifndef ZERDIX_APP_PRINT_FORMS_H
#define ZERDIX_APP_PRINT_FORMS_H

namespace zerdix::app {

// The form of the server's cover template.
void require_cover_form();

// The user's letterhead for a paper source from 0 to 9. The source 0 needs none.
void require_letterhead(int paper);

} // namespace zerdix::app

#endif
