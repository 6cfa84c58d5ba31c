// SPDX-License-Identifier: MIT
// What can become of a reply: the ways in which the scripted server answers a call.
#ifndef ZERDIX_TESTS_FAULTS_H
#define ZERDIX_TESTS_FAULTS_H

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

} // namespace zerdix::testing

#endif
