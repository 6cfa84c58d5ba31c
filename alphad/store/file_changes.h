// SPDX-License-Identifier: MIT
// Files of the spool folder that are to appear or to go, put down with the work that they belong
// to: the folder follows once that work is in the store for good, at the next start if need be.
#ifndef ZERDIX_ALPHAD_STORE_FILE_CHANGES_H
#define ZERDIX_ALPHAD_STORE_FILE_CHANGES_H

#include <string>
#include <vector>

#include "alphad/store/database.h"

namespace zerdix::alphad {

struct file_change {
    std::string file;
    bool appears; // otherwise it goes
};

class file_changes {
  public:
    explicit file_changes(database& db) : db_(db) {}

    // Replaces an earlier one of the same file.
    void put(const file_change& change);
    std::vector<file_change> all() const;
    void clear();

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
