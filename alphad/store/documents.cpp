// SPDX-License-Identifier: MIT
#include "alphad/store/documents.h"

namespace zerdix::alphad {

namespace {

#define DOCUMENT_COLUMNS                                                                           \
    "id, pool, owner, comment, bif, public, created, pages, nettype, number, tsi, error, "         \
    "forwarder"

document read_row(const statement& row) {
    return {row.number(0),  static_cast<topftype>(row.small(1)),
            row.text(2),    row.text(3),
            row.flag(4),    row.flag(5),
            row.integer(6), row.small(7),
            row.small(8),   row.text(9),
            row.text(10),   row.small(11),
            row.text(12)};
}

} // namespace

std::int32_t documents::create(topftype pool, std::string_view owner, std::string_view comment) {
    execute(db_,
            "INSERT INTO documents (pool, owner, comment, bif, public, created, pages) "
            "VALUES (?, ?, ?, 0, 0, ?, 0)",
            std::int16_t{pool}, owner, comment, std::int64_t{std::time(nullptr)});
    return static_cast<std::int32_t>(db_.last_id());
}

std::optional<document> documents::find(std::int32_t id) const {
    statement row(db_, "SELECT " DOCUMENT_COLUMNS " FROM documents WHERE id = ?", id);
    if (!row.step())
        return std::nullopt;
    return read_row(row);
}

std::vector<document> documents::list(topftype pool, std::string_view owner) const {
    std::vector<document> found;
    document_rows all = rows(pool, owner);
    while (auto each = all.next())
        found.push_back(std::move(*each));
    return found;
}

document_rows documents::rows(topftype pool, std::string_view owner, std::int32_t from) const {
    return {db_,
            "SELECT " DOCUMENT_COLUMNS " FROM documents WHERE pool = ? AND owner = ? AND id >= ? "
            "ORDER BY id",
            std::int16_t{pool}, owner, from};
}

document_rows documents::public_rows(std::int32_t from) const {
    return {db_,
            "SELECT " DOCUMENT_COLUMNS " FROM documents WHERE pool = ? AND public AND id >= ? "
            "ORDER BY id",
            std::int16_t{TOPF_P}, from};
}

std::optional<document> document_rows::next() {
    return row_.step() ? std::optional{read_row(row_)} : std::nullopt;
}

bool documents::any_bif(topftype pool, std::string_view owner) const {
    return statement(db_, "SELECT 1 FROM documents WHERE pool = ? AND owner = ? AND bif LIMIT 1",
                     std::int16_t{pool}, owner)
        .step();
}

void documents::remove(std::int32_t id) {
    execute(db_, "DELETE FROM documents WHERE id = ?", id);
}

void documents::set_comment(std::int32_t id, std::string_view comment) {
    execute(db_, "UPDATE documents SET comment = ? WHERE id = ?", comment, id);
}

void documents::set_public(std::int32_t id, bool value) {
    execute(db_, "UPDATE documents SET public = ? WHERE id = ?", value, id);
}

void documents::set_bif(std::int32_t id, bool value) {
    execute(db_, "UPDATE documents SET bif = ? WHERE id = ?", value, id);
}

void documents::set_origin(std::int32_t id, const document& origin) {
    execute(db_,
            "UPDATE documents SET nettype = ?, number = ?, tsi = ?, error = ?, forwarder = ? "
            "WHERE id = ?",
            origin.nettype, origin.number, origin.tsi, origin.error, origin.forwarder, id);
}

} // namespace zerdix::alphad
