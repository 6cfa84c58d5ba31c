// SPDX-License-Identifier: MIT
#include "alphad/store/signatures.h"

namespace zerdix::alphad {

namespace {

// A client reads no more than 100 blocks; longer ones are refused.
constexpr std::size_t most_bytes = 100 * signature_block;

} // namespace

std::string signatures::whole(std::string_view userid) const {
    statement row(db_, "SELECT data FROM signatures WHERE userid = ?", userid);
    return row.step() ? row.text(0) : std::string{};
}

std::string signatures::coming(std::string_view userid) const {
    statement row(db_, "SELECT coming FROM signatures WHERE userid = ?", userid);
    return row.step() ? row.text(0) : std::string{};
}

bool signatures::put(std::string_view userid, std::string_view signature) {
    if (signature.size() > most_bytes)
        return false;
    execute(db_, "INSERT OR REPLACE INTO signatures (userid, data, coming) VALUES (?, ?, x'')",
            userid, signature);
    return true;
}

bool signatures::put_block(std::string_view userid, std::int32_t offset, std::string_view block) {
    std::string data = offset == 0 ? std::string{} : coming(userid);
    if (offset < 0 || static_cast<std::size_t>(offset) != data.size() ||
        block.size() > signature_block || data.size() + block.size() > most_bytes)
        return false;
    data += block;
    if (block.size() < signature_block)
        return put(userid, data);
    execute(db_,
            "INSERT INTO signatures (userid, data, coming) VALUES (?1, x'', ?2) "
            "ON CONFLICT (userid) DO UPDATE SET coming = ?2",
            userid, data);
    return true;
}

} // namespace zerdix::alphad
