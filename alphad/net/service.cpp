// SPDX-License-Identifier: MIT
#include "alphad/net/service.h"

#include <cstdlib>
#include <iostream>
#include <malloc.h>

#include "alphad/demo/demo_data.h"

namespace zerdix::alphad {

namespace {

// Log lines of the server's own carry its local time.
void use_time_zone(const configuration& values) {
    const std::string zone = values.value("TZ");
    if (!zone.empty())
        setenv("TZ", zone.c_str(), 1);
    tzset();
}

// Pages come and go in blocks of half a megabyte. Memory that goes back to the system with each has
// to be cleared anew for the next, which takes longer than to store the page.
void keep_memory_for_pages() {
    constexpr int largest_block = 32 << 20; // the most that the C library allows
    mallopt(M_MMAP_THRESHOLD, largest_block);
    mallopt(M_TRIM_THRESHOLD, largest_block);
}

std::filesystem::path own_spool(const service_options& options) {
    if (options.store == ":memory:")
        return {};
    return std::filesystem::path{options.store}.parent_path() / own_spool_name;
}

} // namespace

service::service(const service_options& options, alphad::gate& gate)
    : store_(options.store), spool_(options.spool, own_spool(options)), sending_(store_, spool_),
      answers_(store_, sending_), calls_(options.calls),
      dispatcher_(store_, answers_, gate, calls_) {
    keep_memory_for_pages();
    if (options.demo_data && store_.is_new()) {
        add_demo_data(store_);
        use_time_zone(store_.configuration); // for the log lines of the documents
        if (options.demo_documents) {
            add_demo_documents(store_);
            add_demo_cover(store_);
        }
    }
    if (store_.older_version() == 1)
        std::cerr << "alphad: the store was brought up from an older version; its users have no "
                     "passwords yet (alphad user password ID)"
                  << std::endl;
    if (store_.older_version() != 0)
        sending_.adopt_files();
    sending_.settle_files();
    spool_.sweep();
    use_time_zone(store_.configuration);
    server_.emplace(dispatcher_, options.listen, options.port);
}

} // namespace zerdix::alphad
