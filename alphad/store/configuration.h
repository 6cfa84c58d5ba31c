// SPDX-License-Identifier: MIT
// The server's configuration values, and its name among them.
#ifndef ZERDIX_ALPHAD_STORE_CONFIGURATION_H
#define ZERDIX_ALPHAD_STORE_CONFIGURATION_H

#include <optional>

#include <zerdix/text.h>

#include "alphad/store/database.h"

namespace zerdix::alphad {

// Nothing when the text isn't a whole number of 32 bits and nothing else.
std::optional<std::int32_t> whole_number(std::string_view text);

class configuration {
  public:
    explicit configuration(database& db) : db_(db) {}

    // Empty when there is no such value.
    std::string value(std::string_view id) const;
    // Another ALPHAID goes into all records that name this server.
    void set(std::string_view id, std::string_view value);

    // The value as a whole number, or another one when there is no value or it isn't one.
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
