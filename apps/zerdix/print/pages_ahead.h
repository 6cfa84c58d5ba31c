// SPDX-License-Identifier: MIT
// The pages of a document, made ahead of their use by a thread for each processor and handed out in
// their order. A slow taker stops the makers: so many pages wait at most, whatever there are.
#ifndef ZERDIX_APP_PRINT_PAGES_AHEAD_H
#define ZERDIX_APP_PRINT_PAGES_AHEAD_H

#include <atomic>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "print/page_source.h"

namespace zerdix::app {

class pages_ahead {
  public:
    // The threads begin at once, at most so many of them: one for each processor unless told
    // otherwise. Until the object goes, nobody else uses the source, which must outlive it.
    explicit pages_ahead(page_source& source, int most_threads = processors());
    // Ends the threads; a page that is being made is given up.
    ~pages_ahead();
    pages_ahead(const pages_ahead&) = delete;
    pages_ahead& operator=(const pages_ahead&) = delete;

    int count() const { return count_; }

    // The next page, the first one at first. Throws what went wrong with this page, whatever became
    // of those behind it, and failure when the user interrupts the wait.
    fax_page next();

  private:
    struct made_page {
        fax_page page;
        std::exception_ptr error;
    };

    static int processors();
    void start(int threads);
    void work_on_another();
    void work_on(page_source& source);
    int take_number();
    made_page make(page_source& source, int number);

    page_source& source_;
    const int count_;
    const int most_ahead_; // pages that are made or wait

    std::mutex mutex_;
    std::condition_variable made_;  // a page more waits
    std::condition_variable taken_; // a page less waits, or all is over
    int begun_ = 0;                 // pages that a thread has taken up
    int handed_out_ = 0;
    std::map<int, made_page> waiting_;
    std::atomic<bool> stop_ = false;
    std::vector<std::thread> threads_;
};

} // namespace zerdix::app

#endif
