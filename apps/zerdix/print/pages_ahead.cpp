// SPDX-License-Identifier: MIT
#include "print/pages_ahead.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <system_error>

#include "output/failure.h"
#include "output/interrupt.h"

namespace zerdix::app {

namespace {

constexpr int ahead_of_each_thread = 4;
constexpr auto time_between_looks = std::chrono::milliseconds(100);

// Signals are the main thread's; a thread inherits what is blocked when it begins.
class blocked_signals {
  public:
    blocked_signals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~blocked_signals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    blocked_signals(const blocked_signals&) = delete;
    blocked_signals& operator=(const blocked_signals&) = delete;

  private:
    sigset_t before_;
};

} // namespace

int pages_ahead::processors() {
    return static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
}

pages_ahead::pages_ahead(page_source& source, int most_threads)
    : source_(source), count_(source.pages()), most_ahead_(ahead_of_each_thread * most_threads) {
    start(std::min(most_threads, count_));
}

// One thread is enough to go on with.
void pages_ahead::start(int threads) {
    const blocked_signals blocked;
    threads_.emplace_back([this] { work_on(source_); });
    try {
        for (int i = 1; i < threads; ++i)
            threads_.emplace_back([this] { work_on_another(); });
    } catch (const std::system_error&) {
    }
}

pages_ahead::~pages_ahead() {
    stop_ = true;
    {
        const std::lock_guard lock(mutex_);
        taken_.notify_all();
    }
    for (std::thread& each : threads_)
        each.join();
}

// A document that can't be opened once more is left to the other threads.
void pages_ahead::work_on_another() {
    try {
        work_on(*source_.another());
    } catch (const std::exception&) {
    }
}

void pages_ahead::work_on(page_source& source) {
    while (const int number = take_number()) {
        made_page made = make(source, number);
        const std::lock_guard lock(mutex_);
        waiting_[number] = std::move(made);
        made_.notify_one();
    }
}

// The page to make next, or 0 when there is none.
int pages_ahead::take_number() {
    std::unique_lock lock(mutex_);
    taken_.wait(lock,
                [this] { return stop_ || begun_ == count_ || begun_ < handed_out_ + most_ahead_; });
    return stop_ || begun_ == count_ ? 0 : ++begun_;
}

pages_ahead::made_page pages_ahead::make(page_source& source, int number) {
    try {
        return {source.render(number, stop_), nullptr};
    } catch (...) {
        return {{}, std::current_exception()};
    }
}

fax_page pages_ahead::next() {
    std::unique_lock lock(mutex_);
    const int number = handed_out_ + 1;
    while (!made_.wait_for(lock, time_between_looks, [&] { return waiting_.contains(number); }))
        stop_if_interrupted();
    made_page made = std::move(waiting_.extract(number).mapped());
    ++handed_out_;
    taken_.notify_one();
    if (made.error)
        std::rethrow_exception(made.error);
    return std::move(made.page);
}

} // namespace zerdix::app
