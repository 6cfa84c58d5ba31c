// SPDX-License-Identifier: MIT
// Tells whether the processor has registers of 32 bytes (AVX2). Three operations are compiled for
// them a second time: mirroring bytes, turning a page and combining two. Both ways give the same
// bits.
#ifndef ZERDIX_PAGES_WIDE_REGISTERS_H
#define ZERDIX_PAGES_WIDE_REGISTERS_H

namespace zerdix::pages {

// A test turns them off to see what a processor without them does.
inline bool wide_registers_allowed = true;

inline bool has_wide_registers() {
#if defined(__x86_64__)
    return wide_registers_allowed && __builtin_cpu_supports("avx2");
#else
    return false;
#endif
}

} // namespace zerdix::pages

#endif
