// SPDX-License-Identifier: MIT
// One call over the library's own transport, against replies that are odd, late, cut or endless.

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include "hostile/script_server.h"
#include "rpc/wire/stub.h"
#include "rpc/wire/transport.h"

namespace zerdix::testing {
namespace {

using namespace std::chrono_literals;
using wire::proc::a_get_pageb_1;
using clock = std::chrono::steady_clock;

byte_vector page_result(std::uint32_t size) {
    return wire_bytes{}.words({1, size, size}).raw(std::string((size + 3) / 4 * 4, 'p')).bytes();
}

byte_vector page_reply(const incoming_call& call, std::uint32_t size) {
    return record_of(reply_to(call, page_result(size)));
}

// The beginning of a page of so many bytes, as a fragment that isn't the last.
byte_vector first_fragment(const incoming_call& call, std::uint32_t size) {
    const byte_vector result = wire_bytes{}.words({1, 9, size}).bytes();
    return wire_bytes{}.word(36).append(reply_to(call, result)).bytes();
}

class Transport : public ::testing::Test {
  protected:
    Transport() : handle(wire::connect(server.address(), server.program())) { answer_soundly(); }
    ~Transport() override { clnt_destroy(handle); }

    void answer_soundly() {
        server.on_call([](const auto& call, auto& client) { client.send(page_reply(call, 5)); });
    }

    void give_calls(std::chrono::milliseconds time) {
        timeval span{time.count() / 1000, time.count() % 1000 * 1000};
        ASSERT_TRUE(clnt_control(handle, CLSET_TIMEOUT, reinterpret_cast<char*>(&span)));
    }

    // The status of one call, with what it fetched released again.
    clnt_stat call() {
        a_get_pageb_1::argument argument{};
        a_get_pageb_1::result* page = wire::stub<a_get_pageb_1>(argument, handle);
        const int error = errno;
        fetched = page != nullptr ? page->data.length : 0;
        wire::release(wire::result_slot<a_get_pageb_1>::record);
        errno = error;
        return page != nullptr ? RPC_SUCCESS : wire::last_error(handle).re_status;
    }

