// SPDX-License-Identifier: MIT
#include "alphad/net/dispatch.h"

#include <iostream>
#include <stdexcept>
#include <type_traits>

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

// One answer's work: in the store as a whole, with the files that belong to it, or undone.
class unit_of_work {
  public:
    unit_of_work(database& db, answers& answers) : stored_(db), answers_(answers) {}
    ~unit_of_work() {
        if (!committed_)
            answers_.discard_files();
    }
    unit_of_work(const unit_of_work&) = delete;
    unit_of_work& operator=(const unit_of_work&) = delete;

    void commit() {
        stored_.commit();
        committed_ = true;
        answers_.settle_files();
    }

  private:
    transaction stored_;
    answers& answers_;
    bool committed_ = false;
};

template <class P, class... Unanswered>
constexpr bool is_among(wire::procedure_list<Unanswered...>) {
    return (std::is_same_v<P, Unanswered> || ...);
}

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
void dispatcher::reply(const typename P::argument& argument, bool refused, call& taken) {
    held<typename P::result> result;
    if constexpr (!is_among<P>(unanswered{})) {
        if (!refused) {
            answers_.use_connection(taken.connection_number());
            unit_of_work work(store_.database(), answers_);
            result.record = answers_.answer(P{}, argument);
            work.commit();
        }
    }
    taken.reply(result.record);
}

template <class P>
void dispatcher::serve_procedure(call& taken) {
    calls_.add(P::number, P::name);
    const verdict said = gate_.admit(P::number);
    if (said == verdict::drop)
        return taken.drop();
    if (said == verdict::fail)
        return taken.fail(SYSTEM_ERR);
    if (said == verdict::lose)
        taken.drop(); // what is sent from here on goes nowhere
    held<typename P::argument> argument;
    if (!taken.argument(argument.record))
        return taken.fail(GARBAGE_ARGS);
    reply<P>(argument.record, said == verdict::refuse, taken);
}

template <class P>
bool dispatcher::serve_if(call& taken) {
    if (taken.procedure() != P::number)
        return false;
    serve_procedure<P>(taken);
    return true;
}

void dispatcher::serve(call& taken) noexcept {
    try {
        // The one procedure that every RPC program has, and the table doesn't list.
        if (taken.procedure() == NULLPROC) {
            wire::none nothing;
            return taken.reply(nothing);
        }
        const bool known = [&]<class... P>(wire::procedure_list<P...>) {
            return (serve_if<P>(taken) || ...);
        }(wire::all_procedures{});
        if (!known)
            taken.fail(PROC_UNAVAIL);
    } catch (const std::exception& error) {
        std::cerr << "alphad: procedure " << taken.procedure() << ": " << error.what() << std::endl;
        taken.fail(SYSTEM_ERR);
    }
}

} // namespace zerdix::alphad
