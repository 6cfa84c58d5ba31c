// SPDX-License-Identifier: MIT
// Fax pages in stored form to measure on.
#ifndef ZERDIX_BENCH_SAMPLE_PAGES_H
#define ZERDIX_BENCH_SAMPLE_PAGES_H

#include <cstdint>
#include <vector>

namespace zerdix::bench {

using page_bytes = std::vector<unsigned char>;

inline std::int32_t length_of(const page_bytes& page) {
    return static_cast<std::int32_t>(page.size());
}

// 1,728 by 2,286 pixels: 19 lines of words, which compress about as a page of a letter does; and
// noise around a grey that changes over the page, as a dithered photograph.
page_bytes text_page();
page_bytes dense_page();

// A file with a page in stored form. Ends the program when it isn't one.
page_bytes page_of_file(const char* name);

// Measures the page of each file that is named, or else the two above. Whether all bars were
// reached.
template <class Measure>
bool measure_pages(int argc, char** argv, Measure measure) {
    bool reached = true;
    for (int i = 1; i < argc; ++i)
        reached = measure(argv[i], page_of_file(argv[i])) && reached;
    if (argc == 1) {
        reached = measure("text page", text_page());
        reached = measure("dense page", dense_page()) && reached;
    }
    return reached;
}

// What a driver sends, of a page in stored form; and back.
page_bytes driver_form(const page_bytes& page);

} // namespace zerdix::bench

#endif
