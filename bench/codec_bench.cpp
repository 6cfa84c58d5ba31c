// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include "pages/codec_calls.h"

namespace {

constexpr std::size_t rows = 2286;

codec::bytes block_of(std::int64_t kind) {
    switch (kind) {
    case 0:
        return codec::page_like(rows, 1);
    case 1:
        return codec::bytes(8 + rows * 216, 0);
    default:
        return codec::random_bytes(8 + rows * 216, 1);
    }
}

const char* name_of(std::int64_t kind) {
    return kind == 0 ? "page" : kind == 1 ? "white" : "noise";
}

template <typename Operation>
void run(benchmark::State& state, Operation operation, const codec::bytes& input) {
    for (auto _ : state) {
        unsigned char* output = nullptr;
        std::int32_t length = 0;
        if (operation(input.data(), static_cast<std::int32_t>(input.size()), &output, &length) !=
            0) {
            state.SkipWithError("the call failed");
        }
        benchmark::DoNotOptimize(output);
        std::free(output);
    }
}

// Both count the bytes of the plain block.
void compress(benchmark::State& state) {
    const auto block = block_of(state.range(0));
    run(state, zerdix::pages::compress_mem_2_mem, block);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(block.size()));
    state.SetLabel(name_of(state.range(0)));
}

void expand(benchmark::State& state) {
    const auto block = block_of(state.range(0));
    run(state, zerdix::pages::uncompress_mem_2_mem, *codec::compress(block));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(block.size()));
    state.SetLabel(name_of(state.range(0)));
}

BENCHMARK(compress)->DenseRange(0, 2);
BENCHMARK(expand)->DenseRange(0, 2);

} // namespace
