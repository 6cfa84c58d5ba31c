// SPDX-License-Identifier: MIT
// Reading lists against the same bytes and the same number of calls through the RPC library, with
// argument and result as opaque bytes, from the same server.
//
//   a phone book of 100,000 entries by blocks of 200: time
//   100,000 users in one call: memory
#include <memory>
#include <vector>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "bench/heap_count.h"
#include "bench/instant_server.h"
#include "bench/sample_replies.h"
#include "support/test_server.h"

using namespace zerdix;
using bench::bytes_on_wire;
using bench::direct_client;
using bench::encoded;
using bench::require;
namespace proc = wire::proc;

namespace {

constexpr std::int32_t entries = 100000;
constexpr std::int32_t block = 200;
constexpr std::int32_t users = 100000;
constexpr int rounds = 12;
constexpr double least_rate = 0.8;
constexpr double most_memory = 2;

bytes_on_wire all_users() {
    std::vector<o_user_node> nodes(users);
    for (std::size_t i = 0; i < nodes.size(); ++i)
        nodes[i].user.userid.assign("u" + std::to_string(i));
    return bench::list_of<a_get_users_o>(nodes, 592);
}

void read_book(TELEBOOK& books) {
    for (std::int32_t have = 0; have < entries; have += block) {
        PTRLIST* list = books.getTBookEntries("common", NETTYPE_FAX, "100199", block);
        require(list != nullptr && list->getSize() == block, "getTBookEntries");
    }
}

bool compare_blocks(direct_client& direct, std::size_t result_bytes) {
    TELEBOOK books;
    o_get_tbookl_i request{};
    bytes_on_wire argument = encoded(request, 1024);
    bytes_on_wire result(result_bytes);
    bench::best_time ours, theirs;
    for (int round = 0; round < rounds; ++round) {
        ours.run([&] { read_book(books); });
        theirs.run([&] {
            for (std::int32_t have = 0; have < entries; have += block)
                direct.call(proc::o_get_tbookl_1::number, argument, result);
        });
    }
    std::printf("%d entries by blocks of %d, best of %d runs each, taking turns\n", entries, block,
                rounds);
    std::printf("  getTBookEntries         %9.0f us\n  clnt_call, runs of bytes %8.0f us\n",
                ours.microseconds(), theirs.microseconds());
    return bench::bar_from_below("rate : rate of runs of bytes",
                                 theirs.microseconds() / ours.microseconds(), least_rate, "");
}

bool measure_users(ZERDIX& session) {
    bench::reset_heap_peak();
    const std::size_t before = bench::count_heap().bytes;
    PTRLIST* list = session._getUserList();
    const std::size_t peak = bench::count_heap().peak - before;
    require(list != nullptr && list->getSize() == users, "_getUserList");
    const double own = static_cast<double>(users) * sizeof(o_user_rec);
    std::printf("%d users in one call: %zu bytes at most on the heap, the records are %.0f\n",
                users, peak, own);
    return bench::bar("peak memory : records", static_cast<double>(peak) / own, most_memory, "");
}

} // namespace

int main() {
    const test::scratch_folder folder;
    const test::client_environment environment{folder.path()};
    bench::keep_to_one_processor();
    const bytes_on_wire book = bench::entry_block(0, block);
    const bench::instant_server server{
        {{proc::o_get_tbookl_1::number, {book}}, {proc::a_get_users_1::number, {all_users()}}}};
    direct_client direct{environment.program()};
    ZERDIX session;
    require(session.GetClientAddr("127.0.0.1") != nullptr, "GetClientAddr");
    const bool rate = compare_blocks(direct, book.size());
    const bool memory = measure_users(session);
    session.CleanupHostConnection();
    return rate && memory ? 0 : 1;
}
