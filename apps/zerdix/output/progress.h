// SPDX-License-Identifier: MIT
// Shows how far long work has come: a bar on a terminal, a line a step elsewhere, or nothing.
#ifndef ZERDIX_APP_OUTPUT_PROGRESS_H
#define ZERDIX_APP_OUTPUT_PROGRESS_H

#include <cstdio>
#include <string>

namespace zerdix::app {

// "3 of 7"; "1 page", "2 pages".
std::string of(int n, int all);
std::string counted(int n, const char* one);

class progress {
  public:
    enum class style { none, lines, bar };

    // The style that suits standard output.
    static style fitting(bool quiet);

    progress(std::FILE* out, style how, int steps) : out_(out), style_(how), steps_(steps) {}
    // Takes the bar away, so that what follows stands on a line of its own.
    ~progress() { clear(); }
    progress(const progress&) = delete;
    progress& operator=(const progress&) = delete;

    // So many steps are done now; `text` says what was done, or what comes. UTF-8.
    void step(int done, const std::string& text);

    // The last line; UTF-8.
    void done(const std::string& sentence);

  private:
    void draw(int done, const std::string& text);
    void clear();

    std::FILE* out_;
    style style_;
    int steps_;
    bool drawn_ = false;
};

} // namespace zerdix::app

#endif
