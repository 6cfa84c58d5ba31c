// SPDX-License-Identifier: MIT
// What can become of a reply: the ways in which the scripted server answers a call.
#ifndef ZERDIX_TESTS_FAULTS_H
#define ZERDIX_TESTS_FAULTS_H

#include <array>
#include <map>

#include "hostile/script_server.h"

namespace zerdix::testing {

// The result of a procedure in several forms.
struct answers {
    byte_vector sound;        // two nodes, short texts, numbers that let operations go on
    byte_vector refusal;      // zero throughout
    byte_vector to_the_brim;  // texts without a NUL
    byte_vector more_counted; // a count larger than the chain
    byte_vector less_counted; // and smaller
    bool is_dynamic;          // has a chain or a byte field
    bool has_chain;
};

// By procedure number.
const std::map<std::uint32_t, answers>& all_answers();

enum class outcome {
    goes_well,
    refused,
    fails,      // this call, and the connection goes on
    lost,       // this call and all behind it
    ends_later, // this call goes well, all behind it fail
    dynamic,    // fails where the answer is dynamic, and anything may come of it otherwise
    anything,   // but the operation ends and what it gives can be read
};

struct fault {
    const char* name;
    outcome expected;
    std::function<void(const incoming_call&, const answers&, peer&)> answer;
};

const std::vector<fault>& quick_faults();
// Those that last as long as a call may take.
const std::vector<fault>& slow_faults();
// The connection ends behind so many bytes of the reply.
fault connection_cut_at(std::size_t k);

// Answers soundly but for the n-th call since begin(), which meets its fault.
class troubled_server {
  public:
    troubled_server();

    // No call meets anything where `met` is null.
    void begin(int n, const fault* met);
    int calls() const { return calls_; }

    // Of the n-th call of a run, this one or, where it made fewer calls, one before it.
    std::uint32_t procedure(int n) const { return procedures_.at(static_cast<std::size_t>(n)); }

    script_server server;

  private:
    void answer(const incoming_call& call, peer& client);

    std::atomic<int> calls_{0};
    std::array<std::uint32_t, 1000> procedures_{};
    int troubled_call_ = -1;
    const fault* trouble_ = nullptr;
};

} // namespace zerdix::testing

#endif
