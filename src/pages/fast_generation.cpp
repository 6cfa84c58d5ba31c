// SPDX-License-Identifier: MIT
#include <bit>

#include "pages/compress_run.h"
#include "pages/lzw_dictionary.h"

namespace zerdix::pages {
namespace {

static_assert(lzw_dictionary::bytes <= table_bytes);

// The longest known string at a place of the input.
struct match {
    node last;                 // the string's node
    std::size_t end;           // of the string in the input
    lzw_dictionary::place gap; // where the string longer by a byte belongs
};

class generation {
  public:
    generation(compress_run& run, void* tables)
        : run_(run), input_(run.input), length_(run.length), table_(tables) {
        table_.clear();
        zeros_[1] = static_cast<std::uint16_t>(node_of(0));
    }

    generation_end go();

  private:
    static constexpr std::size_t longest_zeros = 4096;
    static constexpr std::uint32_t short_cut_limit = 16384;

    // The eight bytes at a place that has them.
    std::uint64_t word_at(std::size_t at) const {
        std::uint64_t word;
        std::memcpy(&word, input_ + at, sizeof word);
        return word;
    }
    bool has_word(std::size_t at) const { return at + sizeof(std::uint64_t) <= length_; }

    match longest(std::size_t start);
    match walk(node from, std::size_t at);
    match short_match(std::size_t start) const;
    match zeros_match(std::size_t start);
    std::size_t zeros_at(std::size_t start, std::size_t most) const;
    lzw_dictionary::place zeros_child(std::size_t count) const;
    void add_short_cut(node from, node to);
    bool add(const match& found);

    compress_run& run_;
    const unsigned char* input_;
    std::size_t length_;
    lzw_dictionary table_;
    std::uint32_t next_free_ = first_free;
    std::uint32_t short_cuts_ = 0;
    bool first_slot_taken_ = false;

    // The nodes of the strings of 1 to zero_count_ zero bytes: white paper is most of a page.
    std::size_t zero_count_ = 1;
    std::uint16_t zeros_[longest_zeros + 1];
};

std::size_t generation::zeros_at(std::size_t start, std::size_t most) const {
    const std::size_t end = std::min(length_, start + most);
    std::size_t at = start;
    for (; at + 8 <= end; at += 8) {
        const std::uint64_t word = word_at(at);
        if (word != 0) {
            return at - start + static_cast<std::size_t>(std::countr_zero(word)) / 8;
        }
    }
    while (at < end && input_[at] == 0) {
        ++at;
    }
    return at - start;
}

// The entry of the string of count + 1 zero bytes.
lzw_dictionary::place generation::zeros_child(std::size_t count) const {
    return count == 2 ? table_.triple(0, 0, 0) : table_.child(zeros_[count], 0);
}

void generation::add_short_cut(node from, node to) {
    if (short_cuts_ < short_cut_limit) {
        const auto place = table_.zeros(from);
        short_cuts_ += !place.found() && table_.add(place, to);
    }
}

// Follows the input from a string of three bytes or more, whose end is `at`.
[[gnu::always_inline]] inline match generation::walk(node from, std::size_t at) {
    node anchor = from; // where a short cut was looked for in vain, eight bytes before the next try
    std::size_t next_try = at;
    while (at < length_) {
        if (at >= next_try && has_word(at) && word_at(at) == 0) {
            const auto cut = table_.zeros(from);
            if (cut.found()) {
                from = cut.target();
                at += 8;
                next_try = at;
                continue;
            }
            anchor = from;
            next_try = at + 8;
        }
        const auto longer = table_.child(from, input_[at]);
        if (!longer.found()) {
            return {from, at, longer};
        }
        from = longer.target();
        if (++at == next_try) {
            add_short_cut(anchor, from);
        }
    }
    return {from, at, {}};
}

// The string starts with at least eight zero bytes.
[[gnu::noinline]] match generation::zeros_match(std::size_t start) {
    const std::size_t count = zeros_at(start, zero_count_);
    if (count < zero_count_) {
        return walk(zeros_[count], start + count);
    }
    while (zero_count_ < longest_zeros && start + zero_count_ < length_ &&
           input_[start + zero_count_] == 0) {
        const auto longer = zeros_child(zero_count_);
        if (!longer.found()) {
            return {zeros_[zero_count_], start + zero_count_, longer};
        }
        zeros_[++zero_count_] = static_cast<std::uint16_t>(longer.target());
    }
    return walk(zeros_[zero_count_], start + zero_count_);
}

// For the last two bytes of the input.
[[gnu::noinline]] match generation::short_match(std::size_t start) const {
    const node first = node_of(input_[start]);
    if (start + 1 == length_) {
        return {first, length_, {}};
    }
    const auto pair = table_.child(first, input_[start + 1]);
    return pair.found() ? match{pair.target(), length_, {}} : match{first, start + 1, pair};
}

[[gnu::always_inline]] inline match generation::longest(std::size_t start) {
    if (start + 3 > length_) {
        return short_match(start);
    }
    if (has_word(start) && word_at(start) == 0) {
        return zeros_match(start);
    }
    const unsigned char* bytes = input_ + start;
    const node first = node_of(bytes[0]);
    const auto pair = table_.child(first, bytes[1]);
    if (!pair.found()) { // hardly ever on a page, so that the branch costs nothing there
        return {first, start + 1, pair};
    }
    const auto triple = table_.triple(bytes[0], bytes[1], bytes[2]);
    return triple.found() ? walk(triple.target(), start + 3)
                          : match{pair.target(), start + 2, triple};
}

// Gives the next code to the string longer by a byte. False when this table can't go on:
//
// In the format's own table the string 0 0 has key 0, and a slot with key 0 is overwritten when
// another key comes past it on its second or later probe. No such probe ever comes to slot 0, where
// this string belongs, so it is safe unless a string with another key was there before it.
bool generation::add(const match& found) {
    const std::uint32_t code = code_of(found.last);
    const std::uint32_t byte = input_[found.end];
    if (byte << 8 == code) {
        if (byte == 0 && first_slot_taken_) {
            return false;
        }
        first_slot_taken_ = true;
    }
    return table_.add(found.gap, node_of(next_free_++));
}

generation_end generation::go() {
    std::size_t start = run_.start;
    for (;;) {
        const match found = longest(start);
        run_.writer.put(code_of(found.last), next_free_);
        if (found.end == length_) {
            return generation_end::input_used_up;
        }
        if (next_free_ < code_limit) {
            if (!add(found)) {
                return generation_end::given_up;
            }
        } else if (run_.clear_if_due(found.end)) {
            run_.start = found.end;
            return generation_end::cleared;
        }
        start = found.end;
    }
}

} // namespace

generation_end fast_generation(compress_run& run, void* tables) {
    return generation(run, tables).go();
}

} // namespace zerdix::pages
