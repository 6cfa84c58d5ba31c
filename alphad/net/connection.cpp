// SPDX-License-Identifier: MIT
#include "alphad/net/connection.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

#include "rpc/wire/fixed.h"

namespace zerdix::alphad {

namespace {

// A longer call ends the connection. The longest one there is carries a picture in one piece.
constexpr std::size_t most_record_bytes = 20u << 20;
// What is read at once.
constexpr std::size_t piece_bytes = 64u << 10;

constexpr std::uint32_t last_bit = 0x80000000u;

} // namespace

connection::~connection() {
    close(socket_);
}

void connection::drop() {
    ended_ = dropped_ = true;
    in_.clear();
    read_ = sent_ = 0;
    out_.clear();
}

void connection::receive() {
    std::array<char, piece_bytes> piece;
    const ssize_t got = recv(socket_, piece.data(), piece.size(), MSG_DONTWAIT);
    if (got > 0)
        in_.append(piece.data(), static_cast<std::size_t>(got));
    else if (got == 0)
        ended_ = true;
    else if (errno != EAGAIN && errno != EINTR)
        drop();
}

// False when its head isn't there yet.
bool connection::begin_fragment() {
    const std::string_view bytes = unread();
    if (bytes.size() < sizeof(std::uint32_t))
        return false;
    const std::uint32_t word =
        wire::load_word(reinterpret_cast<const unsigned char*>(bytes.data()));
    read_ += sizeof word;
    fragment_left_ = word & ~last_bit;
    last_fragment_ = (word & last_bit) != 0;
    in_fragment_ = true;
    if (fragment_left_ <= most_record_bytes - record_.size())
        return true;
    drop();
    return false;
}

void connection::take_fragment() {
    const std::string_view part = unread().substr(0, fragment_left_);
    record_ += part;
    read_ += part.size();
    fragment_left_ -= static_cast<std::uint32_t>(part.size());
    if (fragment_left_ > 0)
        return;
    in_fragment_ = false;
    whole_ = last_fragment_;
}

const std::string* connection::next_record() {
    if (whole_)
        record_.clear();
    whole_ = false;
    while (!whole_ && (in_fragment_ || begin_fragment())) {
        take_fragment();
        if (in_fragment_)
            break;
    }
    if (read_ == in_.size() || read_ >= piece_bytes) {
        in_.erase(0, read_);
        read_ = 0;
    }
    return whole_ ? &record_ : nullptr;
}

void connection::send(std::string_view bytes) {
    if (dropped_)
        return;
    if (out_.empty()) {
        const ssize_t went =
            ::send(socket_, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (went < 0 && errno != EAGAIN && errno != EINTR)
            return drop();
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(went, 0)));
    }
    out_ += bytes;
}

void connection::flush() {
    const std::string_view rest = std::string_view{out_}.substr(sent_);
    const ssize_t went = ::send(socket_, rest.data(), rest.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (went < 0 && errno != EAGAIN && errno != EINTR)
        return drop();
    sent_ += static_cast<std::size_t>(std::max<ssize_t>(went, 0));
    if (sent_ < out_.size())
        return;
    out_.clear();
    sent_ = 0;
}

} // namespace zerdix::alphad
