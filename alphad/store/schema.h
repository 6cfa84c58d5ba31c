// SPDX-License-Identifier: MIT
// The tables of the store and their version.
#ifndef ZERDIX_ALPHAD_STORE_SCHEMA_H
#define ZERDIX_ALPHAD_STORE_SCHEMA_H

#include "alphad/store/database.h"

namespace zerdix::alphad {

constexpr std::int32_t schema_version = 3;

struct schema_change {
    bool made = false;
    std::int32_t older = 0; // the version that was brought up to date, 0 for none
};

// Makes the tables of an empty store, and brings those of an older version up to date. Throws
// database_error when the store was written by a newer version or isn't ours.
schema_change prepare_schema(database& db);

// Throws unless the tables are there, in this version.
void require_schema(database& db);

} // namespace zerdix::alphad

#endif
