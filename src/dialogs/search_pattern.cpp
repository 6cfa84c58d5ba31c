// SPDX-License-Identifier: MIT
#include "dialogs/search_pattern.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <regex.h>
#include <string>
#include <utility>
#include <vector>

namespace zerdix::dialogs {

namespace {

// In any other locale "." might leave out bytes that aren't whole characters there.
class byte_locale {
  public:
    byte_locale() : before_(uselocale(plain())) {}
    ~byte_locale() { uselocale(before_); }
    byte_locale(const byte_locale&) = delete;
    byte_locale& operator=(const byte_locale&) = delete;

  private:
    static locale_t plain() {
        static const locale_t bytes = newlocale(LC_ALL_MASK, "C", nullptr);
        return bytes;
    }

    locale_t before_;
};

// The leading ".*" makes a match anywhere begin at the text's first character.
std::string as_regular_expression(std::string_view pattern) {
    std::string result = ".*";
    for (const char c : pattern) {
        if (c == '*')
            result += ".*";
        else
            result += c == '?' ? '.' : c;
    }
    return result;
}

bool refers_back(std::string_view pattern) {
    for (std::size_t i = 0; i + 1 < pattern.size(); ++i) {
        if (pattern[i] != '\\')
            continue;
        ++i;
        if (pattern[i] >= '1' && pattern[i] <= '9')
            return true;
    }
    return false;
}

} // namespace

class search_pattern::matcher {
  public:
    virtual ~matcher() = default;
    virtual bool is_valid() const = 0;
    virtual std::int32_t match(std::string_view text) = 0;
};

// A search text without an operator of regular expressions, "." apart. It needs no expression: one
// with many "?" would keep thousands of states for each text.
class search_pattern::wildcards final : public matcher {
  public:
    static bool suffice(std::string_view pattern) {
        return pattern.find_first_of("\\[^$\n") == std::string_view::npos;
    }

    explicit wildcards(std::string_view pattern) {
        std::string piece;
        for (const char c : pattern) {
            if (c == '*')
                pieces_.push_back(std::exchange(piece, {}));
            else
                piece += c == '?' ? any : c;
        }
        last_ = std::move(piece);
    }

    bool is_valid() const override { return true; }

    // The pieces but the last are taken as early as can be, the last as late.
    std::int32_t match(std::string_view text) override {
        text = text.substr(0, text.find('\n')); // which no "." stands for
        std::size_t from = 0;
        for (const std::string& piece : pieces_) {
            from = first(text, piece, from);
            if (from == std::string_view::npos)
                return -1;
            from += piece.size();
        }
        for (std::size_t at = text.size() + 1; at-- > from;) {
            if (stands(text, last_, at))
                return static_cast<std::int32_t>(at + last_.size());
        }
        return -1;
    }

  private:
    static constexpr char any = '.';

    static bool stands(std::string_view text, std::string_view piece, std::size_t at) {
        if (text.size() - at < piece.size())
            return false;
        for (std::size_t i = 0; i < piece.size(); ++i) {
            if (piece[i] != any && piece[i] != text[at + i])
                return false;
        }
        return true;
    }

    static std::size_t first(std::string_view text, std::string_view piece, std::size_t from) {
        for (std::size_t at = from; at + piece.size() <= text.size(); ++at) {
            if (stands(text, piece, at))
                return at;
        }
        return std::string_view::npos;
    }

    std::vector<std::string> pieces_; // in front of each "*"
    std::string last_;
};

class search_pattern::regular_expression final : public matcher {
  public:
    explicit regular_expression(std::string_view pattern) {
        if (refers_back(pattern))
            return;
        const byte_locale bytes;
        const std::string expression = as_regular_expression(pattern);
        // The library makes the buffer larger as it needs.
        buffer_.buffer = static_cast<decltype(buffer_.buffer)>(std::malloc(initial_room));
        buffer_.allocated = buffer_.buffer != nullptr ? initial_room : 0;
        buffer_.fastmap = fastmap_.data();
        compiled_ = re_compile_pattern(expression.data(), expression.size(), &buffer_) == nullptr;
    }

    ~regular_expression() override {
        buffer_.fastmap = nullptr;
        regfree(&buffer_);
    }

    bool is_valid() const override { return compiled_ && spent_ < patience; }

    std::int32_t match(std::string_view text) override {
        if (!is_valid())
            return -1;
        const byte_locale bytes;
        const auto begin = std::chrono::steady_clock::now();
        const int length =
            re_match(&buffer_, text.data(), static_cast<regoff_t>(text.size()), 0, nullptr);
        spent_ += std::chrono::steady_clock::now() - begin;
        return std::max(length, -1);
    }

  private:
    static constexpr std::size_t initial_room = 40;
    static constexpr std::chrono::seconds patience{2};

    std::array<char, 256> fastmap_{};
    re_pattern_buffer buffer_{};
    bool compiled_ = false;
    std::chrono::steady_clock::duration spent_{};
};

void set_search_syntax() {
    re_set_syntax(RE_BK_PLUS_QM);
}

search_pattern::search_pattern(std::string_view pattern) {
    if (wildcards::suffice(pattern))
        matcher_ = std::make_unique<wildcards>(pattern);
    else
        matcher_ = std::make_unique<regular_expression>(pattern);
}

search_pattern::~search_pattern() = default;

bool search_pattern::is_valid() const {
    return matcher_->is_valid();
}

std::int32_t search_pattern::match(std::string_view text) {
    return matcher_->match(text);
}

std::int32_t findInText(const char* text, const char* pattern) {
    if (text == nullptr || pattern == nullptr)
        return -2;
    return search_pattern(pattern).match(text);
}

} // namespace zerdix::dialogs
