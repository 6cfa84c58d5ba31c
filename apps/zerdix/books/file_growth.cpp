// SPDX-License-Identifier: MIT
#include "books/file_growth.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace zerdix::app {

file_growth::file_growth(std::string path, bool shown) : path_(std::move(path)) {
    if (shown && ::isatty(STDOUT_FILENO) == 1)
        thread_ = std::jthread([this](const std::stop_token& stop) { watch(stop); });
}

file_growth::~file_growth() {
    if (!thread_.joinable())
        return;
    thread_.request_stop();
    thread_.join();
    std::fputs("\r\033[K", stdout);
    std::fflush(stdout);
}

void file_growth::watch(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (!wake_.wait_for(lock, stop, std::chrono::milliseconds(250), [] { return false; }) &&
           !stop.stop_requested()) {
        std::error_code none;
        const auto size = std::filesystem::file_size(path_, none);
        if (!none)
            std::printf("\r%s: %ju KB written\033[K", path_.c_str(), std::uintmax_t{size / 1024});
        std::fflush(stdout);
    }
}

} // namespace zerdix::app
