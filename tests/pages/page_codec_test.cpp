// SPDX-License-Identifier: MIT
#include "codec_calls.h"
#include "naive_codec.h"
#include "pages/compress_run.h"

#include <gmock/gmock.h>

namespace {

using codec::bytes;

void expect_like_naive(const bytes& input) {
    const auto stream = codec::compress(input);
    ASSERT_TRUE(stream);
    const auto naive_stream = naive::compress(input);
    const auto [ours, theirs] =
        std::mismatch(stream->begin(), stream->end(), naive_stream.begin(), naive_stream.end());
    ASSERT_TRUE(ours == stream->end() && theirs == naive_stream.end())
        << "streams differ from byte " << ours - stream->begin();
    const auto expanded = codec::expand(*stream);
    ASSERT_TRUE(expanded);
    ASSERT_TRUE(*expanded == naive::mirror(input));
}

TEST(page_codec, known_streams) {
    const struct {
        bytes plain;
        bytes stream;
    } cases[] = {
        {{}, {0x1f, 0x9d, 0x90}},
        {{0x41}, {0x1f, 0x9d, 0x90, 0x41, 0x00}},
        {{0x41, 0x42}, {0x1f, 0x9d, 0x90, 0x41, 0x84, 0x00}},
        {{0x61, 0x61, 0x61, 0x61}, {0x1f, 0x9d, 0x90, 0x61, 0x02, 0x86, 0x01}},
    };
    for (const auto& known : cases) {
        EXPECT_EQ(codec::compress(known.plain), known.stream);
        EXPECT_EQ(codec::expand(known.stream), naive::mirror(known.plain));
    }
    EXPECT_EQ(codec::expand(*codec::compress({0x01, 0x0f})), (bytes{0x80, 0xf0}));
}

TEST(page_codec, short_inputs_of_few_kinds) {
    for (std::size_t length = 0; length < 11; ++length) {
        for (unsigned pattern = 0; pattern < 1u << length; ++pattern) {
            bytes input;
            for (std::size_t n = 0; n < length; ++n)
                input.push_back(pattern >> n & 1 ? 0xff : 0x00);
            ASSERT_NO_FATAL_FAILURE(expect_like_naive(input)) << length << " " << pattern;
        }
    }
}

TEST(page_codec, runs_and_repeats) {
    for (const std::size_t length : {7u, 8u, 9u, 37u, 1000u, 70001u, 3000000u}) {
        for (const std::string_view pattern :
             {std::string_view("\0", 1), std::string_view("\xff"), std::string_view("xy"),
              std::string_view("a\0\0", 3), std::string_view("\0\0\0\0\0\0\0\0\0\1", 10),
              std::string_view("abcdefghijklmnopqrstuvwxyz")}) {
            ASSERT_NO_FATAL_FAILURE(expect_like_naive(codec::repeated(pattern, length)))
                << length << " of " << pattern;
        }
    }
}

// More than 65,536 codes, the clear test and the clear code; few kinds of bytes give long strings.
TEST(page_codec, full_tables) {
    for (const unsigned kinds : {2u, 3u, 17u, 256u}) {
        for (unsigned seed = 0; seed < 3; ++seed) {
            ASSERT_NO_FATAL_FAILURE(
                expect_like_naive(codec::random_bytes(kinds * 900 + 900000, seed, kinds)))
                << kinds << " kinds, seed " << seed;
        }
    }
}

TEST(page_codec, pages) {
    bytes many;
    for (unsigned seed = 0; seed < 12; ++seed) {
        const auto page = codec::page_like(2286, seed);
        many.insert(many.end(), page.begin(), page.end());
    }
    ASSERT_NO_FATAL_FAILURE(expect_like_naive(many));
}

TEST(page_codec, ratio_of_a_long_input) {
    auto input = codec::repeated("page", 0x800000);
    const auto noise = codec::random_bytes(600000, 3);
    input.insert(input.end(), noise.begin(), noise.end());
    input.insert(input.end(), input.begin(), input.begin() + 300000);
    ASSERT_NO_FATAL_FAILURE(expect_like_naive(input));
}

zerdix::pages::generation_end one_generation(const bytes& input) {
    bytes tables(zerdix::pages::table_bytes);
    zerdix::pages::compress_run run(input.data(), input.size());
    return zerdix::pages::fast_generation(run, tables.data());
}

// The pair 00 00 has key 0 in the format's table, and is forgotten there when another key is stored
// over it. That takes another key in slot 0 first, such as byte 2 behind code 512.
TEST(page_codec, forgets_a_pair_of_zeros) {
    bytes input = codec::random_bytes(60000, 11, 255);
    for (auto& byte : input)
        ++byte;                                   // no zeros yet
    for (unsigned high = 2; high < 256; ++high) { // all that starts with any of the codes so far
        const auto repeat = 300 + high * 7;
        input.insert(input.end(), input.begin() + repeat, input.begin() + repeat + 4);
        input.push_back(static_cast<unsigned char>(high));
    }
    for (unsigned n = 0; n < 30000; ++n) {
        input.insert(input.end(), n % 40 == 0 ? 3 : 1, 0);
        input.push_back(static_cast<unsigned char>(n * n >> n % 5));
    }
    ASSERT_NO_FATAL_FAILURE(expect_like_naive(input));
    std::size_t given_up = 0;
    for (unsigned seed = 0; seed < 20; ++seed) {
        const auto noise = codec::random_bytes(300000, seed + 100);
        given_up += one_generation(noise) == zerdix::pages::generation_end::given_up;
        ASSERT_NO_FATAL_FAILURE(expect_like_naive(noise)) << seed;
    }
    EXPECT_GT(given_up, 0u) << "none of these inputs forgets the pair";
}

TEST(page_codec, plain_engine_alone) {
    for (const auto& input : {codec::random_bytes(500000, 5), codec::page_like(2286, 5)}) {
        bytes tables(zerdix::pages::table_bytes);
        zerdix::pages::compress_run run(input.data(), input.size());
        while (zerdix::pages::plain_generation(run, tables.data()) ==
               zerdix::pages::generation_end::cleared) {
        }
        std::size_t length;
        unsigned char* block = run.writer.finish(length);
        EXPECT_TRUE(bytes(block, block + length) == naive::compress(input));
        std::free(block);
    }
}

} // namespace
