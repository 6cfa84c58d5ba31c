// The server's configuration values, and its name among them.
#ifndef ZERDIX_ALPHAD_DIRECTORY_H
#define ZERDIX_ALPHAD_DIRECTORY_H

#include <zerdix/text.h>

#include "alphad/database.h"

namespace zerdix::alphad {

class directory {
  public:
    explicit directory(database& db) : db_(db) {}

    // Empty when there is no such value.
    std::string config(std::string_view id) const;
    // Another ALPHAID takes the users of this server with it.
    void set_config(std::string_view id, std::string_view value);

    // A whole number, or another one when there is no value or it isn't one.
    std::int32_t number(std::string_view id, std::int32_t otherwise) const;

    // The value ALPHAID, "alpha" when there is none.
    str35 server_name() const;

    // Whether a server is this one: by its name, or named not at all.
    bool is_here(std::string_view server) const;

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
