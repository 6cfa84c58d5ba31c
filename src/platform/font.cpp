// SPDX-License-Identifier: MIT
#include "platform/font.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <utility>

#include "platform/font_face.h"
#include "platform/port_slot.h"

namespace zerdix::platform {
namespace {

constexpr std::int32_t default_characters = 33;
constexpr std::size_t kept_fonts = 16;
constexpr std::size_t kept_faces = 8;
constexpr std::size_t kept_glyph_bytes = std::size_t{1} << 20; // of each font

std::int32_t characters_of(const font_face& face, std::int32_t height) {
    if (height == 0)
        return default_characters;
    if (height > 0)
        return face.fitting(height);
    return height < -highest_characters ? highest_characters : -height;
}

// Renders each character once; what it has rendered goes when it becomes too much.
class sized_face final : public font {
  public:
    sized_face(std::shared_ptr<font_face> face, std::int32_t height)
        : face_(std::move(face)), characters_(characters_of(*face_, height)) {}

    std::int32_t character_height() const override { return characters_; }
    std::int32_t cell_height() const override {
        return face_->ascent(characters_) + face_->descent(characters_);
    }

    std::int32_t advance(char character) override {
        auto& kept = advances_[static_cast<unsigned char>(character)];
        if (!kept)
            kept = face_->advance(character, characters_);
        return *kept;
    }

    const glyph& shape(char character) override {
        auto& kept = shapes_[static_cast<unsigned char>(character)];
        if (!kept) {
            if (bytes_ >= kept_glyph_bytes)
                forget();
            kept = face_->render(character, characters_);
            bytes_ += kept->rows.size();
        }
        return *kept;
    }

  private:
    void forget() {
        shapes_.fill(std::nullopt);
        bytes_ = 0;
    }

    std::shared_ptr<font_face> face_;
    std::int32_t characters_;
    std::array<std::optional<std::int32_t>, 256> advances_;
    std::array<std::optional<glyph>, 256> shapes_;
    std::size_t bytes_ = 0;
};

// The last few of something that is dear to make. What users still hold outlives its place here.
template <class Key, class Value>
class recent {
  public:
    explicit recent(std::size_t most) : most_(most) {}

    // Made by `make` when it isn't there; a null isn't kept.
    std::shared_ptr<Value> get(const Key& key,
                               const std::function<std::shared_ptr<Value>()>& make) {
        auto found = std::ranges::find(items_, key, &std::pair<Key, std::shared_ptr<Value>>::first);
        if (found == items_.end()) {
            std::shared_ptr<Value> made = make();
            if (made == nullptr)
                return made;
            if (items_.size() == most_)
                items_.pop_back();
            found = items_.insert(items_.end(), {key, std::move(made)});
        }
        std::rotate(items_.begin(), found, found + 1); // the last one used comes first
        return items_.front().second;
    }

  private:
    std::size_t most_;
    std::vector<std::pair<Key, std::shared_ptr<Value>>> items_;
};

class system_fonts final : public font_port {
  public:
    std::shared_ptr<font> find(const font_request& request) override {
        return fonts_.get(request, [&] { return make(request); });
    }

  private:
    std::shared_ptr<font> make(const font_request& request) {
        const auto file = find_font_file(request.face, request.weight);
        if (!file)
            return nullptr;
        auto face = faces_.get(*file, [&] { return font_face::open(*file); });
        return face != nullptr ? std::make_shared<sized_face>(std::move(face), request.height)
                               : nullptr;
    }

    recent<font_file, font_face> faces_{kept_faces};
    recent<font_request, font> fonts_{kept_fonts};
};

// Without a standard one, which is made when it is asked for first.
constinit port_slot<font_port> slot;

} // namespace

font_port& fonts() {
    if (slot.is_replaced())
        return *slot.current();
    static system_fonts of_the_system;
    return of_the_system;
}

font_port* replace_fonts(font_port* port) {
    return slot.replace(port);
}

} // namespace zerdix::platform
