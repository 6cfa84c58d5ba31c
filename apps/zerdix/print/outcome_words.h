// SPDX-License-Identifier: MIT
// The library's outcome of a job in the words of this program.
#ifndef ZERDIX_APP_PRINT_OUTCOME_WORDS_H
#define ZERDIX_APP_PRINT_OUTCOME_WORDS_H

#include <cstdint>
#include <string>
#include <vector>

#include <zerdix/outcome.h>

#include "session/connection_probe.h"

namespace zerdix::app {

// The receivers that have come to that, in the order in which they were named.
std::vector<const zx_receiver*> receivers_that_are(const zx_outcome& outcome, zx_delivery wanted);

// Of a fax job, whose last receiver goes first: the one at which it stopped. Null when all of them
// were handed over.
const zx_receiver* stopped_at(const zx_outcome& outcome);

// Why the job stopped, with the exit code for it.
failure_cause cause_of(const zx_outcome& outcome);

// Whether the failed call got no answer in time.
bool timed_out(const zx_outcome& outcome);

// UTF-8.
std::string shown_receiver(const zx_receiver& receiver);

std::vector<std::int32_t> left_documents(const zx_outcome& outcome);

} // namespace zerdix::app

#endif
