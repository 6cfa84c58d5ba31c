// SPDX-License-Identifier: MIT
// Shows on a terminal how a file grows while one long operation writes it.
#ifndef ZERDIX_APP_BOOKS_FILE_GROWTH_H
#define ZERDIX_APP_BOOKS_FILE_GROWTH_H

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace zerdix::app {

// Looks at the file a few times a second, on a thread of its own that calls nothing of the library,
// until the object goes.
class file_growth {
  public:
    file_growth(std::string path, bool shown);
    ~file_growth();
    file_growth(const file_growth&) = delete;
    file_growth& operator=(const file_growth&) = delete;

  private:
    void watch(const std::stop_token& stop);

    std::string path_;
    std::mutex mutex_;
    std::condition_variable_any wake_;
    std::jthread thread_; // the last member, so that it ends first
};

} // namespace zerdix::app

#endif
