// SPDX-License-Identifier: MIT
// A PDF as a source of fax pages.
#ifndef ZERDIX_APP_PRINT_PDF_FILE_H
#define ZERDIX_APP_PRINT_PDF_FILE_H

#include <string>

#include "print/page_source.h"
#include "print/poppler_core.h"

namespace zerdix::app {

class pdf_file : public page_source {
  public:
    // Throws failure when the file can't be read, isn't a PDF, is encrypted, damaged or empty. A
    // file that could only be opened by guessing at its contents counts as damaged: pages may be
    // missing from it.
    explicit pdf_file(const std::string& path) : pdf_file(path, path) {}
    // The same, for a file that is spoken of by another name.
    pdf_file(const std::string& path, std::string name);

    int pages() const override;
    std::string title() const override;
    using page_source::render;
    fax_page render(int page, const std::atomic<bool>& stop) override;
    std::unique_ptr<page_source> another() const override;

  private:
    pdf_file(const pdf_file& other) = default;

    void require_sound();

    std::string name_;
    poppler_core core_;
};

} // namespace zerdix::app

#endif
