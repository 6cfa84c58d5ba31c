// SPDX-License-Identifier: MIT
// Export and import of a phone book against the remote calls that they make, made alone: the same
// procedures with the same arguments and answers, through the same stubs, to a server that answers
// at once. Each in two sizes: the processor time that a transfer takes may grow only as the book
// does, and memory not at all.
#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "bench/heap_count.h"
#include "bench/instant_server.h"
#include "bench/sample_replies.h"
#include "support/test_server.h"

using namespace zerdix;
using bench::bytes_on_wire;
using bench::encoded;
using bench::require;
namespace proc = wire::proc;

namespace {

constexpr std::int32_t small_book = 50000;
constexpr std::int32_t large_book = 100000;
constexpr std::int32_t block = 200;
constexpr int export_rounds = 30;
constexpr int import_rounds = 3;
constexpr double most_export = 2;
constexpr double most_import = 1.25;
constexpr double most_growth = 2.3; // twice, and some noise
constexpr std::size_t most_more_memory = 4096;

std::vector<o_tebul> make_book(std::int32_t entries) {
    std::vector<o_tebul> book;
    for (std::int32_t i = 0; i < entries; ++i)
        book.push_back(bench::sample_entry(static_cast<std::size_t>(i)));
    return book;
}

bytes_on_wire block_size() {
    str80 value{};
    value.assign(std::to_string(block));
    return encoded(value, 1024);
}

void call_for_blocks(const std::vector<o_tebul>& book) {
    o_get_tbookl_i request{};
    request.tbookid.assign("common");
    request.blocksize = block;
    for (std::size_t i = 0; i <= book.size(); i += block) {
        const auto* answer = wire::stub<proc::o_get_tbookl_1>(request, ZERDIX::clsGetClient());
        require(answer != nullptr, "o_get_tbookl_1");
        request.start = book[std::min(i, book.size() - block) + block - 1].teleid;
    }
}

void call_with_entries(const std::vector<o_tebul>& book) {
    o_put_tbookentry_i request{};
    for (const o_tebul& entry : book) {
        request.record = entry;
        const auto* stored = wire::stub<proc::o_put_tbookentry_1>(request, ZERDIX::clsGetClient());
        require(stored != nullptr && *stored, "o_put_tbookentry_1");
    }
}

// Transfer and bare calls, taking turns.
struct comparison {
    bench::best_time transfer;
    bench::best_time calls;
    std::clock_t processor = std::numeric_limits<std::clock_t>::max(); // this program's, at best
    std::size_t peak = 0; // heap bytes of a transfer, at most

    template <class Transfer, class Calls>
    void run(const bench::instant_server& server, Transfer transfer_once, Calls call) {
        const std::uint32_t before = server.calls();
        const std::size_t held = bench::count_heap().bytes;
        bench::reset_heap_peak();
        const std::clock_t begin = std::clock();
        transfer.run(transfer_once);
        processor = std::min(processor, std::clock() - begin);
        peak = std::max(peak, bench::count_heap().peak - held);
        const std::uint32_t made = server.calls() - before;
        calls.run(call);
        require(server.calls() - before == 2 * made, "the same calls twice");
    }

    double ratio() const { return transfer.microseconds() / calls.microseconds(); }
    void print(const char* name) const {
        std::printf("  %-8s %9.0f us, calls alone %9.0f us, heap %zu bytes, processor %ld us\n",
                    name, transfer.microseconds(), calls.microseconds(), peak,
                    static_cast<long>(processor));
    }
};

struct transfers {
    comparison out;
    comparison in;
};

transfers measure(std::int32_t entries) {
    const test::scratch_folder folder;
    const test::client_environment environment{folder.path()};
    const std::vector<o_tebul> book = make_book(entries);
    const bench::instant_server server{
        {{proc::o_get_tbookl_1::number, bench::entry_blocks(book.size(), block)},
         {proc::a_get_config_1::number, {block_size()}}}};
    ZERDIX session;
    require(session.GetClientAddr("127.0.0.1") != nullptr, "GetClientAddr");
    require(ZERDIX::clsGetTelebookBlockSize() == block, "the block size");
    TELEBOOK books;
    const std::string file = folder.path() / "book.csv";
    transfers found;
    for (int round = 0; round < export_rounds; ++round)
        found.out.run(
            server,
            [&] { require(books.exportTBook("common", NETTYPE_FAX, file.c_str()) == 0, "export"); },
            [&] { call_for_blocks(book); });
    for (int round = 0; round < import_rounds; ++round)
        found.in.run(
            server, [&] { require(books.importTBook("common", file.c_str()) == 0, "import"); },
            [&] { call_with_entries(book); });
    std::ifstream lines(file);
    require(std::count(std::istreambuf_iterator<char>(lines), {}, '\n') == entries, "lines");
    std::printf("%d entries, blocks of %d, best of %d and %d runs each, taking turns\n", entries,
                block, export_rounds, import_rounds);
    found.out.print("export");
    found.in.print("import");
    session.CleanupHostConnection();
    return found;
}

bool judge(const char* name, const comparison& small, const comparison& large, double most) {
    const std::string ratio = std::string{name} + " : calls alone";
    const std::string growth = std::string{name} + ", processor time, twice the entries : once";
    const std::string memory = std::string{name} + ", more heap for twice the entries";
    const double grown =
        static_cast<double>(large.processor) / static_cast<double>(small.processor);
    const double more = static_cast<double>(large.peak) - static_cast<double>(small.peak);
    const bool good = bench::bar(ratio.c_str(), large.ratio(), most, "");
    const bool linear = bench::bar(growth.c_str(), grown, most_growth, "");
    const bool flat = bench::bar(memory.c_str(), more, most_more_memory, "bytes");
    return good && linear && flat;
}

} // namespace

int main() {
    bench::keep_to_one_processor();
    const transfers small = measure(small_book);
    const transfers large = measure(large_book);
    const bool out = judge("export", small.out, large.out, most_export);
    const bool in = judge("import", small.in, large.in, most_import);
    return out && in ? 0 : 1;
}
