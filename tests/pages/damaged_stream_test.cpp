// SPDX-License-Identifier: MIT
#include "codec_calls.h"
#include "naive_codec.h"
#include "pages/code_writer.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

namespace {

using codec::bytes;
using namespace zerdix::pages;

TEST(damaged_stream, headers) {
    for (unsigned third = 0; third < 256; ++third) {
        bytes stream = *codec::compress(codec::repeated("abcab", 3000));
        stream[2] = static_cast<unsigned char>(third);
        EXPECT_EQ(codec::expand(stream), naive::expand(stream)) << third;
        EXPECT_EQ(codec::expand(stream).has_value(), (third & 0x1f) <= 16) << third;
    }
    const bytes refused[] = {{},
                             {0x1f},
                             {0x1f, 0x9d},
                             {0x9d, 0x1f, 0x90, 0x41, 0x00},
                             {0x1f, 0x9e, 0x90, 0x41, 0x00},
                             {0x1f, 0x8b, 0x08, 0x41, 0x00}};
    for (const auto& stream : refused)
        EXPECT_EQ(codec::expand(stream), std::nullopt);
}

TEST(damaged_stream, refusal_leaves_no_output) {
    const bytes stream{0x1f, 0x9d, 0x91, 0x41, 0x00};
    unsigned char mark = 0;
    unsigned char* output = &mark;
    std::int32_t length = 5;
    EXPECT_EQ(uncompress_mem_2_mem(stream.data(), 5, &output, &length), 1);
    EXPECT_EQ(output, nullptr);
    EXPECT_EQ(length, 0);
    output = &mark;
    EXPECT_EQ(uncompress_mem_2_mem(stream.data(), -1, &output, &length), 1);
    EXPECT_EQ(output, nullptr);
}

TEST(damaged_stream, cut_at_every_byte) {
    const bytes plain = codec::page_like(300, 1);
    const bytes stream = *codec::compress(plain);
    const bytes whole = *codec::expand(stream);
    ASSERT_GT(stream.size(), 1000u); // several widths
    for (std::size_t length = 3; length < stream.size(); ++length) {
        const bytes cut(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(length));
        const auto expanded = codec::expand(cut);
        ASSERT_TRUE(expanded);
        ASSERT_TRUE(expanded->size() < whole.size() &&
                    std::equal(expanded->begin(), expanded->end(), whole.begin()))
            << length;
        ASSERT_EQ(expanded, naive::expand(cut)) << length;
    }
}

TEST(damaged_stream, every_bit_turned) {
    const bytes stream = *codec::compress(codec::repeated("ababacabadd\0\0\0\0\0\0\0\0", 900));
    for (std::size_t bit = 24; bit < stream.size() * 8; ++bit) {
        bytes damaged = stream;
        damaged[bit / 8] ^= static_cast<unsigned char>(1u << bit % 8);
        ASSERT_EQ(codec::expand(damaged), naive::expand(damaged)) << bit;
    }
}

// Among 9 bits a clear code turns up every 512 codes, often two of them one behind the other.
TEST(damaged_stream, noise) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        for (const int third : {0x90, 0x10, 0x89, 0x8c, 0x09, 0x88, 0x00}) {
            bytes stream = codec::random_bytes(30 + seed * 5, seed, seed % 3 == 0 ? 4 : 256);
            stream[0] = 0x1f;
            stream[1] = 0x9d;
            stream[2] = static_cast<unsigned char>(third);
            ASSERT_EQ(codec::expand(stream), naive::expand(stream)) << seed << " " << third;
        }
    }
}

// Each code is the one being defined: n codes stand for n * n / 2 bytes.
bytes growing_stream(std::uint32_t codes) {
    code_writer writer;
    writer.put('a', first_free);
    for (std::uint32_t code = first_free; code < first_free + codes; ++code)
        writer.put(code, code + 1);
    std::size_t length;
    unsigned char* block = writer.finish(length);
    const bytes stream(block, block + length);
    std::free(block);
    return stream;
}

TEST(damaged_stream, growth_ends_at_the_limit) {
    const auto small = codec::expand(growing_stream(1000));
    ASSERT_TRUE(small);
    EXPECT_EQ(small->size(), 1001u * 1002 / 2);
    const auto stream = growing_stream(40000);
    unsigned char* output = nullptr;
    std::int32_t length = 0;
    EXPECT_EQ(uncompress_mem_2_mem(stream.data(), static_cast<std::int32_t>(stream.size()), &output,
                                   &length),
              0);
    EXPECT_LE(static_cast<std::size_t>(length), expanded_limit);
    EXPECT_GT(static_cast<std::size_t>(length), expanded_limit - 65536);
    std::free(output);
}

#ifndef ZERDIX_SANITIZED
// Runs in a child whose address space can't grow any more; 0 when everything was as it should be.
int without_memory(const bytes& plain, const bytes& stream) {
    const rlimit none{.rlim_cur = 1, .rlim_max = 1};
    if (setrlimit(RLIMIT_AS, &none) != 0)
        return 10;
    void* volatile block;
    do { // what the heap has left
        block = std::malloc(1024);
    } while (block != nullptr);
    unsigned char mark = 0;
    unsigned char* output = &mark;
    std::int32_t length = 1;
    if (compress_mem_2_mem(plain.data(), 5, &output, &length) != 1 || output || length)
        return 1;
    output = &mark;
    const auto size = static_cast<std::int32_t>(stream.size());
    return uncompress_mem_2_mem(stream.data(), size, &output, &length) != 1 || output ? 2 : 0;
}

TEST(damaged_stream, no_memory) {
    const auto plain = codec::page_like(100, 1);
    const auto stream = *codec::compress(plain);
    const pid_t child = fork();
    if (child == 0)
        _exit(without_memory(plain, stream));
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}
#endif

} // namespace
