// SPDX-License-Identifier: MIT
// The fan-out of a job with cover pages: each receiver gets a document of their own, with a cover
// page in front.
#ifndef ZERDIX_SENDFAX_COVER_FAN_OUT_H
#define ZERDIX_SENDFAX_COVER_FAN_OUT_H

#include <cstdint>

#include "sendfax/log_line.h"

namespace zerdix::sendfax {

// Runs a pass for each of `count` receivers, the last one first: the first receiver gets the job's
// own document, the others a copy, and each document is deleted when it has been sent. A job for a
// user's desk has one pass, which sends and deletes nothing. A cover page that can't be composed
// ends the passes and isn't a failure; its document is deleted. False on a failure.
bool run_cover_passes(std::int32_t count, const job_log& log);

} // namespace zerdix::sendfax

#endif
