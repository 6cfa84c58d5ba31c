// SPDX-License-Identifier: MIT
#include "output/json.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace zerdix::app {

// The same value as the library has it, which knows how text is escaped.
struct dumping {
    static nlohmann::ordered_json of(const json& value) {
        switch (value.kind_) {
        case json::kind::null:
            return nullptr;
        case json::kind::boolean:
            return value.as_bool();
        case json::kind::number:
            return value.number_;
        case json::kind::text:
            return value.text_;
        case json::kind::array:
            return array(value);
        case json::kind::object:
            return object(value);
        }
        return nullptr;
    }

  private:
    static nlohmann::ordered_json array(const json& value) {
        auto all = nlohmann::ordered_json::array();
        for (const json& item : value)
            all.push_back(of(item));
        return all;
    }

    static nlohmann::ordered_json object(const json& value) {
        auto all = nlohmann::ordered_json::object();
        for (std::size_t i = 0; i < value.size(); ++i)
            all[value.keys_[i]] = of(value.items_[i]);
        return all;
    }
};

json::json(std::initializer_list<member> members) : kind_(kind::object) {
    for (const member& each : members)
        (*this)[each.key] = each.value;
}

json json::object() {
    return std::initializer_list<member>{};
}

std::size_t json::place_of(std::string_view key) const {
    return static_cast<std::size_t>(std::find(keys_.begin(), keys_.end(), key) - keys_.begin());
}

const json& json::operator[](std::string_view key) const {
    static const json none;
    const std::size_t place = place_of(key);
    return place < keys_.size() ? items_[place] : none;
}

json& json::operator[](std::string_view key) {
    const std::size_t place = place_of(key);
    if (place == keys_.size()) {
        kind_ = kind::object;
        keys_.emplace_back(key);
        items_.emplace_back();
    }
    return items_[place];
}

std::string json::dump(int indent) const {
    return dumping::of(*this).dump(indent, ' ', false, nlohmann::json::error_handler_t::replace);
}

} // namespace zerdix::app
