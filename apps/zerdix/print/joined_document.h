// SPDX-License-Identifier: MIT
// Files one behind the other as one document: all of its pages, or some.
#ifndef ZERDIX_APP_PRINT_JOINED_DOCUMENT_H
#define ZERDIX_APP_PRINT_JOINED_DOCUMENT_H

#include <string>
#include <vector>

#include "print/page_source.h"

namespace zerdix::app {

class joined_document : public page_source {
  public:
    // `paths` are those of PDFs, one at least; "-" is standard input. `pages` names pages as
    // read_page_ranges takes them, counted through all files. Throws failure for a file that can't
    // be taken and for pages that aren't there.
    joined_document(const std::vector<std::string>& paths, const std::string& pages);

    int pages() const override { return static_cast<int>(places_.size()); }
    // That of the first file.
    std::string title() const override { return files_.front()->title(); }
    using page_source::render;
    fax_page render(int page, const std::atomic<bool>& stop) override;
    std::unique_ptr<page_source> another() const override;

  private:
    struct place {
        std::size_t file;
        int page;
    };
    using files = std::vector<std::unique_ptr<page_source>>;

    joined_document(files opened, std::vector<place> places);

    files files_;
    std::vector<place> places_;
};

} // namespace zerdix::app

#endif
