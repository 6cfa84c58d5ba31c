// SPDX-License-Identifier: MIT
// Measures what StoreFaxPage costs beside the codec and the remote calls, and its heap, for
// fax pages of 1,728 by 2,286 pixels and a server that answers at once.
//
//     page_intake_ratio [page-block-file...]
//
// Files hold pages in stored form; without any it makes a text page and a dense one.
//
// In each round the page goes through StoreFaxPage, then its stored form through the codec alone,
// then through the bare stubs, with everything ready made, what is asked for the user's
// letterheads, the finished page's blocks and its log line. The best time of each counts. Freeing
// the codec's output isn't counted as the codec's. The pages are the second and later ones of a
// job: the first one makes the document besides.
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "bench/heap_count.h"
#include "bench/instant_server.h"
#include "bench/measure.h"
#include "bench/sample_pages.h"
#include "pages/codec_calls.h"
#include "pages/compress_run.h"
#include "pages/driver_form.h"
#include "pages/mirror.h"
#include "rpc/wire/stub.h"
#include "sendfax/log_line.h"
#include "support/test_server.h"

using namespace zerdix;
using bench::length_of;
using bench::page_bytes;
using bench::require;

namespace {

constexpr int rounds = 200;
constexpr double time_limit = 10;             // percent
constexpr std::size_t block_length = 16384;   // what the settings' default makes of a page
constexpr std::size_t output_step = 65536;    // the codec's output grows by it
constexpr std::size_t whole_pages = 3 * 4096; // malloc rounds each of three large blocks up

str10 user_field() {
    str10 user{};
    user.assign(ZERDIX::clsGetUserId());
    return user;
}

// The remote calls of a page with nothing around them.
class bare_calls {
  public:
    explicit bare_calls(page_bytes& compressed)
        : handle_(ZERDIX::clsGetClient()), user_(user_field()) {
        std::size_t offset = 0;
        std::size_t count = 0;
        do {
            offset += count;
            count = std::min(block_length, compressed.size() - offset);
            blocks_.push_back({user_field(),
                               1,
                               2,
                               0,
                               static_cast<std::int32_t>(offset),
                               static_cast<std::int32_t>(count),
                               {static_cast<std::uint32_t>(count), compressed.data() + offset}});
        } while (count == block_length);
        line_ = sendfax::log_time(std::time(nullptr)) + " $ps.page_no_completed: $p:=100";
        log_ = {user_field(),
                TOPF_P,
                1,
                {static_cast<std::uint32_t>(line_.size() + 1),
                 reinterpret_cast<unsigned char*>(line_.data())}};
    }

    void make() {
        require(wire::stub<wire::proc::a_get_user_1>(user_, handle_) != nullptr, "the user");
        for (auto& block : blocks_)
            require(wire::stub<wire::proc::a_put_pageb_1>(block, handle_) != nullptr, "a block");
        require(wire::stub<wire::proc::a_put_log_1>(log_, handle_) != nullptr, "the log line");
    }

    std::size_t count() const { return blocks_.size() + 2; }

  private:
    client* handle_;
    str10 user_;
    std::vector<a_put_pageb_i> blocks_;
    std::string line_;
    a_put_log_i log_;
};

void store(const page_bytes& page) {
    require(StoreFaxPage(page.data(), length_of(page), 0, 0) == 0, "StoreFaxPage");
}

bool compare_times(const page_bytes& driver, const page_bytes& stored, page_bytes& compressed) {
    bare_calls remote{compressed};
    bench::best_time whole;
    bench::best_time compression;
    bench::best_time calls;
    for (int round = 0; round < rounds; ++round) {
        whole.run([&] { store(driver); });
        unsigned char* output = nullptr;
        std::int32_t length = 0;
        compression.run(
            [&] { pages::compress_mem_2_mem(stored.data(), length_of(stored), &output, &length); });
        std::free(output);
        calls.run([&] { remote.make(); });
    }
    const double rest = whole.microseconds() - compression.microseconds() - calls.microseconds();
    std::printf("  whole %7.0f us   codec %7.0f us   %zu remote calls %5.0f us   rest %5.0f us\n",
                whole.microseconds(), compression.microseconds(), remote.count(),
                calls.microseconds(), rest);
    return bench::bar("everything else, share of the whole", 100 * rest / whole.microseconds(),
                      time_limit, "%");
}

bool compare_heap(const page_bytes& driver, const page_bytes& compressed) {
    const std::size_t output = (compressed.size() + output_step - 1) / output_step * output_step;
    const bench::heap_count before = bench::count_heap();
    bench::reset_heap_peak();
    store(driver);
    const bench::heap_count after = bench::count_heap();
    const std::size_t peak = after.peak - before.bytes;
    std::printf("  heap: peak %zu bytes above the caller's block: work buffer %zu, compressed page "
                "%zu\n        in a block of %zu, codec's tables %zu\n",
                peak, driver.size(), compressed.size(), output, pages::table_bytes);
    const auto beside = static_cast<double>(peak) - static_cast<double>(pages::table_bytes);
    const bool small =
        bench::bar("peak heap without the codec's tables", beside / 1024,
                   static_cast<double>(driver.size() + output + whole_pages) / 1024, "KiB");
    const auto kept = static_cast<double>(after.bytes) - static_cast<double>(before.bytes);
    const bool nothing_kept = bench::bar("bytes kept after the call", kept, 0, "bytes");
    require(!nothing_kept || after.blocks == before.blocks, "as many blocks as bytes");
    return small && nothing_kept;
}

bool measure(const char* name, const page_bytes& stored) {
    const page_bytes driver = bench::driver_form(stored);
    page_bytes compressed = *codec::compress(stored);
    const pages::page_size size = pages::read_header(stored.data(), pages::header_form::stored);
    std::printf("StoreFaxPage, %s: %u by %u pixels, %zu bytes compressed, best of %d runs\n", name,
                size.width, size.height, compressed.size(), rounds);
    require(TransmissionDlg(nullptr, "Page intake", 1) == 0, "TransmissionDlg");
    store(driver);
    const bool fast = compare_times(driver, stored, compressed);
    const bool small = compare_heap(driver, compressed);
    require(DeleteFaxDoc() == 0, "DeleteFaxDoc");
    return fast && small;
}

} // namespace

int main(int argc, char** argv) {
    const test::scratch_folder folder;
    const test::client_environment environment{folder.path()};
    bench::keep_to_one_processor();
    const bench::instant_server server;
    return bench::measure_pages(argc, argv, measure) ? 0 : 1;
}
