// SPDX-License-Identifier: MIT
#include <span>

#include "pages/compress_run.h"

namespace zerdix::pages {
namespace {

class plain_table {
  public:
    explicit plain_table(void* memory)
        : keys_(static_cast<std::int32_t*>(memory), plain_slots),
          codes_(reinterpret_cast<std::uint16_t*>(keys_.data() + plain_slots), plain_slots) {
        std::fill(keys_.begin(), keys_.end(), empty);
    }

    // Steps from `code` to the code of the string that is longer by `byte`. False when there is no
    // such string; then the slot for it is kept.
    bool follow(std::uint32_t& code, std::uint32_t byte) {
        key_ = static_cast<std::int32_t>(byte << 16 | code);
        slot_ = byte << 8 ^ code;
        if (keys_[slot_] != key_ && (keys_[slot_] < 0 || !probe())) {
            return false;
        }
        code = codes_[slot_];
        return true;
    }

    // Enters the string that follow() didn't find.
    void add(std::uint32_t code) {
        codes_[slot_] = static_cast<std::uint16_t>(code);
        keys_[slot_] = key_;
    }

  private:
    static constexpr std::int32_t empty = -1;

    // A slot with key 0, which is byte 0 behind the string 0, counts as free here: the string in it
    // may be overwritten, and then is forgotten.
    bool probe() {
        const std::uint32_t step = slot_ == 0 ? 1 : plain_slots - slot_;
        do {
            slot_ = slot_ < step ? slot_ + plain_slots - step : slot_ - step;
            if (keys_[slot_] == key_) {
                return true;
            }
        } while (keys_[slot_] > 0);
        return false;
    }

    std::span<std::int32_t> keys_;
    std::span<std::uint16_t> codes_;
    std::int32_t key_ = 0;
    std::uint32_t slot_ = 0;
};

} // namespace

generation_end plain_generation(compress_run& run, void* tables) {
    plain_table table(tables);
    std::uint32_t next_free = first_free;
    std::uint32_t code = run.input[run.start];
    for (std::size_t next = run.start + 1; next < run.length; ++next) {
        const std::uint32_t byte = run.input[next];
        if (table.follow(code, byte)) {
            continue;
        }
        run.writer.put(code, next_free);
        if (next_free < code_limit) {
            table.add(next_free++);
        } else if (run.clear_if_due(next)) {
            run.start = next;
            return generation_end::cleared;
        }
        code = byte;
    }
    run.writer.put(code, next_free);
    return generation_end::input_used_up;
}

} // namespace zerdix::pages
