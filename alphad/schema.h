// The tables of the store and their version.
#ifndef ZERDIX_ALPHAD_SCHEMA_H
#define ZERDIX_ALPHAD_SCHEMA_H

#include "alphad/database.h"

namespace zerdix::alphad {

constexpr std::int32_t schema_version = 1;

// Makes the tables of an empty store. True when it did. Throws database_error when the store holds
// tables of another version or isn't ours.
bool prepare_schema(database& db);

// Throws unless the tables are there, in this version.
void require_schema(database& db);

} // namespace zerdix::alphad

#endif
