// SPDX-License-Identifier: MIT
// All that the server keeps, in one SQLite database.
#ifndef ZERDIX_ALPHAD_STORE_STORE_H
#define ZERDIX_ALPHAD_STORE_STORE_H

#include "alphad/store/board.h"
#include "alphad/store/configuration.h"
#include "alphad/store/database.h"
#include "alphad/store/devices.h"
#include "alphad/store/documents.h"
#include "alphad/store/file_changes.h"
#include "alphad/store/jobs.h"
#include "alphad/store/logs.h"
#include "alphad/store/pages.h"
#include "alphad/store/phone_books.h"
#include "alphad/store/schema.h"
#include "alphad/store/signatures.h"
#include "alphad/store/user_groups.h"
#include "alphad/store/users.h"

namespace zerdix::alphad {

// The store's file in a data folder.
constexpr const char* store_file = "alphad.db";

class store {
  public:
    // Opens or makes a store: a file, or ":memory:". Throws database_error.
    explicit store(const std::string& path,
                   alphad::database::access mode = alphad::database::access::read_write);

    // Whether this object made the tables.
    bool is_new() const { return change_.made; }
    // The version that it brought up to date, 0 when it found the present one.
    std::int32_t older_version() const { return change_.older; }

  private:
    alphad::database db_;
    schema_change change_;

  public:
    alphad::database& database() { return db_; }

    alphad::configuration configuration{db_};
    alphad::documents documents{db_};
    alphad::pages pages{db_};
    alphad::logs logs{db_};
    alphad::jobs jobs{db_};
    alphad::file_changes file_changes{db_};
    alphad::phone_books phone_books{db_};
    alphad::users users{db_, configuration};
    alphad::user_groups user_groups{db_};
    alphad::devices devices{db_};
    alphad::signatures signatures{db_};
    alphad::board board{db_};
};

} // namespace zerdix::alphad

#endif
