// SPDX-License-Identifier: MIT
// A PDF by way of Poppler's core, which is no public interface: this room and bilevel_device alone
// include it.
//
// Poppler's public interface renders a page with everything made anew: its fonts, their glyphs, the
// objects of the file. Text takes two and a half times as long in it, and it can't tell which pages
// do with one bit a pixel.
#ifndef ZERDIX_APP_PRINT_POPPLER_CORE_H
#define ZERDIX_APP_PRINT_POPPLER_CORE_H

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "print/page_placement.h"

namespace zerdix::app {

struct pdf_page_size {
    double width; // points, as the page is looked at
    double height;
};

// An object is used by one thread at a time; several of them work side by side.
class poppler_core {
  public:
    // Opens the file, or says in is_open() that it can't.
    explicit poppler_core(const std::string& path);
    // The same file, even when another one has its name by now.
    explicit poppler_core(const poppler_core& other);
    ~poppler_core();
    poppler_core& operator=(const poppler_core&) = delete;

    bool is_open() const;
    bool is_locked() const; // encrypted with a password that isn't empty

    // Of an open document.
    int pages() const;
    std::string title() const; // UTF-8, "" for none

    // Nothing for a page that can't be read.
    std::optional<pdf_page_size> page_size(int page);

    // The page as StoreFaxPage takes it; nothing when it can't be rendered. Ends early and with a
    // page that is worth nothing once `stop` is set.
    std::vector<unsigned char> render(int page, const page_placement& place,
                                      const std::atomic<bool>& stop);

    // The first message of Poppler since the last call, or since the file was opened.
    std::string take_message();

  private:
    struct parts;
    std::unique_ptr<parts> parts_;
};

} // namespace zerdix::app

#endif
