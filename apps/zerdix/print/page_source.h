// SPDX-License-Identifier: MIT
// A document as a source of fax pages, whatever kind of file it is.
#ifndef ZERDIX_APP_PRINT_PAGE_SOURCE_H
#define ZERDIX_APP_PRINT_PAGE_SOURCE_H

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace zerdix::app {

struct fax_page {
    std::vector<unsigned char> block; // in the form that StoreFaxPage takes
    std::string complaint; // what was wrong with the page, "" for nothing: it may be incomplete
};

// An object is used by one thread at a time.
class page_source {
  public:
    virtual ~page_source() = default;

    virtual int pages() const = 0;

    // UTF-8: the title that the document gives itself, or else its file's name.
    virtual std::string title() const = 0;

    // Pages count from 1. Throws failure for a page that can't be rendered. Once `stop` is set, it
    // may come back early with a page that is worth nothing.
    virtual fax_page render(int page, const std::atomic<bool>& stop) = 0;

    // The same where nothing is to stop it.
    fax_page render(int page) {
        const std::atomic<bool> never = false;
        return render(page, never);
    }

    // The same document once more, for another thread. Can be called in that thread; throws
    // failure.
    virtual std::unique_ptr<page_source> another() const = 0;
};

} // namespace zerdix::app

#endif
