// SPDX-License-Identifier: MIT
// Tools of the ratio programs: the best time of several runs, and a bar with its verdict.
#ifndef ZERDIX_BENCH_MEASURE_H
#define ZERDIX_BENCH_MEASURE_H

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <sched.h>

namespace zerdix::bench {

// The shortest of all runs, in microseconds: what is left when nothing else got in between.
class best_time {
  public:
    template <class Work>
    void run(Work work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::micro> took =
            std::chrono::steady_clock::now() - begin;
        best_ = std::min(best_, took.count());
    }

    double microseconds() const { return best_; }

  private:
    double best_ = std::numeric_limits<double>::max();
};

// Keeps the program and the children that it starts from now on to one processor. A call to a
// server on another one takes up to three times as long, which changes from run to run.
inline void keep_to_one_processor() {
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(static_cast<unsigned>(sched_getcpu()), &one);
    sched_setaffinity(0, sizeof one, &one);
}

// A measurement of something that failed is none.
inline void require(bool well, const char* what) {
    if (well)
        return;
    std::fprintf(stderr, "failed: %s\n", what);
    std::exit(2);
}

inline bool print_bar(const char* what, double value, const char* side, double limit,
                      const char* unit, bool reached) {
    std::printf("  bar: %-46s %9.2f, %s %9.2f %s  %s\n", what, value, side, limit, unit,
                reached ? "PASS" : "MISS");
    return reached;
}

// Print the bar's line and pass its verdict on.
inline bool bar(const char* what, double value, double limit, const char* unit) {
    return print_bar(what, value, "at most", limit, unit, value <= limit);
}
inline bool bar_from_below(const char* what, double value, double limit, const char* unit) {
    return print_bar(what, value, "at least", limit, unit, value >= limit);
}

} // namespace zerdix::bench

#endif
