// SPDX-License-Identifier: MIT
// Any bytes as a compressed page: the expander gives what the naive one gives. What it gives,
// compressed and expanded again, comes back mirrored.

#include "pages/codec_calls.h"
#include "pages/naive_codec.h"
#include "require.h"

namespace {

constexpr std::size_t longest = 4096; // the naive one holds every string in full

void check_round_trip(const codec::bytes& plain) {
    const auto stream = codec::compress(plain);
    require(stream && *stream == naive::compress(plain));
    require(codec::expand(*stream) == naive::mirror(plain));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const codec::bytes input(data, data + size);
    if (size > longest) {
        codec::expand(input);
        return 0;
    }
    const auto expanded = codec::expand(input);
    require(expanded == naive::expand(input));
    if (expanded)
        check_round_trip(*expanded);
    return 0;
}
