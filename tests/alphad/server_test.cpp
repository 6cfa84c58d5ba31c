// SPDX-License-Identifier: MIT
// The server as a process and as a peer: registration, several clients, faults, damaged calls.
#include <gtest/gtest.h>

#include <chrono>
#include <sys/socket.h>
#include <unistd.h>

#include "support/raw_client.h"
#include "support/test_server.h"

namespace zerdix {
namespace {

namespace proc = wire::proc;
using test::id;

int raw_socket(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    EXPECT_EQ(connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    return socket;
}

TEST(Server, AnswersAndWritesDownItsCalls) {
    test::test_server server;
    test::raw_client client(server.program());
    EXPECT_NE(client.try_call(proc::a_ping_1{}, {}), nullptr);
    EXPECT_EQ(client.call(proc::a_create_doc_1{}, id("zerdix")), 1);
    EXPECT_EQ(server.calls(), (std::vector<int>{1, 3}));
    server.clear_calls();
    client.call(proc::a_get_tz_1{}, {});
    EXPECT_EQ(server.calls(), (std::vector<int>{89}));
    ASSERT_EQ(server.desk("zerdix").size(), 1u);
}

TEST(Server, FaultsHitTheCallTheyAreMeantFor) {
    test::test_server server;
    test::raw_client client(server.program());
    server.refuse(3, 2);
    server.fail(1);
    EXPECT_EQ(client.call(proc::a_create_doc_1{}, id("zerdix")), 1);
    EXPECT_EQ(client.call(proc::a_create_doc_1{}, id("zerdix")), 0);
    EXPECT_EQ(client.call(proc::a_create_doc_1{}, id("zerdix")), 2);
    EXPECT_EQ(client.try_call(proc::a_ping_1{}, {}), nullptr);
    EXPECT_EQ(wire::last_error(client.handle()).re_status, RPC_SYSTEMERROR);
    server.drop(1);
    EXPECT_EQ(client.try_call(proc::a_ping_1{}, {}), nullptr);
    EXPECT_EQ(wire::last_error(client.handle()).re_status, RPC_CANTRECV);
    test::raw_client again(server.program());
    EXPECT_NE(again.try_call(proc::a_ping_1{}, {}), nullptr);
}

// What one connection says, up to its end.
std::string talk(std::uint16_t port, std::string_view bytes) {
    const int socket = raw_socket(port);
    EXPECT_EQ(send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(bytes.size()));
    shutdown(socket, SHUT_WR);
    std::string answer;
    char piece[512];
    for (ssize_t got; (got = recv(socket, piece, sizeof piece, 0)) > 0;)
        answer.append(piece, static_cast<std::size_t>(got));
    close(socket);
    return answer;
}

void put_word(std::string& to, std::uint32_t word) {
    for (int shift = 24; shift >= 0; shift -= 8)
        to += static_cast<char>(word >> shift & 0xFF);
}

std::uint32_t word_at(const std::string& from, std::size_t at) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i)
        word = word << 8 | static_cast<unsigned char>(from[at + i]);
    return word;
}

// A call in one fragment, with an argument written by hand.
std::string call_message(std::uint32_t program, std::uint32_t procedure,
                         const std::string& argument) {
    std::string body;
    for (const std::uint32_t word : {7u, 0u, 2u, program, 1u, procedure, 0u, 0u, 0u, 0u})
        put_word(body, word);
    body += argument;
    std::string message;
    put_word(message, 0x80000000u | static_cast<std::uint32_t>(body.size()));
    return message + body;
}

// Where a reply that was accepted holds how the call went.
constexpr std::size_t accept_status = 24;

TEST(Server, DamagedCallsGetAnErrorAndLeaveItUp) {
    test::test_server server;
    std::string endless;
    for (int i = 0; i < 11 + 1 + 1; ++i)
        put_word(endless, 0);
    put_word(endless, 0xFFFFFFFFu); // the length of a log line
    const std::uint32_t program = server.program();
    const struct {
        std::string message;
        std::uint32_t status;
    } damaged[] = {
        {call_message(program, 3, "abc"), GARBAGE_ARGS},
        {call_message(program, 22, endless), GARBAGE_ARGS},
        {call_message(program, 2, ""), PROC_UNAVAIL},
        {call_message(program, 1008, ""), PROC_UNAVAIL},
        {call_message(program + 1, 1, ""), PROG_UNAVAIL},
    };
    for (const auto& [message, status] : damaged) {
        const std::string reply = talk(server.port(), message);
        ASSERT_GE(reply.size(), accept_status + 4);
        EXPECT_EQ(word_at(reply, accept_status), status);
    }
    for (const std::string& garbage :
         {std::string(5000, 'x'), std::string(4, '\xFF'), std::string(64, '\0'),
          std::string("GET / HTTP/1.0\r\n\r\n")})
        talk(server.port(), garbage);
    for (std::size_t cut = 0; cut < 48; cut += 5)
        talk(server.port(), call_message(program, 1, "").substr(0, cut));
    test::raw_client client(program);
    EXPECT_NE(client.try_call(proc::a_ping_1{}, {}), nullptr);
}

void send_bytes(int socket, std::string_view bytes) {
    EXPECT_EQ(send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(bytes.size()));
}

// Neither half a call nor a reply that nobody reads keeps the others waiting, and a call that
// comes in small fragments with pauses is a call like any other.
TEST(Server, ClientsThatFallSilentHoldUpNobody) {
    test::test_server server;
    server.add_users(8000);
    const std::string ping = call_message(server.program(), 1, "");
    const int half = raw_socket(server.port());
    send_bytes(half, ping.substr(0, 30));
    const int deaf = raw_socket(server.port());
    for (int i = 0; i < 5; ++i)
        send_bytes(deaf, call_message(server.program(), 32, ""));
    const auto start = std::chrono::steady_clock::now();
    test::raw_client client(server.program());
    EXPECT_NE(client.try_call(proc::a_ping_1{}, {}), nullptr);
    EXPECT_EQ(client.call(proc::a_get_users_1{}, {}).count, 8002);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));

    send_bytes(half, ping.substr(30));
    for (std::size_t at = 4; at < ping.size(); at += 8) {
        std::string fragment;
        put_word(fragment, (at + 8 >= ping.size() ? 0x80000000u : 0u) | 8u);
        send_bytes(half, fragment);
        EXPECT_NE(client.try_call(proc::a_ping_1{}, {}), nullptr);
        send_bytes(half, ping.substr(at, 8));
    }
    std::string replies(2 * (4 + accept_status), '\0');
    EXPECT_EQ(recv(half, replies.data(), replies.size(), MSG_WAITALL),
              static_cast<ssize_t>(replies.size()));
    EXPECT_EQ(replies.substr(0, replies.size() / 2), replies.substr(replies.size() / 2));
    close(half);
    close(deaf);
}

// Every procedure of the table gives a reply that its result filter takes, and writes its name.
TEST(Server, AnswersTheWholeTable) {
    test::test_server server;
    test::raw_client client(server.program());
    std::vector<int> numbers;
    const auto call_one = [&]<class P>(P procedure) {
        EXPECT_NE(client.try_call(procedure, {}), nullptr) << P::name;
        numbers.push_back(static_cast<int>(P::number));
    };
    [&]<class... P>(wire::procedure_list<P...>) { (call_one(P{}), ...); }(wire::all_procedures{});
    EXPECT_EQ(numbers.size(), 110u);
    EXPECT_EQ(server.calls(), numbers);
}

TEST(Server, ServesSeveralClients) {
    test::test_server server;
    std::vector<std::unique_ptr<test::raw_client>> clients;
    for (int i = 0; i < 20; ++i)
        clients.push_back(std::make_unique<test::raw_client>(server.program()));
    for (int round = 0; round < 3; ++round)
        for (const auto& client : clients)
            EXPECT_GT(client->call(proc::a_create_doc_1{}, id("zerdix")), 0);
    EXPECT_EQ(server.desk("zerdix").size(), 60u);
}

} // namespace
} // namespace zerdix
