// Who may use the server, and its configuration values.
#ifndef ZERDIX_ALPHAD_DIRECTORY_H
#define ZERDIX_ALPHAD_DIRECTORY_H

#include "alphad/database.h"

namespace zerdix::alphad {

// Owns documents that exist only to be printed.
constexpr std::string_view print_user = ".winpr";
// Reaches the documents of everybody.
constexpr std::string_view admin_user = "FAXADM";

class directory {
  public:
    explicit directory(database& db) : db_(db) {}

    void put_user(std::string_view userid, std::string_view name);

    // The two users of the house count as known.
    bool knows(std::string_view userid) const;

    // Empty when there is no such value.
    std::string config(std::string_view id) const;
    void set_config(std::string_view id, std::string_view value);

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
