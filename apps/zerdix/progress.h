// How far a print job has come: a bar on a terminal, a line a page elsewhere, or nothing.
#ifndef ZERDIX_APP_PROGRESS_H
#define ZERDIX_APP_PROGRESS_H

#include <cstdio>
#include <string>

namespace zerdix::app {

class progress {
  public:
    enum class style { none, lines, bar };

    // The style that suits standard output.
    static style fitting(bool quiet);

    progress(std::FILE* out, style how, int pages) : out_(out), style_(how), pages_(pages) {}
    // Takes the bar away, so that what follows stands on a line of its own.
    ~progress() { clear(); }
    progress(const progress&) = delete;
    progress& operator=(const progress&) = delete;

    void stored(int page);
    void sending(int receivers);

    // The last line; UTF-8.
    void done(const std::string& sentence);

  private:
    void draw(int filled_of_pages, const std::string& text);
    void clear();

    std::FILE* out_;
    style style_;
    int pages_;
    bool drawn_ = false;
};

} // namespace zerdix::app

#endif
