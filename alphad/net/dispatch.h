// SPDX-License-Identifier: MIT
// From a call's number to its answer and back to the caller.
#ifndef ZERDIX_ALPHAD_NET_DISPATCH_H
#define ZERDIX_ALPHAD_NET_DISPATCH_H

#include <fstream>
#include <string>

#include "alphad/answers/answers.h"
#include "alphad/answers/gate.h"
#include "alphad/net/call.h"

namespace zerdix::alphad {

// The calls in the order in which they were taken, a line each: number and name.
class call_log {
  public:
    // An empty path: nothing is written. Throws std::runtime_error when the file can't be opened.
    explicit call_log(const std::string& path);

    // Hands the line to the system before it returns.
    void add(std::uint32_t number, const char* name);

  private:
    std::ofstream file_;
};

class dispatcher {
  public:
    // All must outlive the object.
    dispatcher(alphad::store& store, alphad::answers& answers, alphad::gate& gate, call_log& calls)
        : store_(store), answers_(answers), gate_(gate), calls_(calls) {}

    // Answers one call of the program and version of this server. Throws nothing: what goes wrong
    // inside is an RPC error for the caller and a line on standard error.
    void serve(call& request) noexcept;

    void connection_gone(std::uint64_t number) { answers_.connection_gone(number); }

  private:
    template <class P>
    bool serve_if(call& request);
    template <class P>
    void serve_procedure(call& request);
    template <class P>
    void reply(const typename P::argument& argument, verdict said, call& request);

    alphad::store& store_;
    alphad::answers& answers_;
    alphad::gate& gate_;
    call_log& calls_;
};

} // namespace zerdix::alphad

#endif
