// SPDX-License-Identifier: MIT
// A JSON value, for what commands report. A type of our own, since a library's takes longer to
// compile than the command that includes it.
#ifndef ZERDIX_APP_OUTPUT_JSON_H
#define ZERDIX_APP_OUTPUT_JSON_H

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zerdix::app {

class json {
  public:
    struct member;

    json() = default; // null
    json(std::string text) : kind_(kind::text), text_(std::move(text)) {}
    json(const char* text) : json(std::string(text)) {}
    template <std::integral Number>
    json(Number number)
        : kind_(std::same_as<Number, bool> ? kind::boolean : kind::number),
          number_(static_cast<std::int64_t>(number)) {}
    template <class Item>
    json(const std::vector<Item>& items) : kind_(kind::array), items_(items.begin(), items.end()) {}
    // An object: {{"id", 17}, {"new", true}}
    json(std::initializer_list<member> members);

    static json array() { return std::vector<json>(); }
    static json object();

    bool is_null() const { return kind_ == kind::null; }
    bool is_boolean() const { return kind_ == kind::boolean; }
    bool is_number() const { return kind_ == kind::number; }
    bool is_text() const { return kind_ == kind::text; }
    bool is_array() const { return kind_ == kind::array; }

    // What it holds; false, 0 or empty when that is something else.
    bool as_bool() const { return is_boolean() && number_ != 0; }
    int as_int() const { return static_cast<int>(number_); }
    const std::string& as_text() const { return text_; }

    // Arrays and objects. The members of an object keep the order in which they were put in.
    std::size_t size() const { return items_.size(); }
    bool empty() const { return items_.empty(); }
    auto begin() { return items_.begin(); }
    auto begin() const { return items_.begin(); }
    auto end() { return items_.end(); }
    auto end() const { return items_.end(); }
    const json& back() const { return items_.back(); }
    void push_back(json item) { items_.push_back(std::move(item)); }

    // A member of an object. One that isn't there reads as null; to be written it is added.
    const json& operator[](std::string_view key) const;
    json& operator[](std::string_view key);

    // As text: on one line, or on several with so many blanks a level. What isn't UTF-8 in it is
    // replaced.
    std::string dump(int indent = -1) const;

  private:
    enum class kind { null, boolean, number, text, array, object };
    friend struct dumping;

    std::size_t place_of(std::string_view key) const;

    kind kind_ = kind::null;
    std::int64_t number_ = 0;
    std::string text_;
    std::vector<json> items_;
    std::vector<std::string> keys_; // of an object's items
};

struct json::member {
    std::string key;
    json value;
};

} // namespace zerdix::app

#endif
