// SPDX-License-Identifier: MIT
// Something to try the server with: two users with passwords and preferences, a group of users,
// phone books and recipient groups, printers and scanners, messages on the board, settings; and
// documents, which a server that is only to be tested does without, as it does without the last:
// a cover template, and for one user letterhead, signature and barcode.
#ifndef ZERDIX_ALPHAD_DEMO_DEMO_DATA_H
#define ZERDIX_ALPHAD_DEMO_DEMO_DATA_H

#include "alphad/store/store.h"

namespace zerdix::alphad {

void add_demo_data(store& store);
void add_demo_documents(store& store);
void add_demo_cover(store& store);

} // namespace zerdix::alphad

#endif
