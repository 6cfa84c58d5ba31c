// Replies that drip in: each single read is quick, and the call has to end in time all the same.

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

#include <gtest/gtest.h>

#include "rpc/wire/deadline.h"
#include "rpc/wire/filter.h"
#include "rpc/wire/procedures.h"
#include "wire/wire_bytes.h"

namespace {

using namespace zerdix;
using namespace zerdix::wire;
using std::chrono::milliseconds;
using zerdix::testing::wire_bytes;

// A reply as one record of the transport, one byte at each read.
class dripping_reply {
  public:
    dripping_reply(const wire_bytes& reply, milliseconds pause) : pause_(pause) {
        bytes_.word(0x80000000u | static_cast<std::uint32_t>(reply.size())).append(reply);
        xdrrec_create(&stream_, 0, 0, this, &dripping_reply::read, &dripping_reply::write);
        stream_.x_op = XDR_DECODE;
        xdrrec_skiprecord(&stream_);
    }
    ~dripping_reply() { XDR_DESTROY(&stream_); }
    dripping_reply(const dripping_reply&) = delete;
    dripping_reply& operator=(const dripping_reply&) = delete;

    XDR* stream() { return &stream_; }
    bool at_end() const { return taken_ == bytes_.size(); }

  private:
    static int read(void* reply, void* to, int room) {
        auto* self = static_cast<dripping_reply*>(reply);
        if (self->at_end() || room < 1)
            return -1;
        std::this_thread::sleep_for(self->pause_);
        std::memcpy(to, &self->bytes_.bytes()[self->taken_++], 1);
        return 1;
    }
    static int write(void*, void*, int length) { return length; }

    wire_bytes bytes_;
    std::size_t taken_ = 0;
    milliseconds pause_;
    XDR stream_;
};

wire_bytes page_block(std::size_t size) {
    wire_bytes reply;
    const auto length = static_cast<std::uint32_t>(size);
    reply.words({1, length, length}).raw(std::string(size, 'p'));
    return reply.raw(std::string((4 - size % 4) % 4, '\0'));
}

// Fails long before the reply's own eight seconds are over.
template <class T>
void expect_cut_short(const wire_bytes& reply) {
    dripping_reply drip(reply, milliseconds{2});
    const auto start = std::chrono::steady_clock::now();
    const call_time time(milliseconds{50});
    T record{};
    EXPECT_FALSE(filter(drip.stream(), record));
    EXPECT_TRUE(call_expired());
    EXPECT_FALSE(drip.at_end());
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds{2000});
    release(record);
}

TEST(Drip, ALongRecordEndsWithTheCallsTime) {
    wire_bytes reply;
    for (int i = 0; i < 1001; ++i)
        reply.word(1);
    expect_cut_short<a_get_inf_o>(reply);
}

TEST(Drip, ALongByteFieldEndsWithTheCallsTime) {
    expect_cut_short<a_get_pageb_o>(page_block(4001));
}

TEST(Drip, WhatComesInTimeIsTakenWhole) {
    dripping_reply drip(page_block(301), milliseconds{0});
    const call_time time(std::chrono::seconds{60});
    a_get_pageb_o block{};
    ASSERT_TRUE(filter(drip.stream(), block));
    EXPECT_TRUE(drip.at_end());
    ASSERT_EQ(block.data.length, 301u);
    EXPECT_TRUE(
        std::all_of(block.data.data, block.data.data + 301, [](auto c) { return c == 'p'; }));
    release(block);
}

} // namespace
