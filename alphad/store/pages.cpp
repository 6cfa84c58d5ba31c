// SPDX-License-Identifier: MIT
#include "alphad/store/pages.h"

#include "alphad/store/picture_blocks.h"

namespace zerdix::alphad {

namespace {

// Of a row of pictures: it ended, or it is a single block.
#define WHOLE "(ended OR size = block)"

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
    const auto size = static_cast<std::int64_t>(block.size());
    execute(db_, "DELETE FROM pictures WHERE document = ? AND page = ? AND type = ?",
            place.document, place.page, place.type);
    execute(db_,
            "INSERT INTO pictures (document, page, type, block, size, ended) "
            "VALUES (?, ?, ?, ?, ?, 0)",
            place.document, place.page, place.type, size, size);
    append_bytes(db_, db_.last_id(), 0, block);
}

bool pages::continue_picture(picture_place place, std::int32_t offset, std::string_view block) {
    const auto found = find(place);
    const auto size = static_cast<std::int64_t>(block.size());
    if (!found || found->ended || offset != found->size || size > found->block ||
        found->size + size > std::int64_t{most_picture_bytes})
        return false;
    append_bytes(db_, found->id, found->size, block);
    execute(db_, "UPDATE pictures SET size = size + ?, ended = ? WHERE id = ?", size,
            size < found->block, found->id);
    return true;
}

std::optional<std::string> pages::ended_by(picture_place place, std::int32_t offset,
                                           std::string_view block) const {
    if (offset == 0)
        return block.size() < shortest_block ? std::optional{std::string{block}} : std::nullopt;
    const auto found = find(place);
    if (!found || found->ended || offset != found->size ||
        static_cast<std::int64_t>(block.size()) >= found->block)
        return std::nullopt;
    return read_bytes(db_, found->id, 0, found->size).append(block);
}

std::optional<pages::stored_picture> pages::find(picture_place place) const {
    statement row(db_,
                  "SELECT id, block, size, ended FROM pictures "
                  "WHERE document = ? AND page = ? AND type = ?",
                  place.document, place.page, place.type);
    if (!row.step())
        return std::nullopt;
    return stored_picture{row.integer(0), row.integer(1), row.integer(2), row.flag(3)};
}

std::optional<pages::stored_picture> pages::find_whole(picture_place place) const {
    const auto found = find(place);
    return found && (found->ended || found->size == found->block) ? found : std::nullopt;
}

std::optional<std::string> pages::picture(picture_place place) const {
    const auto found = find_whole(place);
    return found ? std::optional{read_bytes(db_, found->id, 0, found->size)} : std::nullopt;
}

std::int32_t pages::picture_size(picture_place place) const {
    const auto found = find_whole(place);
    return found ? static_cast<std::int32_t>(found->size) : 0;
}

std::string pages::picture_part(picture_place place, std::int32_t offset,
                                std::int32_t length) const {
    const auto found = find_whole(place);
    if (!found || offset < 0 || length <= 0)
        return {};
    return read_bytes(db_, found->id, offset, length);
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
    copy_pictures(source, source_page, source_page, target,
                  static_cast<std::int16_t>(target_page - source_page));
    if (target_page > last)
        set_count(target, target_page);
    return true;
}

void pages::copy_all(std::int32_t source, std::int32_t target) {
    execute(db_, "DELETE FROM pictures WHERE document = ?", target);
    copy_pictures(source, 1, most_pages, target, 0);
    set_count(target, count(source));
}

// Those of the source's pages from one to another, each `by` pages further on.
void pages::copy_pictures(std::int32_t source, std::int16_t first, std::int16_t last,
                          std::int32_t target, std::int16_t by) {
    execute(db_, "DELETE FROM pictures WHERE document = ? AND page BETWEEN ? AND ?", target,
            first + by, last + by);
    execute(db_,
            "INSERT INTO pictures (document, page, type, block, size, ended) "
            "SELECT ?, page + ?, type, block, size, 1 FROM pictures "
            "WHERE document = ? AND page BETWEEN ? AND ? AND " WHOLE,
            target, by, source, first, last);
    execute(db_,
            "INSERT INTO picture_blocks (picture, start, data) "
            "SELECT copy.id, start, data FROM pictures AS copy "
            "JOIN pictures AS original ON original.document = ? "
            "AND original.page = copy.page - ? AND original.type = copy.type "
            "JOIN picture_blocks ON picture = original.id "
            "WHERE copy.document = ? AND copy.page BETWEEN ? AND ?",
            source, by, target, first + by, last + by);
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
