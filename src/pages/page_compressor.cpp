// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <limits>
#include <memory>

#include "pages/compress_run.h"
#include "pages/page_codec.h"

namespace zerdix::pages {
namespace {

struct releaser {
    void operator()(void* memory) const { std::free(memory); }
};

void compress_all(compress_run& run, void* tables) {
    generation_end end;
    do {
        const auto start = run.start;
        const auto test = run.test;
        const auto position = run.writer.tell();
        end = fast_generation(run, tables);
        if (end == generation_end::given_up) {
            run.start = start;
            run.test = test;
            run.writer.go_back(position);
            end = plain_generation(run, tables);
        }
    } while (end == generation_end::cleared && !run.writer.failed());
}

} // namespace

std::int32_t compress_mem_2_mem(const unsigned char* input, std::int32_t inputLength,
                                unsigned char** output, std::int32_t* outputLength) {
    *output = nullptr;
    *outputLength = 0;
    const std::unique_ptr<void, releaser> tables(std::malloc(table_bytes));
    if (tables == nullptr) {
        return 1;
    }
    compress_run run(input, inputLength > 0 ? static_cast<std::size_t>(inputLength) : 0);
    if (run.length > 0) {
        compress_all(run, tables.get());
    }
    std::size_t length;
    *output = run.writer.finish(length);
    if (*output == nullptr || length > std::size_t{std::numeric_limits<std::int32_t>::max()}) {
        std::free(*output);
        *output = nullptr;
        return 1;
    }
    *outputLength = static_cast<std::int32_t>(length);
    return 0;
}

} // namespace zerdix::pages
