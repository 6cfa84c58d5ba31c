// Documents of the three pools, without their pages.
#ifndef ZERDIX_ALPHAD_DOCUMENTS_H
#define ZERDIX_ALPHAD_DOCUMENTS_H

#include <ctime>
#include <optional>
#include <vector>

#include <zerdix/records.h>

#include "alphad/database.h"

namespace zerdix::alphad {

struct document {
    std::int32_t id;
    topftype pool;
    std::string owner;
    std::string comment;
    bool bif;       // its owner hasn't looked at it yet
    bool is_public; // other users may read it
    std::int64_t created;
    std::int16_t pages;
};

class documents {
  public:
    explicit documents(database& db) : db_(db) {}

    // The new id; ids are never used twice.
    std::int32_t create(topftype pool, std::string_view owner, std::string_view comment = {});
    std::optional<document> find(std::int32_t id) const;

    // In the order of their ids.
    std::vector<document> list(topftype pool, std::string_view owner) const;
    bool any_bif(topftype pool, std::string_view owner) const;

    // Takes pages, log and send job with it.
    void remove(std::int32_t id);

    void set_comment(std::int32_t id, std::string_view comment);
    void set_public(std::int32_t id, bool value);
    void set_bif(std::int32_t id, bool value);

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
