// SPDX-License-Identifier: MIT
// The pages of documents. A page is a number from 1 on; it holds one picture for each picture type
// it exists in, or none. Pictures are opaque bytes here.
//
// A picture arrives in blocks. The first one sets the block length, and a block shorter than it
// ends the picture; so a picture of a multiple of the block length ends with an empty block. Until
// then the picture isn't there for anybody, with one exception: a single block may be all there is
// to come, so it counts as a whole picture until a second one follows.
#ifndef ZERDIX_ALPHAD_STORE_PAGES_H
#define ZERDIX_ALPHAD_STORE_PAGES_H

#include <optional>
#include <vector>

#include "alphad/store/database.h"

namespace zerdix::alphad {

// A document tells of at most so many pages.
constexpr std::int16_t most_pages = 1000;
// A page's mask has so many bits.
constexpr std::int16_t picture_types = 32;
// Larger pictures are refused.
constexpr std::size_t most_picture_bytes = 16u << 20;

// Clients send blocks of at least so many bytes, but for a picture's last one.
constexpr std::size_t shortest_block = 512;

struct picture_place {
    std::int32_t document;
    std::int16_t page;
    std::int16_t type; // a picture_type (zerdix/values.h), or another one
};

class pages {
  public:
    explicit pages(database& db) : db_(db) {}

    std::int16_t count(std::int32_t document) const;

    // For each page the picture types it exists in, a bit each.
    std::vector<std::int32_t> masks(std::int32_t document) const;

    // The place of a picture must be on a page that exists or on the one behind the last. False
    // when it isn't, or when the block doesn't fit what came before.
    bool put_block(picture_place place, std::int32_t offset, std::string_view block);

    // The picture as it will be with this block, when the block is its last one for certain: a
    // shorter one than the first, or a first one below the length of any block of a client.
    std::optional<std::string> ended_by(picture_place place, std::int32_t offset,
                                        std::string_view block) const;

    // Nothing when there is no whole picture.
    std::optional<std::string> picture(picture_place place) const;
    std::int32_t picture_size(picture_place place) const;
    std::string picture_part(picture_place place, std::int32_t offset, std::int32_t length) const;

    // False when the page number has no place in the document.
    bool insert(std::int32_t document, std::int16_t page);
    bool remove(std::int32_t document, std::int16_t page);

    // Puts a page with all its pictures in the place of the target page or behind the last one.
    bool copy(std::int32_t source, std::int16_t source_page, std::int32_t target,
              std::int16_t target_page);

    // Takes the target's pages away and puts copies of the source's there.
    void copy_all(std::int32_t source, std::int32_t target);

  private:
    struct stored_picture {
        std::int64_t id;
        std::int64_t block; // length of the first block
        std::int64_t size;
        bool ended; // a shorter block has come
    };
    std::optional<stored_picture> find(picture_place place) const;
    std::optional<stored_picture> find_whole(picture_place place) const;
    void copy_pictures(std::int32_t source, std::int16_t first, std::int16_t last,
                       std::int32_t target, std::int16_t by);
    void begin_picture(picture_place place, std::string_view block);
    bool continue_picture(picture_place place, std::int32_t offset, std::string_view block);
    void set_count(std::int32_t document, std::int16_t count);
    void shift(std::int32_t document, std::int16_t from, std::int16_t by);

    database& db_;
};

} // namespace zerdix::alphad

#endif
