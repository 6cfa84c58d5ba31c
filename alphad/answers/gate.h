// SPDX-License-Identifier: MIT
// What stands between a call's arrival and its answer: a place to watch calls or to disturb them.
#ifndef ZERDIX_ALPHAD_ANSWERS_GATE_H
#define ZERDIX_ALPHAD_ANSWERS_GATE_H

#include <cstdint>

namespace zerdix::alphad {

enum class verdict {
    serve,
    refuse, // false, 0, an empty record: what a server says that doesn't want to
    fail,   // an RPC error
    drop,   // no reply; the connection is closed
    lose,   // served, and then as with drop
};

class gate {
  public:
    virtual ~gate() = default;

    // Called once for each call of a procedure of the table, before its argument is read. May
    // block.
    virtual verdict admit(std::uint32_t procedure) = 0;
};

class open_gate : public gate {
  public:
    verdict admit(std::uint32_t) override { return verdict::serve; }
};

} // namespace zerdix::alphad

#endif
