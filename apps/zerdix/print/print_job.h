// SPDX-License-Identifier: MIT
// The print job of this process, from opening to its end, over the library's print job functions.
//
// It is a fax job, of pages, or a telex job, of one text.
//
// Texts are Windows-1252 unless told otherwise. Every failure names the step and its cause.
// What the object's end leaves on the user's desk it has named.
#ifndef ZERDIX_APP_PRINT_PRINT_JOB_H
#define ZERDIX_APP_PRINT_PRINT_JOB_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <zerdix/records.h>

#include "print/merge_text.h"
#include "session/connection_probe.h"

namespace zerdix::app {

class print_job {
  public:
    explicit print_job(const std::string& title, nettypetype net = NETTYPE_FAX);
    ~print_job();
    print_job(const print_job&) = delete;
    print_job& operator=(const print_job&) = delete;

    // Settings and receivers. An unknown entry, one of the other net type, and a group that adds
    // no receiver are failures.
    void apply(const std::string& merge_text);
    void require_entry(const book_entry& entry);
    void add_group(const std::string& group_utf8);

    // The page block is one of page_block.h.
    void store_page(const std::vector<unsigned char>& block);

    // Receivers known by now.
    std::int32_t receivers() const;

    // Throws failure when there are none and no dialog can ask for them.
    void require_receivers_or_dialog() const;

    // Ends the job. What was done, a clause such as "3 send jobs made".
    std::string send();

    // Ends the job. The number of telexes handed over.
    std::int32_t send_telex(const std::string& text);

  private:
    void give_up();

    nettypetype net_;
    std::string host_;
    std::int16_t pages_ = 0;
    bool open_ = false; // the library's job waits for its end
};

} // namespace zerdix::app

#endif
