// SPDX-License-Identifier: MIT
// A phone book outside this server: a dozen invented entries, to try external phone books with.
//
// A query is answered at once and kept until it is fetched.
#ifndef ZERDIX_ALPHAD_STORE_EXTERNAL_PHONE_BOOK_H
#define ZERDIX_ALPHAD_STORE_EXTERNAL_PHONE_BOOK_H

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <zerdix/text.h>

namespace zerdix::alphad {

class external_phone_book {
  public:
    // What the first parameters of a query stand for; a book's labels say so to its users.
    static constexpr std::array<const char*, 3> labels{"Name", "Nummer", "Ort"};

    // The query's number, from 1001 on. A parameter fits when it stands anywhere in its field,
    // those behind the named ones when in any; upper case and lower case are the same.
    std::int32_t query(const std::array<str80, 10>& parameters);

    // Rows "name;number;place". Nothing for a query that isn't there, or that was fetched already.
    std::optional<std::vector<std::string>> fetch(std::int32_t query);

  private:
    std::map<std::int32_t, std::vector<std::string>> results_;
    std::int32_t last_ = 1000;
};

} // namespace zerdix::alphad

#endif
