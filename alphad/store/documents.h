// SPDX-License-Identifier: MIT
// Documents of the three pools, without their pages.
#ifndef ZERDIX_ALPHAD_STORE_DOCUMENTS_H
#define ZERDIX_ALPHAD_STORE_DOCUMENTS_H

#include <ctime>
#include <optional>
#include <vector>

#include <zerdix/records.h>

#include "alphad/store/database.h"

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

    // How an incoming document came in.
    std::int16_t nettype = NETTYPE_FAX;
    std::string number;     // of the sender
    std::string tsi;        // the sender's station identification
    std::int16_t error = 0; // 0: whole
    std::string forwarder;  // user who passed it on, empty when it came over the line
};

// Documents one after the other, in the order of their ids.
class document_rows {
  public:
    template <class... Value>
    document_rows(const database& db, const char* sql, const Value&... values)
        : row_(db, sql, values...) {}

    // Nothing behind the last one.
    std::optional<document> next();

  private:
    statement row_;
};

class documents {
  public:
    explicit documents(database& db) : db_(db) {}

    // The new id; ids are never used twice.
    std::int32_t create(topftype pool, std::string_view owner, std::string_view comment = {});
    std::optional<document> find(std::int32_t id) const;

    // In the order of their ids, from one on.
    std::vector<document> list(topftype pool, std::string_view owner) const;
    document_rows rows(topftype pool, std::string_view owner, std::int32_t from = 0) const;
    // The public ones on all desks.
    document_rows public_rows(std::int32_t from = 0) const;

    bool any_bif(topftype pool, std::string_view owner) const;

    // Takes pages, log and send job with it.
    void remove(std::int32_t id);

    void set_comment(std::int32_t id, std::string_view comment);
    void set_public(std::int32_t id, bool value);
    void set_bif(std::int32_t id, bool value);
    // How it came in: net type, number, station identification, error and forwarder.
    void set_origin(std::int32_t id, const document& origin);

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
