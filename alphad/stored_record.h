// Records of the protocol in the store: their wire form as bytes, and their keys.
#ifndef ZERDIX_ALPHAD_STORED_RECORD_H
#define ZERDIX_ALPHAD_STORED_RECORD_H

#include <string>
#include <string_view>

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
inline std::string_view whole_key(const str10& key) {
    return {key.bytes, sizeof key.bytes};
}

// The id alone, zero behind its text.
inline str10 clean_key(const str10& key) {
    str10 clean{};
    clean.assign(key.view());
    return clean;
}

} // namespace zerdix::alphad

#endif
