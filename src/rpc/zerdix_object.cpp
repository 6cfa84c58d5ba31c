// SPDX-License-Identifier: MIT
// Making a ZERDIX, and its end. What it holds releases itself.

#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/gathered_list.h"

using namespace zerdix;
using rpc::trace_lines;

ZERDIX::ZERDIX() {
    trace_lines.life("C <-- ZERDIX::ZERDIX()");
    rpc::session().pclient = nullptr;
    rpc::session().pauserrec.detach();
    trace_lines.life("C --> ZERDIX::ZERDIX()");
}

ZERDIX::~ZERDIX() {
    trace_lines.life("D <-- ZERDIX::~ZERDIX()");
    rpc::session().pauserrec.reset();
    trace_lines.life("D --> ZERDIX::~ZERDIX()");
}
