// SPDX-License-Identifier: MIT
// Files of the spool folder that are to appear or to go. They are noted in the transaction of the
// work that they belong to, and the folder is changed once it is committed, or at the next start.
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
