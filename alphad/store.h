// All that the server keeps, in one SQLite database.
#ifndef ZERDIX_ALPHAD_STORE_H
#define ZERDIX_ALPHAD_STORE_H

#include "alphad/database.h"
#include "alphad/directory.h"
#include "alphad/documents.h"
#include "alphad/jobs.h"
#include "alphad/logs.h"
#include "alphad/pages.h"
#include "alphad/phone_books.h"

namespace zerdix::alphad {

// The store's file in a data folder.
constexpr const char* store_file = "alphad.db";

class store {
  public:
    // Opens or makes a store: a file, or ":memory:". Throws database_error.
    explicit store(const std::string& path,
                   alphad::database::access mode = alphad::database::access::read_write);

    // Whether this object made the tables.
    bool is_new() const { return new_; }

  private:
    alphad::database db_;
    bool new_ = false;

  public:
    alphad::database& database() { return db_; }

    alphad::directory directory{db_};
    alphad::documents documents{db_};
    alphad::pages pages{db_};
    alphad::logs logs{db_};
    alphad::jobs jobs{db_};
    alphad::phone_books phone_books{db_};
};

} // namespace zerdix::alphad

#endif
