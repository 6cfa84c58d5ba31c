// Something to try the server with: two users, two phone books, two groups, settings.
#ifndef ZERDIX_ALPHAD_DEMO_DATA_H
#define ZERDIX_ALPHAD_DEMO_DATA_H

#include "alphad/store.h"

namespace zerdix::alphad {

void add_demo_data(store& store);

} // namespace zerdix::alphad

#endif
