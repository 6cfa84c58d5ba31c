// SPDX-License-Identifier: MIT
// The send jobs of a store, for people and for programs.
#ifndef ZERDIX_ALPHAD_JOB_TABLE_H
#define ZERDIX_ALPHAD_JOB_TABLE_H

#include <ostream>

#include "alphad/sending/spool.h"
#include "alphad/store/store.h"

namespace zerdix::alphad {

// UTF-8. Each job in a line, its log indented below.
void print_jobs(std::ostream& out, const store& store, const spool_places& files);

// An array with an object for each job.
void print_jobs_json(std::ostream& out, const store& store, const spool_places& files);

} // namespace zerdix::alphad

#endif
