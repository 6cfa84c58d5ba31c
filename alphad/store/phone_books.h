// SPDX-License-Identifier: MIT
// Phone books with their entries, and recipient groups with their members.
//
// Lists run in the order of their keys, compared as unsigned bytes over the whole field; a start
// key is inclusive, an empty one means the beginning.
#ifndef ZERDIX_ALPHAD_STORE_PHONE_BOOKS_H
#define ZERDIX_ALPHAD_STORE_PHONE_BOOKS_H

#include <limits>
#include <optional>
#include <vector>

#include <zerdix/values.h>

#include "alphad/store/stored_record.h"

namespace zerdix::alphad {

constexpr std::int32_t no_limit = std::numeric_limits<std::int32_t>::max();

// What a new book or group gets that comes without any rights: its owner everything, the others to
// read and to use it.
constexpr opaque<3> default_rights{{all_rights, right_read | right_use, right_read | right_use}};

class phone_books {
  public:
    explicit phone_books(database& db) : db_(db) {}

    record_rows<o_tebu> books(const str10& start = {}) const;
    std::optional<o_tebu> book(const str10& id) const;
    bool put_book(o_tebu book);
    bool remove_book(const str10& id);

    // Bit n of the mask lets entries of net type n in.
    record_rows<o_tebul> entries(const str10& book, std::int32_t netmask, const str10& start = {},
                                 std::int32_t most = no_limit) const;
    std::optional<o_tebul> entry(const str10& book, const str10& id) const;
    bool has_entry(const str10& book, const str10& id) const;
    bool put_entry(o_tebul entry);
    bool remove_entry(const str10& book, const str10& id);

    record_rows<o_tgroup> groups(const str10& start = {}) const;
    std::optional<o_tgroup> group(const str10& id) const;
    bool put_group(o_tgroup group);
    bool remove_group(const str10& id);

    // A member is known by its book and its entry together. It may name an entry that doesn't
    // exist, or no longer.
    std::vector<o_tgroupl> members(const str10& group, const str10& start_book = {},
                                   const str10& start_entry = {},
                                   std::int32_t most = no_limit) const;
    bool put_member(const o_tgroupl& member);
    bool remove_member(const o_tgroupl& member);

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
