#include "alphad/dispatch.h"

#include <iostream>
#include <stdexcept>
#include <sys/socket.h>

#include "rpc/wire/filter.h"

namespace zerdix::alphad {

namespace {

// A record that is released on every way out.
template <class T>
struct held {
    T record{};
    held() = default;
    ~held() { wire::release(record); }
    held(const held&) = delete;
    held& operator=(const held&) = delete;
};

template <class P>
concept answered = requires(answers& a, const typename P::argument& argument) {
    { a.answer(P{}, argument) } -> std::same_as<typename P::result>;
};

} // namespace

call_log::call_log(const std::string& path) {
    if (path.empty())
        return;
    file_.open(path, std::ios::app);
    if (!file_)
        throw std::runtime_error("the call log " + path + " can't be opened");
}

void call_log::add(std::uint32_t number, const char* name) {
    if (file_.is_open())
        file_ << number << ' ' << name << std::endl;
}

// What was stored is safe before the caller hears of it.
template <class P>
void dispatcher::reply(typename P::argument& argument, bool refused, SVCXPRT* transport) {
    held<typename P::result> result;
    if constexpr (answered<P>) {
        if (!refused) {
            answers_.use_connection(static_cast<std::uint64_t>(transport->xp_fd));
            transaction work(store_.database());
            result.record = answers_.answer(P{}, argument);
            work.commit();
        }
    }
    svc_sendreply(transport, &wire::xdr_record<typename P::result>, &result.record);
}

template <class P>
void dispatcher::serve_procedure(SVCXPRT* transport) {
    calls_.add(P::number, P::name);
    const verdict said = gate_.admit(P::number);
    if (said == verdict::drop) {
        shutdown(transport->xp_fd, SHUT_RDWR);
        return;
    }
    if (said == verdict::fail)
        return svcerr_systemerr(transport);
    held<typename P::argument> argument;
    if (!svc_getargs(transport, &wire::xdr_record<typename P::argument>, &argument.record))
        return svcerr_decode(transport);
    reply<P>(argument.record, said == verdict::refuse, transport);
}

template <class P>
bool dispatcher::serve_if(std::uint32_t number, SVCXPRT* transport) {
    if (number != P::number)
        return false;
    serve_procedure<P>(transport);
    return true;
}

void dispatcher::serve(svc_req* request, SVCXPRT* transport) noexcept {
    const auto number = static_cast<std::uint32_t>(request->rq_proc);
    try {
        // The one procedure that every RPC program has, and the table doesn't list.
        if (number == NULLPROC) {
            wire::none nothing;
            svc_sendreply(transport, &wire::xdr_record<wire::none>, &nothing);
            return;
        }
        const bool known = [&]<class... P>(wire::procedure_list<P...>) {
            return (serve_if<P>(number, transport) || ...);
        }(wire::all_procedures{});
        if (!known)
            svcerr_noproc(transport);
    } catch (const std::exception& error) {
        std::cerr << "alphad: procedure " << number << ": " << error.what() << std::endl;
        svcerr_systemerr(transport);
    }
}

} // namespace zerdix::alphad
