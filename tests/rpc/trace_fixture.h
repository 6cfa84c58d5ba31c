// SPDX-License-Identifier: MIT
// A test server, and what ZERDIX writes into the trace meanwhile.
#ifndef ZERDIX_TESTS_TRACE_FIXTURE_H
#define ZERDIX_TESTS_TRACE_FIXTURE_H

#include "support/session_test.h"
#include "trace/tracing.h"

namespace zerdix::testing {

class TraceLines : public session_test {
  protected:
    TraceLines() { session.setUserId("meier"); }

    std::vector<std::string> lines() { return trace_.lines(); }

  private:
    tests::room_trace trace_{server.settings(), server.folder(), "zerdix"};
};

} // namespace zerdix::testing

#endif
