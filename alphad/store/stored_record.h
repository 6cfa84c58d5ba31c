// SPDX-License-Identifier: MIT
// Records of the protocol in the store: their wire form as bytes, and their keys.
#ifndef ZERDIX_ALPHAD_STORE_STORED_RECORD_H
#define ZERDIX_ALPHAD_STORE_STORED_RECORD_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "alphad/store/database.h"
#include "rpc/wire/fixed.h"

namespace zerdix::alphad {

template <class Record>
std::string to_stored(const Record& record) {
    std::string stored(wire::fixed<Record>::size, '\0');
    wire::fixed<Record>::store(record, reinterpret_cast<unsigned char*>(stored.data()));
    return stored;
}

template <class Record>
Record from_stored(std::string_view stored) {
    Record record{};
    if (stored.size() == wire::fixed<Record>::size)
        wire::fixed<Record>::load(record, reinterpret_cast<const unsigned char*>(stored.data()));
    return record;
}

// A key as the whole field, so that keys compare as 11 unsigned bytes. A start key may hold bytes
// behind its NUL, which make it greater than the id in front of it.
template <std::size_t N>
std::string_view whole_key(const text<N>& key) {
    return {key.bytes, sizeof key.bytes};
}

// The id alone, zero behind its text.
template <std::size_t N>
text<N> clean_key(const text<N>& key) {
    text<N> clean{};
    clean.assign(key.view());
    return clean;
}
inline str10 clean_key(std::string_view id) {
    str10 clean{};
    clean.assign(id);
    return clean;
}

// The rows of a statement whose first column is a stored record, one after the other.
template <class Record>
class record_rows {
  public:
    template <class... Value>
    record_rows(const database& db, const char* sql, const Value&... values)
        : row_(db, sql, values...) {}

    // False behind the last one.
    bool next(Record& record) {
        if (!row_.step())
            return false;
        record = from_stored<Record>(row_.bytes(0));
        return true;
    }

    std::vector<Record> all() {
        std::vector<Record> found;
        for (Record record; next(record);)
            found.push_back(record);
        return found;
    }

    std::optional<Record> first() {
        Record record;
        return next(record) ? std::optional{record} : std::nullopt;
    }

  private:
    statement row_;
};

} // namespace zerdix::alphad

#endif
