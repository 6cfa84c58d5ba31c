// All that the server keeps, in one SQLite database.
#ifndef ZERDIX_ALPHAD_STORE_H
#define ZERDIX_ALPHAD_STORE_H

#include "alphad/board.h"
#include "alphad/database.h"
#include "alphad/devices.h"
#include "alphad/directory.h"
#include "alphad/documents.h"
#include "alphad/file_changes.h"
#include "alphad/jobs.h"
#include "alphad/logs.h"
#include "alphad/pages.h"
#include "alphad/phone_books.h"
#include "alphad/schema.h"
#include "alphad/signatures.h"
#include "alphad/user_groups.h"
#include "alphad/users.h"

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

    alphad::directory directory{db_};
    alphad::documents documents{db_};
    alphad::pages pages{db_};
    alphad::logs logs{db_};
    alphad::jobs jobs{db_};
    alphad::file_changes file_changes{db_};
    alphad::phone_books phone_books{db_};
    alphad::users users{db_, directory};
    alphad::user_groups user_groups{db_};
    alphad::devices devices{db_};
    alphad::signatures signatures{db_};
    alphad::board board{db_};
};

} // namespace zerdix::alphad

#endif
