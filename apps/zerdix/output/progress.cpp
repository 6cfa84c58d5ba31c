// SPDX-License-Identifier: MIT
#include "output/progress.h"

#include <cstddef>
#include <unistd.h>

namespace zerdix::app {

namespace {

constexpr int bar_width = 30;

} // namespace

std::string of(int n, int all) {
    return std::to_string(n) + " of " + std::to_string(all);
}

std::string counted(int n, const char* one) {
    return std::to_string(n) + ' ' + one + (n == 1 ? "" : "s");
}

progress::style progress::fitting(bool quiet) {
    if (quiet)
        return style::none;
    return ::isatty(STDOUT_FILENO) == 1 ? style::bar : style::lines;
}

void progress::step(int done, const std::string& text) {
    if (style_ == style::bar)
        draw(done, text);
    else if (style_ == style::lines)
        std::fprintf(out_, "%s\n", text.c_str());
    std::fflush(out_);
}

void progress::done(const std::string& sentence) {
    clear();
    if (style_ != style::none)
        std::fprintf(out_, "%s\n", sentence.c_str());
    std::fflush(out_);
}

void progress::draw(int done, const std::string& text) {
    const auto filled =
        static_cast<std::size_t>(bar_width * static_cast<long>(done) / (steps_ > 0 ? steps_ : 1));
    const std::string bar = std::string(filled, '#') + std::string(bar_width - filled, '.');
    std::fprintf(out_, "\r[%s] %s\033[K", bar.c_str(), text.c_str());
    drawn_ = true;
}

void progress::clear() {
    if (drawn_)
        std::fprintf(out_, "\r\033[K");
    drawn_ = false;
    std::fflush(out_);
}

} // namespace zerdix::app