    script_server server;
    CLIENT* handle;
    std::uint32_t fetched = 0;
};

TEST_F(Transport, EveryKindOfErrorKeepsItsNumber) {
    const struct {
        std::vector<std::uint32_t> behind_the_call_id;
        clnt_stat status;
    } cases[] = {
        {{1, 0, 0, 0, 1}, RPC_PROGUNAVAIL},
        {{1, 0, 0, 0, 2, 3, 9}, RPC_PROGVERSMISMATCH},
        {{1, 0, 0, 0, 3}, RPC_PROCUNAVAIL},
        {{1, 0, 0, 0, 4}, RPC_CANTDECODEARGS},
        {{1, 0, 0, 0, 5}, RPC_SYSTEMERROR},
        {{1, 1, 0, 2, 2}, RPC_VERSMISMATCH},
        {{1, 1, 1, 5}, RPC_AUTHERROR},
        {{1, 0, 0, 0, 0, 1, 5}, RPC_CANTDECODERES},
        {{1, 0, 0, 0, 77}, RPC_FAILED},
        {{0, 2, 1, 2, 3}, RPC_CANTDECODERES},
        {{1, 0, 0, 401, 0, 0}, RPC_CANTDECODERES},
        {{1, 7}, RPC_CANTDECODERES},
        {{1, 0, 1, 0xFFFFFFFF}, RPC_CANTDECODERES},
        {{}, RPC_CANTDECODERES},
    };
    for (const auto& each : cases) {
        server.on_call([words = each.behind_the_call_id](const auto& call, auto& client) {
            send_words(call, words, client);
        });
        errno = 4711;
        EXPECT_EQ(call(), each.status);
        EXPECT_EQ(errno, 4711) << "no system call failed";
        if (each.status != RPC_PROGVERSMISMATCH)
            continue;
        EXPECT_EQ(wire::last_error(handle).re_vers.low, 3u);
        EXPECT_EQ(wire::last_error(handle).re_vers.high, 9u);
    }
    EXPECT_EQ(wire::last_error(handle).re_errno, 0);
    answer_soundly();
    EXPECT_EQ(call(), RPC_SUCCESS) << "none of them ends the connection";
}

// Replies that come bit by bit, or never the right one, as long as the client listens.
TEST_F(Transport, NothingStretchesACall) {
    const script_server::handler cases[] = {
        [](const auto& call, auto& client) { client.drip(page_reply(call, 5), 50ms); },
        [](const auto& call, auto& client) {
            const byte_vector reply = page_reply(call, 5000);
            client.send(reply.data(), 40);
            client.drip({reply.begin() + 40, reply.end()}, 20ms);
        },
        [](const auto& call, auto& client) {
            while (client.send(page_reply({call.id - 1, 0}, 5)))
                ;
        },
        [](const auto& call, auto& client) {
            // 64 MiB in fragments of one byte
            client.send(first_fragment(call, 64u << 20));
            while (client.send({0, 0, 0, 1, 0}))
                ;
        },
    };
    const auto* const between_replies = &cases[2]; // where the time may end as well
    for (const auto& each : cases) {
        CLIENT* const sound = handle;
        handle = wire::connect(server.address(), server.program());
        clnt_destroy(sound);
        give_calls(300ms);
        server.on_call(each);
        const auto start = clock::now();
        EXPECT_EQ(call(), RPC_TIMEDOUT);
        EXPECT_EQ(errno, ETIMEDOUT);
        EXPECT_GE(clock::now() - start, 290ms);
        EXPECT_LT(clock::now() - start, 2000ms);
        const clnt_stat next = call();
        if (&each != between_replies)
            EXPECT_EQ(next, RPC_CANTSEND) << "nobody knows where the next reply would begin";
        else
            EXPECT_TRUE(next == RPC_CANTSEND || next == RPC_TIMEDOUT) << next;
    }
}

// Each is silent twice. The late reply to the first call comes while the second one waits.
TEST_F(Transport, AServerThatWasSilentIsUnderstoodAgain) {
    const script_server::handler silences[] = {
        [](const auto& call, auto& client) {
            client.pause(150ms);
            client.send(page_reply(call, 9));
        },
        [](const auto&, auto&) {},
    };
    for (const auto& silence : silences) {
        give_calls(100ms);
        server.on_call(silence);
        EXPECT_EQ(call(), RPC_TIMEDOUT);
        EXPECT_EQ(call(), RPC_TIMEDOUT);
        answer_soundly();
        give_calls(5000ms);
        EXPECT_EQ(call(), RPC_SUCCESS);
        EXPECT_EQ(fetched, 5u) << "late replies are passed over";
    }
}

TEST_F(Transport, ASilenceInTheMiddleOfAnOldReplyEndsTheConnection) {
    server.on_call([](const auto& call, auto& client) { // a length that isn't taken
        client.send(first_fragment(call, 0xFFFFFFFF));
    });
    EXPECT_EQ(call(), RPC_CANTDECODERES);
    server.on_call([](const auto&, auto&) {});
    give_calls(100ms);
    EXPECT_EQ(call(), RPC_TIMEDOUT);
    EXPECT_EQ(call(), RPC_CANTSEND);
}

TEST_F(Transport, ACallThatNobodyReadsEnds) {
    server.on_call([](const auto&, auto& client) { client.pause(2000ms); });
    give_calls(100ms);
    EXPECT_EQ(call(), RPC_TIMEDOUT);
    std::vector<unsigned char> page(32u << 20);
    wire::proc::a_put_pageb_1::argument block{};
    block.data = {static_cast<std::uint32_t>(page.size()), page.data()};
    EXPECT_EQ(wire::stub<wire::proc::a_put_pageb_1>(block, handle), nullptr);
    EXPECT_EQ(wire::last_error(handle).re_status, RPC_TIMEDOUT);
    EXPECT_EQ(call(), RPC_CANTSEND) << "half a call is on its way";
}

TEST_F(Transport, AReplyThatCantBeTakenIsPassedOver) {
    const script_server::handler cases[] = {
        [](const auto& call, auto& client) { // a length of which nothing comes
            client.send(
                record_of(reply_to(call, {0, 0, 0, 1, 0, 0, 0, 9, 0xFF, 0xFF, 0xFF, 0xFF})));
        },
        [](const auto& call, auto& client) { // the rest comes later, in a second fragment
            client.send(first_fragment(call, 0x40000000));
            client.send(wire_bytes{}.words({0x80000008, 7, 8}).bytes());
        },
        [](const auto&, auto& client) {
            client.send(wire_bytes{}.words({0x80000000, 0x80000000}).bytes());
        },
        [](const auto&, auto& client) {
            client.send(wire_bytes{}.words({0, 0x80000000}).bytes());
        },
    };
    for (const auto& each : cases) {
        server.on_call(each);
        EXPECT_EQ(call(), RPC_CANTDECODERES);
        answer_soundly();
        // Each empty record ends one call.
        const clnt_stat next = call();
        EXPECT_TRUE(next == RPC_SUCCESS || next == RPC_CANTDECODERES);
        EXPECT_EQ(call(), RPC_SUCCESS);
        EXPECT_EQ(fetched, 5u);
    }
}

TEST_F(Transport, AReplyInManyFragmentsIsOne) {
    server.on_call([](const auto& call, auto& client) {
        client.send(page_reply({call.id - 1, 0}, 900));
        const wire_bytes reply = reply_to(call, page_result(100'000));
        wire_bytes fragments;
        for (std::size_t i = 0; i < reply.size(); ++i)
            fragments.word(i + 1 == reply.size() ? 0x80000001u : 1u)
                .raw({reinterpret_cast<const char*>(&reply.bytes()[i]), 1});
        client.send(fragments.bytes());
    });
    EXPECT_EQ(call(), RPC_SUCCESS);
    EXPECT_EQ(fetched, 100'000u);
}

TEST_F(Transport, AClosedConnectionIsAnErrorAndNoSignal) {
    const std::size_t whole = page_reply({0, 0}, 5).size();
    for (std::size_t k = 0; k <= whole; ++k) {
        clnt_destroy(handle);
        handle = wire::connect(server.address(), server.program());
        server.on_call([k](const auto& call, auto& client) {
            client.send(page_reply(call, 5).data(), k);
            client.close();
        });
        EXPECT_EQ(call(), k == whole ? RPC_SUCCESS : RPC_CANTRECV) << k;
        const int error = errno;
        EXPECT_TRUE(k == whole || error == ECONNRESET) << error;
        for (int again = 0; again < 3; ++again) {
            const clnt_stat next = call();
            EXPECT_TRUE(next == RPC_CANTSEND || next == RPC_CANTRECV) << next;
            EXPECT_NE(errno, 0);
        }
    }
}

TEST_F(Transport, TheHandleIsAnOrdinaryOne) {
    const auto asked = [this](u_int request) {
        std::uint32_t number = 0;
        EXPECT_TRUE(clnt_control(handle, request, reinterpret_cast<char*>(&number)));
        return number;
    };
    int type = 0;
    socklen_t size = sizeof type;
    EXPECT_EQ(getsockopt(static_cast<int>(asked(CLGET_FD)), SOL_SOCKET, SO_TYPE, &type, &size), 0);
    EXPECT_EQ(asked(CLGET_PROG), server.program());
    EXPECT_EQ(asked(CLGET_VERS), 1u);
    std::uint32_t id = 4711, seen = 0;
    EXPECT_TRUE(clnt_control(handle, CLSET_XID, reinterpret_cast<char*>(&id)));
    server.on_call([&seen](const auto& call, auto& client) {
        seen = call.id;
        client.send(page_reply(call, 5));
    });
    a_get_pageb_1::argument argument{};
    a_get_pageb_1::result page{};
    EXPECT_EQ(clnt_call(handle, a_get_pageb_1::number, wire::xdr_record<a_get_pageb_1::argument>,
                        &argument, wire::xdr_record<a_get_pageb_1::result>, &page, (timeval{5, 0})),
              RPC_SUCCESS);
    EXPECT_EQ(seen, 4711u);
    EXPECT_TRUE(clnt_freeres(handle, wire::xdr_record<a_get_pageb_1::result>, &page));
    clnt_abort(handle);
}

} // namespace
} // namespace zerdix::testing
