#include "alphad/pages.h"

namespace zerdix::alphad {

namespace {

// Of a row of pictures: it ended, or it is a single block.
#define WHOLE "(ended OR length(data) = block)"

bool on_page(std::int16_t page, std::int16_t last) {
    return page >= 1 && page <= last;
}

} // namespace

std::int16_t pages::count(std::int32_t document) const {
    statement row(db_, "SELECT pages FROM documents WHERE id = ?", document);
    return row.step() ? row.small(0) : std::int16_t{0};
}

std::vector<std::int32_t> pages::masks(std::int32_t document) const {
    std::vector<std::int32_t> found(static_cast<std::size_t>(count(document)), 0);
    statement row(db_, "SELECT page, type FROM pictures WHERE document = ? AND " WHOLE, document);
    while (row.step()) {
        const auto page = static_cast<std::size_t>(row.integer(0));
        if (page >= 1 && page <= found.size())
            found[page - 1] |= static_cast<std::int32_t>(1u << row.integer(1));
    }
    return found;
}

bool pages::put_block(picture_place place, std::int32_t offset, std::string_view block) {
    if (place.type < 0 || place.type >= picture_types || offset < 0 ||
        block.size() > most_picture_bytes)
        return false;
    const std::int16_t pages_now = count(place.document);
    if (!on_page(place.page, static_cast<std::int16_t>(pages_now + 1)) || place.page > most_pages)
        return false;
    if (offset > 0)
        return continue_picture(place, offset, block);
    begin_picture(place, block);
    if (place.page > pages_now)
        set_count(place.document, place.page);
    return true;
}

void pages::begin_picture(picture_place place, std::string_view block) {
    execute(db_,
            "INSERT OR REPLACE INTO pictures (document, page, type, block, ended, data) "
            "VALUES (?, ?, ?, ?, 0, ?)",
            place.document, place.page, place.type, static_cast<std::int64_t>(block.size()), block);
}

bool pages::continue_picture(picture_place place, std::int32_t offset, std::string_view block) {
    statement row(db_,
                  "SELECT data, block FROM pictures "
                  "WHERE document = ? AND page = ? AND type = ? AND NOT ended",
                  place.document, place.page, place.type);
    if (!row.step())
        return false;
    std::string data = row.text(0);
    const auto full = static_cast<std::size_t>(row.integer(1));
    if (static_cast<std::size_t>(offset) != data.size() || block.size() > full ||
        data.size() + block.size() > most_picture_bytes)
        return false;
    data += block;
    return execute(db_,
                   "UPDATE pictures SET data = ?, ended = ? "
                   "WHERE document = ? AND page = ? AND type = ?",
                   data, block.size() < full, place.document, place.page, place.type) == 1;
}

std::optional<std::string> pages::picture(picture_place place) const {
    statement row(db_,
                  "SELECT data FROM pictures WHERE document = ? AND page = ? AND type = ? "
                  "AND " WHOLE,
                  place.document, place.page, place.type);
    if (!row.step())
        return std::nullopt;
    return row.text(0);
}

std::int32_t pages::picture_size(picture_place place) const {
    statement row(db_,
                  "SELECT length(data) FROM pictures WHERE document = ? AND page = ? AND type = ? "
                  "AND " WHOLE,
                  place.document, place.page, place.type);
    return row.step() ? row.number(0) : 0;
}

std::string pages::picture_part(picture_place place, std::int32_t offset,
                                std::int32_t length) const {
    if (offset < 0 || length <= 0)
        return {};
    statement row(db_,
                  "SELECT substr(data, ? + 1, ?) FROM pictures "
                  "WHERE document = ? AND page = ? AND type = ? AND " WHOLE,
                  std::int64_t{offset}, length, place.document, place.page, place.type);
    return row.step() ? row.text(0) : std::string{};
}

bool pages::insert(std::int32_t document, std::int16_t page) {
    const std::int16_t last = count(document);
    if (!on_page(page, static_cast<std::int16_t>(last + 1)) || last >= most_pages)
        return false;
    shift(document, page, 1);
    set_count(document, static_cast<std::int16_t>(last + 1));
    return true;
}

bool pages::remove(std::int32_t document, std::int16_t page) {
    const std::int16_t last = count(document);
    if (!on_page(page, last))
        return false;
    execute(db_, "DELETE FROM pictures WHERE document = ? AND page = ?", document, page);
    shift(document, page, -1);
    set_count(document, static_cast<std::int16_t>(last - 1));
    return true;
}

bool pages::copy(std::int32_t source, std::int16_t source_page, std::int32_t target,
                 std::int16_t target_page) {
    const std::int16_t last = count(target);
    if (!on_page(source_page, count(source)) || target_page > most_pages ||
        !on_page(target_page, static_cast<std::int16_t>(last + 1)))
        return false;
    if (source == target && source_page == target_page)
        return true;
    execute(db_, "DELETE FROM pictures WHERE document = ? AND page = ?", target, target_page);
    execute(db_,
            "INSERT INTO pictures (document, page, type, block, ended, data) "
            "SELECT ?, ?, type, block, 1, data FROM pictures "
            "WHERE document = ? AND page = ? AND " WHOLE,
            target, target_page, source, source_page);
    if (target_page > last)
        set_count(target, target_page);
    return true;
}

void pages::copy_all(std::int32_t source, std::int32_t target) {
    execute(db_, "DELETE FROM pictures WHERE document = ?", target);
    execute(db_,
            "INSERT INTO pictures (document, page, type, block, ended, data) "
            "SELECT ?, page, type, block, 1, data FROM pictures WHERE document = ? AND " WHOLE,
            target, source);
    set_count(target, count(source));
}

void pages::set_count(std::int32_t document, std::int16_t count) {
    execute(db_, "UPDATE documents SET pages = ? WHERE id = ?", count, document);
}

// By way of negative numbers: the key is checked row by row.
void pages::shift(std::int32_t document, std::int16_t from, std::int16_t by) {
    execute(db_, "UPDATE pictures SET page = -(page + ?) WHERE document = ? AND page >= ?", by,
            document, from);
    execute(db_, "UPDATE pictures SET page = -page WHERE document = ? AND page < 0", document);
}

} // namespace zerdix::alphad
