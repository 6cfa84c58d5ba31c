// SPDX-License-Identifier: MIT
// Notes SIGINT and SIGTERM, and tells of them where stopping is safe.
#ifndef ZERDIX_APP_OUTPUT_INTERRUPT_H
#define ZERDIX_APP_OUTPUT_INTERRUPT_H

namespace zerdix::app {

// From now on the first of the two signals is only noted; a second one ends the process at once.
void watch_for_interrupts();

bool interrupted();

// Throws failure when a signal has come.
void stop_if_interrupted();

} // namespace zerdix::app

#endif
