// SPDX-License-Identifier: MIT
// The server as a process and as a peer: several clients, faults, damaged calls.
#include <gtest/gtest.h>

#include <chrono>
#include <sys/socket.h>
#include <unistd.h>

#include "desk.h"
#include "wire/wire_bytes.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;
using ::zerdix::testing::wire_bytes;

std::string text_of(const wire_bytes& bytes) {
    return {bytes.bytes().begin(), bytes.bytes().end()};
}

// A call in one fragment, with an argument written by hand.
std::string call_message(std::uint32_t program, std::uint32_t procedure,
                         const std::string& argument = "") {
    wire_bytes body;
    body.words({7, 0, 2, program, 1, procedure, 0, 0, 0, 0}).raw(argument);
    const auto size = static_cast<std::uint32_t>(body.size());
    return text_of(wire_bytes{}.word(0x80000000u | size).append(body));
}

// Where a reply that was accepted holds how the call went.
constexpr std::size_t accept_status = 24;

class bare_connection {
  public:
    explicit bare_connection(std::uint16_t port) {
        sockaddr_in address = loopback(port);
        EXPECT_EQ(connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    }
    ~bare_connection() { close(socket_); }
    bare_connection(const bare_connection&) = delete;
    bare_connection& operator=(const bare_connection&) = delete;

    void send(std::string_view bytes) const {
        EXPECT_EQ(::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }
    // So many bytes, or fewer at the end.
    std::string receive(std::size_t most) const {
        std::string bytes(most, '\0');
        const ssize_t got = recv(socket_, bytes.data(), most, MSG_WAITALL);
        return bytes.substr(0, static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    }
    // What is answered to this and nothing more.
    std::string talk(std::string_view bytes) const {
        send(bytes);
        shutdown(socket_, SHUT_WR);
        return receive(1 << 16);
    }

  private:
    const int socket_ = ::socket(AF_INET, SOCK_STREAM, 0);
};

class Server : public client_test {
  protected:
    bool answers() { return try_call(a_ping_1{}, {}) != nullptr; }
};

TEST_F(Server, MakesTheFaultsThatItIsTold) {
    server.refuse(3, 2);
    server.fail(1);
    EXPECT_EQ(create(), 1);
    EXPECT_EQ(create(), 0);
    EXPECT_EQ(create(), 2);
    EXPECT_FALSE(answers());
    EXPECT_EQ(wire::last_error(handle()).re_status, RPC_SYSTEMERROR);
    server.drop(1);
    EXPECT_FALSE(answers());
    EXPECT_EQ(wire::last_error(handle()).re_status, RPC_CANTRECV);
    desk_client again(server.program());
    EXPECT_EQ(again.create(), 3) << "what was dropped wasn't served";
    server.lose_reply(3);
    EXPECT_EQ(again.try_call(a_create_doc_1{}, me), nullptr);
    EXPECT_EQ(server.desk("zerdix").size(), 4u) << "what was lost was";
}

TEST_F(Server, AnswersDamagedCallsWithAnErrorAndStaysUp) {
    wire_bytes endless;
    endless.words({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}).word(0xFFFFFFFFu); // of a log line
    const std::uint32_t program = server.program();
    const struct {
        std::string message;
        std::uint32_t status;
    } damaged[] = {
        {call_message(program, 3, "abc"), GARBAGE_ARGS},
        {call_message(program, 22, text_of(endless)), GARBAGE_ARGS},
        {call_message(program, 2), PROC_UNAVAIL},
        {call_message(program, 1008), PROC_UNAVAIL},
        {call_message(program + 1, 1), PROG_UNAVAIL},
    };
    for (const auto& [message, status] : damaged) {
        const std::string reply = bare_connection(server.port()).talk(message);
        EXPECT_EQ(reply.substr(accept_status, 4), text_of(wire_bytes{}.word(status)));
    }
    for (const std::string& garbage :
         {std::string(5000, 'x'), std::string(4, '\xFF'), std::string(64, '\0'),
          std::string("GET / HTTP/1.0\r\n\r\n")})
        bare_connection(server.port()).talk(garbage);
    for (std::size_t cut = 0; cut < 48; cut += 5)
        bare_connection(server.port()).talk(call_message(program, 1).substr(0, cut));
    EXPECT_TRUE(answers());
}

// Neither half a call nor a reply that nobody reads keeps the others waiting, and a call that
// comes in small fragments with pauses is a call like any other.
TEST_F(Server, IsNotHeldUpByClientsThatFallSilent) {
    server.add_users(8000);
    const std::string ping = call_message(server.program(), 1);
    const bare_connection half(server.port()), deaf(server.port());
    half.send(ping.substr(0, 30));
    for (int i = 0; i < 5; ++i)
        deaf.send(call_message(server.program(), 32));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(answers());
    EXPECT_EQ(call(a_get_users_1{}, {}).count, 8002);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));

    half.send(ping.substr(30));
    for (std::size_t at = 4; at < ping.size(); at += 8) {
        half.send(text_of(wire_bytes{}.word((at + 8 >= ping.size() ? 0x80000000u : 0u) | 8u)));
        EXPECT_TRUE(answers());
        half.send(ping.substr(at, 8));
    }
    constexpr std::size_t reply = 4 + accept_status;
    EXPECT_EQ(half.receive(reply), half.receive(reply));
}

// Every procedure of the table gives a reply that its result filter takes, and writes its name.
TEST_F(Server, AnswersTheWholeTable) {
    std::vector<int> numbers;
    const auto call_one = [&]<class P>(P procedure) {
        EXPECT_NE(try_call(procedure, {}), nullptr) << P::name;
        numbers.push_back(static_cast<int>(P::number));
    };
    [&]<class... P>(wire::procedure_list<P...>) { (call_one(P{}), ...); }(wire::all_procedures{});
    EXPECT_EQ(numbers.size(), 110u);
    EXPECT_EQ(server.calls(), numbers);
    server.clear_calls();
    EXPECT_TRUE(answers());
    EXPECT_EQ(server.calls(), std::vector<int>{1});
}

TEST_F(Server, ServesSeveralClients) {
    std::vector<std::unique_ptr<desk_client>> clients;
    for (int i = 0; i < 20; ++i)
        clients.push_back(std::make_unique<desk_client>(server.program()));
    for (int round = 0; round < 3; ++round)
        for (const auto& client : clients)
            EXPECT_GT(client->create(), 0);
    EXPECT_EQ(server.desk("zerdix").size(), 60u);
}

} // namespace
} // namespace zerdix
