// SPDX-License-Identifier: MIT
// The page codec, as slow and as plain as it can be written: what the fast one is compared with.
#ifndef ZERDIX_TESTS_IMAGING_NAIVE_CODEC_H
#define ZERDIX_TESTS_IMAGING_NAIVE_CODEC_H

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace naive {

using bytes = std::vector<unsigned char>;

inline unsigned char mirror(unsigned value) {
    unsigned turned = 0;
    for (unsigned bit = 0; bit < 8; ++bit)
        turned |= (value >> bit & 1) << (7 - bit);
    return static_cast<unsigned char>(turned);
}

inline bytes mirror(bytes block) {
    for (auto& byte : block)
        byte = mirror(byte);
    return block;
}

class compressor {
  public:
    bytes run(const bytes& input) {
        out_ = {0x1f, 0x9d, 0x90};
        if (input.empty())
            return out_;
        ent_ = input[0];
        for (std::size_t n = 1; n < input.size(); ++n)
            take(input[n]);
        write(ent_);
        out_.insert(out_.end(), group_, group_ + (offset_ + 7) / 8);
        return out_;
    }

  private:
    static constexpr std::int64_t slots = 69001;

    void take(std::int64_t c) {
        ++in_count_;
        const std::int64_t key = (c << 16) + ent_;
        std::int64_t i = (c << 8) ^ ent_;
        bool found = htab_[i] == key;
        if (!found && htab_[i] >= 0) {
            const std::int64_t step = i == 0 ? 1 : slots - i;
            do {
                i -= step;
                i += i < 0 ? slots : 0;
                found = htab_[i] == key;
            } while (!found && htab_[i] > 0);
        }
        if (found) {
            ent_ = codetab_[i];
            return;
        }
        write(ent_);
        ent_ = c;
        if (free_ent_ < 65536) {
            codetab_[i] = free_ent_++;
            htab_[i] = key;
        } else if (in_count_ >= checkpoint_) {
            clear_test();
        }
    }

    void clear_test() {
        checkpoint_ = in_count_ + 10000;
        std::int64_t present;
        if (in_count_ > 0x7fffff) {
            const std::int64_t scaled = bytes_out_ >> 8;
            present = scaled == 0 ? 0x7fffffff : in_count_ / scaled;
        } else {
            present = in_count_ * 256 / bytes_out_;
        }
        if (present > ratio_) {
            ratio_ = present;
            return;
        }
        ratio_ = 0;
        std::fill(htab_.begin(), htab_.end(), -1);
        free_ent_ = 257;
        clear_flg_ = true;
        write(256);
    }

    void write(std::int64_t code) {
        for (int bit = 0; bit < n_bits_; ++bit)
            put_bit(offset_ + bit, code >> bit & 1);
        for (int bit = offset_ + n_bits_; bit % 8 != 0; ++bit)
            put_bit(bit, 0);
        offset_ += n_bits_;
        if (offset_ == n_bits_ * 8)
            write_group();
        if (free_ent_ > maxcode_ || clear_flg_) {
            if (offset_ != 0)
                write_group();
            n_bits_ = clear_flg_ ? 9 : n_bits_ + 1;
            maxcode_ = n_bits_ == 16 ? 65536 : (1 << n_bits_) - 1;
            clear_flg_ = false;
        }
    }

    void put_bit(int at, std::int64_t value) {
        const int mask = 1 << at % 8;
        group_[at / 8] =
            static_cast<unsigned char>(value != 0 ? group_[at / 8] | mask : group_[at / 8] & ~mask);
    }

    void write_group() {
        out_.insert(out_.end(), group_, group_ + n_bits_);
        bytes_out_ += n_bits_;
        offset_ = 0;
    }

    std::vector<std::int64_t> htab_ = std::vector<std::int64_t>(slots, -1);
    std::vector<std::int64_t> codetab_ = std::vector<std::int64_t>(slots);
    bytes out_;
    unsigned char group_[17] = {};
    std::int64_t ent_ = 0;
    std::int64_t free_ent_ = 257;
    std::int64_t in_count_ = 1;
    std::int64_t bytes_out_ = 3;
    std::int64_t checkpoint_ = 10000;
    std::int64_t ratio_ = 0;
    std::int64_t maxcode_ = 511;
    int n_bits_ = 9;
    int offset_ = 0;
    bool clear_flg_ = false;
};

// Holds each string in full. Empty when the header is refused.
class expander {
  public:
    std::optional<bytes> run(const bytes& stream) {
        if (stream.size() < 3 || stream[0] != 0x1f || stream[1] != 0x9d || (stream[2] & 0x1f) > 16)
            return std::nullopt;
        rest_ = bytes(stream.begin() + 3, stream.end());
        max_bits_ = stream[2] & 0x1f;
        block_mode_ = (stream[2] & 0x80) != 0;
        free_ent_ = block_mode_ ? 257 : 256;
        expand();
        return out_;
    }

  private:
    void expand() {
        int code = read();
        if (code < 0)
            return;
        bytes previous{static_cast<unsigned char>(code)};
        out_ = previous;
        while ((code = read()) >= 0) {
            if (code == 256 && block_mode_) {
                clear_flg_ = true;
                free_ent_ = 256;
                code = read();
                if (code < 0)
                    return;
            }
            const bytes present = string_of(code, previous);
            out_.insert(out_.end(), present.begin(), present.end());
            previous.push_back(present.front());
            if (free_ent_ < 1 << max_bits_)
                strings_[static_cast<std::size_t>(free_ent_++)] = previous;
            previous = present;
        }
    }

    bytes string_of(int code, const bytes& previous) const {
        if (code >= 256 && code >= free_ent_) {
            bytes present = previous;
            present.push_back(previous.front());
            return present;
        }
        return code < 256 ? bytes{static_cast<unsigned char>(code)}
                          : strings_[static_cast<std::size_t>(code)];
    }

    int read() {
        if (clear_flg_ || offset_ >= end_ || free_ent_ > maxcode_) {
            if (free_ent_ > maxcode_) {
                ++n_bits_;
                maxcode_ = n_bits_ == max_bits_ ? 1 << n_bits_ : (1 << n_bits_) - 1;
            }
            if (clear_flg_) {
                n_bits_ = 9;
                maxcode_ = 511;
                clear_flg_ = false;
            }
            const int got = static_cast<int>(
                std::min<std::size_t>(static_cast<std::size_t>(n_bits_), rest_.size() - taken_));
            std::copy_n(rest_.begin() + static_cast<std::ptrdiff_t>(taken_), got, group_);
            taken_ += static_cast<std::size_t>(got);
            offset_ = 0;
            end_ = got * 8 - (n_bits_ - 1);
            if (end_ <= 0) // not even one whole code
                return -1;
        }
        int code = 0;
        for (int bit = 0; bit < n_bits_; ++bit)
            code |= (group_[(offset_ + bit) / 8] >> (offset_ + bit) % 8 & 1) << bit;
        offset_ += n_bits_;
        return code < 256 ? mirror(static_cast<unsigned>(code)) : code;
    }

    bytes rest_;
    std::size_t taken_ = 0;
    unsigned char group_[17] = {};
    int max_bits_ = 0;
    bool block_mode_ = false;
    bool clear_flg_ = false;
    int n_bits_ = 9;
    int maxcode_ = 511;
    int free_ent_ = 257;
    int offset_ = 0;
    int end_ = 0;
    std::vector<bytes> strings_ = std::vector<bytes>(65536);
    bytes out_;
};

inline bytes compress(const bytes& input) {
    return compressor().run(input);
}
inline std::optional<bytes> expand(const bytes& stream) {
    return expander().run(stream);
}

} // namespace naive

#endif
