// SPDX-License-Identifier: MIT
// The logs of documents: lines in the order in which they came, by position from 0 on.
#ifndef ZERDIX_ALPHAD_STORE_LOGS_H
#define ZERDIX_ALPHAD_STORE_LOGS_H

#include <vector>

#include "alphad/store/database.h"

namespace zerdix::alphad {

class logs {
  public:
    explicit logs(database& db) : db_(db) {}

    void add(std::int32_t document, std::string_view line);

    // At most `most` lines from a position on.
    std::vector<std::string> lines(std::int32_t document, std::int32_t position,
                                   std::int32_t most) const;
    std::vector<std::string> all(std::int32_t document) const;

    // Appends copies of the source's lines to the target's log.
    void copy(std::int32_t source, std::int32_t target);

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
