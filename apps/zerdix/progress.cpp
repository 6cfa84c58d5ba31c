#include "progress.h"

#include <cstddef>
#include <unistd.h>

namespace zerdix::app {

namespace {

constexpr int bar_width = 30;

std::string of(int n, int all) {
    return std::to_string(n) + " of " + std::to_string(all);
}

} // namespace

progress::style progress::fitting(bool quiet) {
    if (quiet)
        return style::none;
    return ::isatty(STDOUT_FILENO) == 1 ? style::bar : style::lines;
}

void progress::stored(int page) {
    if (style_ == style::bar)
        draw(page, "page " + of(page, pages_));
    else if (style_ == style::lines)
        std::fprintf(out_, "page %s stored\n", of(page, pages_).c_str());
    std::fflush(out_);
}

void progress::sending(int receivers) {
    const std::string text =
        "sending to " + std::to_string(receivers) + (receivers == 1 ? " receiver" : " receivers");
    if (style_ == style::bar)
        draw(pages_, text);
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

void progress::draw(int filled_of_pages, const std::string& text) {
    const auto filled = static_cast<std::size_t>(bar_width * static_cast<long>(filled_of_pages) /
                                                 (pages_ > 0 ? pages_ : 1));
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
