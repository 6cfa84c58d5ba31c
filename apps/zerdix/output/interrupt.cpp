// SPDX-License-Identifier: MIT
#include "output/interrupt.h"

#include <csignal>

#include "output/failure.h"

namespace zerdix::app {

namespace {

volatile std::sig_atomic_t signal_came = 0;

void note(int) {
    signal_came = 1;
}

} // namespace

void watch_for_interrupts() {
    struct sigaction action {};
    action.sa_handler = note;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool interrupted() {
    return signal_came != 0;
}

void stop_if_interrupted() {
    if (interrupted())
        throw failure(exit_interrupted, "interrupted; nothing was sent");
}

} // namespace zerdix::app
