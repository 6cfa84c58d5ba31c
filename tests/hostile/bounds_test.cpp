// SPDX-License-Identifier: MIT
// What trouble may cost: time, memory, and the number of calls of a list that never ends.

#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hostile/faults.h"
#include "hostile/operations.h"
#include "hostile/shapes.h"
#include "rpc/session.h"
#include "rpc/wire/procedures.h"
#include "rpc/wire/transport.h"

namespace zerdix::testing {
namespace {

using namespace std::chrono_literals;
namespace proc = wire::proc;
using clock = std::chrono::steady_clock;

// A session over a connection to a scripted server.
struct connected_clients : clients {
    explicit connected_clients(script_server::handler answer) {
        server.on_call(std::move(answer));
        rpc::session().pclient = wire::connect(server.address(), server.program());
    }
    ~connected_clients() {
        if (rpc::session().pclient != nullptr)
            clnt_destroy(rpc::session().pclient);
        rpc::session().pclient = nullptr;
    }
    script_server server;
};

// How long a call lasts that is answered byte by byte, 0 when it isn't given up.
int seconds_on(const std::function<byte_vector(const incoming_call&)>& reply) {
    connected_clients on(
        [&reply](const auto& call, auto& client) { client.drip(reply(call), 200ms); });
    const auto start = clock::now();
    const bool given_up = on.journal.getSDoc(1) == nullptr && ZERDIX::clsGetClient() == nullptr;
    return given_up ? static_cast<int>((clock::now() - start) / 1s) : 0;
}

byte_vector slow_record(const incoming_call& call) {
    return record_of(reply_to(call, byte_vector(400, 1)));
}

// With a verifier of 200 bytes.
byte_vector slow_header(const incoming_call& call) {
    wire_bytes reply;
    reply.word(0x80000000u + 24 + 200 + 4).words({call.id, 1, 0, 0, 200});
    return reply.raw(std::string(208, '\0')).bytes();
}

TEST(HostileBounds, ADripIsGivenUpAfter25Seconds) {
    const pid_t child = fork();
    if (child == 0)
        _exit(seconds_on(slow_header));
    const int on_a_record = seconds_on(slow_record);
    EXPECT_TRUE(on_a_record == 25 || on_a_record == 26) << on_a_record; // on a busy machine
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    const int on_a_header = WEXITSTATUS(status);
    EXPECT_TRUE(on_a_header == 25 || on_a_header == 26) << on_a_header;
}

// The operations that don't look at the reason of a failure.
TEST(HostileBounds, AServerThatWasSilentCanBeAskedAgain) {
    std::atomic<bool> silent{true};
    connected_clients on([&silent](const auto& call, auto& client) {
        if (!silent)
            client.send(record_of(reply_to(call, {0, 0, 0, 1})));
    });
    const auto give_calls = [](timeval time) {
        clnt_control(ZERDIX::clsGetClient(), CLSET_TIMEOUT, reinterpret_cast<char*>(&time));
    };
    const std::function<bool()> failures[] = {
        [&] { return on.journal.loadDocPtrList(TOPF_P, 0) == 4; },
        [&] { return on.journal.getDocInf(TOPF_P, 5, 0) == nullptr; },
        [] { return ZERDIX::clsCheckLogin() == 8; },
        [&] { return on.session.logout() == 8; },
    };
    for (const auto& fails : failures) {
        silent = true;
        give_calls({0, 60'000});
        EXPECT_TRUE(fails());
        silent = false;
        give_calls({5, 0});
        EXPECT_EQ(ZERDIX::clsCheckLogin(), 0);
    }
}

#ifndef ZERDIX_SANITIZED

// Peak memory of the process since the last reset, in KiB.
long peak() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            status >> word;
            return std::stol(word);
        }
    return 0;
}

template <class Run>
long growth(Run run) {
    std::ofstream("/proc/self/clear_refs") << 5 << std::flush;
    const long before = peak();
    run();
    return peak() - before;
}

TEST(HostileBounds, MemoryFollowsTheBytesThatArrive) {
    struct {
        std::vector<std::uint32_t> head;
        std::uint32_t words = 0; // behind it, each of them 1
    } result;
    connected_clients on([&result](const auto& call, auto& client) {
        const auto [head, words] = result; // as it is now: the client may be on its way already
        wire_bytes beginning, piece;
        beginning.word(0x80000000u | static_cast<std::uint32_t>(24 + 4 * (head.size() + words)));
        beginning.append(reply_to(call, {}));
        for (const std::uint32_t each : head)
            beginning.word(each);
        client.send(beginning.bytes());
        for (int i = 0; i < 10'000; ++i)
            piece.word(1);
        for (std::uint32_t sent = 0; sent < words && client.send(piece.bytes()); sent += 10'000)
            ;
    });
    const auto lists = [&on] { EXPECT_EQ(on.books.getTBooks(), nullptr); };
    const auto page = [&on] { EXPECT_EQ(on.journal.getDocPage(TOPF_P, 1, 1, 0), nullptr); };
    lists();
    constexpr long buffers = 1024;
    result = {{0x7FFFFFFF}, 10'000'000}; // 40 MB of "one more"
    EXPECT_LT(growth(lists), buffers);
    result = {{1, 1, wire::max_field_bytes}, 10'000}; // 40 KB of what is said to be 64 MiB
    EXPECT_LT(growth(page), buffers);
    result.words = 1'000'000; // 4 MB of it
    EXPECT_LT(growth(page), 2 * 4'000 + buffers);
    for (const std::uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        result = {{1, 1, length}, 10'000};
        EXPECT_LT(growth(page), buffers);
    }
}

#endif

// A server whose blocks never come to an end, whatever it is asked for.
struct endless {
    const char* name;
    std::vector<char> keys; // of the blocks, over and over
    std::uint32_t nodes;
};

template <class P>
byte_vector block(const endless& blocks, int n) {
    shape as;
    as.letter = blocks.keys[static_cast<std::size_t>(n) % blocks.keys.size()];
    as.nodes = blocks.nodes;
    as.count = 1'000'000'000;
    typename P::result list{};
    fill(list, as);
    const byte_vector bytes = encode(list, 1u << 20);
    wire::release(list);
    return bytes;
}

using blockwise =
    wire::procedure_list<proc::a_get_usersb_1, proc::a_get_printersb_1, proc::o_get_tgroupsb_1,
                         proc::o_get_tgrouplb_1, proc::o_get_tbookl_1>;

template <class... P>
byte_vector block_of(wire::procedure_list<P...>, std::uint32_t procedure, const endless& blocks,
                     int n) {
    byte_vector bytes;
    const auto fill = [&]<class Q>(Q) {
        if (Q::number == procedure)
            bytes = block<Q>(blocks, n);
    };
    (fill(P{}), ...);
    return bytes;
}

TEST(HostileBounds, GatheredListsEndWhateverTheServerDoes) {
    const endless kinds[] = {{"one entry", {'a'}, 1},
                             {"the same block", {'a'}, 40},
                             {"three keys in turn", {'b', 'a', 'c'}, 1},
                             {"three blocks in turn", {'a', 'c', 'b'}, 300},
                             {"nothing", {'a'}, 0}};
    const char* const sizes[] = {"1", "0", "-5", "1000000000", "-2147483648", "30", ""};
    int calls = 0, failing = -1;
    const char* size = "";
    const endless* blocks = nullptr;
    connected_clients on([&](const auto& call, auto& client) {
        const int n = calls++;
        if (n == failing || n > 100)
            return send_words(call, {1, 0, 0, 0, 5}, client);
        const bool asks_for_size = call.procedure == proc::a_get_config_1::number;
        client.send(record_of(
            reply_to(call, asks_for_size ? wire_bytes{}.text(size, 80).bytes()
                                         : block_of(blockwise{}, call.procedure, *blocks, n))));
    });
    const auto ends = [&](const char* name, auto list) {
        rpc::session().lTelebookBlockSize = 0;
        calls = 0;
        const std::int64_t got = list();
        EXPECT_LT(calls, 20) << name << ", " << blocks->name << ", block size " << size;
        EXPECT_LE(got, 4 * 300) << name << ", " << blocks->name;
    };
    const auto length = [](PTRLIST* list) { return list == nullptr ? 0 : list->getSize(); };
    for (const endless& kind : kinds)
        for (const char* each : sizes)
            for (failing = -1; failing < 6; ++failing) {
                blocks = &kind;
                size = each;
                ends("users", [&] { return length(on.session.getUserList()); });
                ends("printers", [&] { return length(on.session.getPrinterList()); });
                ends("groups", [&] { return length(on.books.getTGroups()); });
                ends("members", [&] { return length(on.books.getTGroupEntries("g", 1)); });
                ends("export",
                     [&] { return on.books.exportTBook("common", NETTYPE_FAX, "/dev/null"); });
            }
}

} // namespace
} // namespace zerdix::testing
