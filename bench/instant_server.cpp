// SPDX-License-Identifier: MIT
#include "bench/instant_server.h"

#include <chrono>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <poll.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "alphad/net/port_mapper.h"
#include "alphad/net/server.h"
#include "rpc/wire/filter.h"
#include "rpc/wire/procedures.h"

namespace zerdix::bench {

namespace {

constexpr std::chrono::minutes longest_life{10};
constexpr int poll_milliseconds = 200;

// The child's own.
volatile std::sig_atomic_t stopping = 0;
std::atomic<std::uint32_t>* answered = nullptr;
instant_server::replies ready_made;

void stop(int) {
    stopping = 1;
}

template <class Result>
Result fixed_answer() {
    Result answer{};
    if constexpr (std::is_same_v<Result, std::int32_t>)
        answer = 1;
    else if constexpr (std::is_same_v<Result, boolean>)
        answer = true;
    else if constexpr (std::is_same_v<Result, a_get_tz_o>)
        answer.tztexts[2].assign("UTC");
    return answer;
}

template <class P>
bool answer_if(std::uint32_t number, SVCXPRT* transport) {
    if (number != P::number)
        return false;
    static auto record = fixed_answer<typename P::result>();
    svc_sendreply(transport, &wire::xdr_record<typename P::result>, &record);
    return true;
}

bool_t ready_bytes(XDR* stream, ...) {
    std::va_list arguments;
    va_start(arguments, stream);
    auto* bytes = va_arg(arguments, std::vector<char>*);
    va_end(arguments);
    return XDR_PUTBYTES(stream, bytes->data(), static_cast<u_int>(bytes->size()));
}

bool answer_ready(std::uint32_t number, SVCXPRT* transport) {
    static std::map<std::uint32_t, std::size_t> turns;
    const auto ready = ready_made.find(number);
    if (ready == ready_made.end())
        return false;
    const std::size_t turn = turns[number]++ % ready->second.size();
    svc_sendreply(transport, &ready_bytes, &ready->second[turn]);
    return true;
}

void dispatch(svc_req* request, SVCXPRT* transport) {
    const auto number = static_cast<std::uint32_t>(request->rq_proc);
    ++*answered;
    if (answer_ready(number, transport))
        return;
    const bool known = [&]<class... P>(wire::procedure_list<P...>) {
        return (answer_if<P>(number, transport) || ...);
    }(wire::all_procedures{});
    if (!known)
        svcerr_noproc(transport);
}

int loopback_listener(sockaddr_in& address) {
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0 || bind(socket, generic, length) != 0 || listen(socket, SOMAXCONN) != 0 ||
        getsockname(socket, generic, &length) != 0)
        throw std::runtime_error("no socket to listen on");
    return socket;
}

void answer_calls() {
    const auto end = std::chrono::steady_clock::now() + longest_life;
    while (stopping == 0 && std::chrono::steady_clock::now() < end) {
        std::vector<pollfd> files(svc_pollfd, svc_pollfd + svc_max_pollfd);
        const int ready = poll(files.data(), files.size(), poll_milliseconds);
        if (ready > 0)
            svc_getreq_poll(files.data(), ready);
    }
}

void serve(int ready_pipe) {
    sockaddr_in address{};
    SVCXPRT* transport = svctcp_create(loopback_listener(address), 0, 0);
    const std::uint32_t program = alphad::program_number();
    if (transport == nullptr || !svc_register(transport, program, ZERDIX_VERS, dispatch, 0))
        throw std::runtime_error("the RPC library can't serve the socket");
    const alphad::registration entry{program, ZERDIX_VERS, address};
    if (write(ready_pipe, "+", 1) == 1)
        answer_calls();
}

[[noreturn]] void live(int ready_pipe) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGTERM, stop);
    try {
        serve(ready_pipe);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "instant server: %s\n", error.what());
        _exit(1);
    }
    _exit(0);
}

[[noreturn]] void give_up(const char* what) {
    std::perror(what);
    std::exit(2);
}

} // namespace

instant_server::instant_server(replies results) {
    ready_made = std::move(results);
    void* shared =
        mmap(nullptr, sizeof *calls_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    int ends[2];
    if (shared == MAP_FAILED || pipe(ends) != 0)
        give_up("instant server");
    answered = calls_ = new (shared) std::atomic<std::uint32_t>{0};
    child_ = fork();
    if (child_ == 0)
        live(ends[1]);
    close(ends[1]);
    char ready = 0;
    if (child_ < 0 || read(ends[0], &ready, 1) != 1)
        give_up("instant server");
    close(ends[0]);
}

instant_server::~instant_server() {
    kill(child_, SIGTERM);
    waitpid(child_, nullptr, 0);
    munmap(calls_, sizeof *calls_);
}

} // namespace zerdix::bench
