// All that the server keeps, in one SQLite database.
#ifndef ZERDIX_ALPHAD_STORE_H
#define ZERDIX_ALPHAD_STORE_H

#include "alphad/board.h"
#include "alphad/database.h"
#include "alphad/devices.h"
#include "alphad/directory.h"
#include "alphad/documents.h"
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

    // Whether this object made the tables, or brought them up from an older version.
    bool is_new() const { return change_ == schema_change::made; }
    bool is_from_older_version() const { return change_ == schema_change::brought_up_to_date; }

  private:
    alphad::database db_;
    schema_change change_ = schema_change::none;

  public:
    alphad::database& database() { return db_; }

    alphad::directory directory{db_};
    alphad::documents documents{db_};
    alphad::pages pages{db_};
    alphad::logs logs{db_};
    alphad::jobs jobs{db_};
    alphad::phone_books phone_books{db_};
    alphad::users users{db_, directory};
    alphad::user_groups user_groups{db_};
    alphad::devices devices{db_};
    alphad::signatures signatures{db_};
    alphad::board board{db_};
};

} // namespace zerdix::alphad

#endif
