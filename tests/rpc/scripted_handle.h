// SPDX-License-Identifier: MIT
// A client handle without a server: the calls are answered by functions of the test. It is the
// session's handle as long as it lives.
#ifndef ZERDIX_TESTS_SCRIPTED_HANDLE_H
#define ZERDIX_TESTS_SCRIPTED_HANDLE_H

#include <functional>
#include <map>
#include <vector>

#include "rpc/list.h"

namespace zerdix::testing {

class scripted_handle {
  public:
    scripted_handle() {
        handle_.cl_ops = &operations();
        handle_.cl_private = this;
        open();
    }
    ~scripted_handle() { rpc::session().pclient = nullptr; }
    scripted_handle(const scripted_handle&) = delete;
    scripted_handle& operator=(const scripted_handle&) = delete;

    void open() { rpc::session().pclient = &handle_; }

    // How a procedure is answered: the result is zero, and released afterwards. One without an
    // answer isn't available.
    template <class P>
    void on(P, std::function<void(const typename P::argument&, typename P::result&)> answer) {
        answers_[P::number] = [answer](const void* argument, XDR* stream) {
            typename P::result result{};
            answer(*static_cast<const typename P::argument*>(argument), result);
            wire::filter(stream, result);
            wire::release(result);
        };
    }
    template <class... P>
    void answer_zero(P... procedures) {
        (on(procedures, [](const auto&, auto&) {}), ...);
    }

    // The n-th call of a procedure from now on fails.
    void fail(std::uint32_t procedure, int nth = 1, clnt_stat status = RPC_SYSTEMERROR) {
        failing_ = procedure;
        left_ = nth;
        failure_ = status;
    }

    // The procedure numbers since the last time.
    std::vector<std::uint32_t> calls() { return std::exchange(calls_, {}); }

  private:
    static scripted_handle& of(CLIENT* handle) {
        return *static_cast<scripted_handle*>(handle->cl_private);
    }

    clnt_stat call(std::uint32_t procedure, const void* argument, xdrproc_t filter, void* result) {
        calls_.push_back(procedure);
        if (failing_ == procedure && --left_ == 0)
            return failure_;
        const auto answer = answers_.find(procedure);
        if (answer == answers_.end())
            return RPC_PROCUNAVAIL;
        std::vector<char> reply(1u << 20);
        XDR stream;
        xdrmem_create(&stream, reply.data(), 1u << 20, XDR_ENCODE);
        answer->second(argument, &stream);
        xdrmem_create(&stream, reply.data(), XDR_GETPOS(&stream), XDR_DECODE);
        return filter(&stream, result) ? RPC_SUCCESS : RPC_CANTDECODERES;
    }

    static CLIENT::clnt_ops& operations() {
        static CLIENT::clnt_ops all{
            [](CLIENT* handle, rpcproc_t procedure, xdrproc_t, void* argument, xdrproc_t filter,
               void* result, timeval) {
                const auto number = static_cast<std::uint32_t>(procedure);
                return of(handle).status_ = of(handle).call(number, argument, filter, result);
            },
            [](CLIENT*) {},
            [](CLIENT* handle, rpc_err* error) { error->re_status = of(handle).status_; },
            [](CLIENT*, xdrproc_t, void*) { return TRUE; },
            [](CLIENT*) {},
            [](CLIENT*, u_int, void*) { return FALSE; }};
        return all;
    }

    CLIENT handle_{};
    clnt_stat status_ = RPC_SUCCESS;
    std::uint32_t failing_ = 0;
    int left_ = 0;
    clnt_stat failure_ = RPC_SUCCESS;
    std::map<std::uint32_t, std::function<void(const void*, XDR*)>> answers_;
    std::vector<std::uint32_t> calls_;
};

// Puts a record in front of the chain of an answer.
template <class Answer, class Record>
void push_front(Answer& answer, const Record& record) {
    auto* node = wire::new_node<std::remove_pointer_t<decltype(answer.first)>>();
    rpc::record_of(*node) = record;
    node->next = std::exchange(answer.first, node);
    ++answer.count;
}

} // namespace zerdix::testing

#endif
