// SPDX-License-Identifier: MIT
// A PDF as a source of fax pages, one at a time.
#ifndef ZERDIX_APP_PRINT_PDF_FILE_H
#define ZERDIX_APP_PRINT_PDF_FILE_H

#include <memory>
#include <string>
#include <vector>

namespace poppler {
class document;
}

namespace zerdix::app {

class pdf_file {
  public:
    // Throws failure when the file can't be read, isn't a PDF, is encrypted, damaged or empty. A
    // file that could only be opened by guessing at its contents counts as damaged: pages may be
    // missing from it.
    explicit pdf_file(const std::string& path);
    ~pdf_file();
    pdf_file(const pdf_file&) = delete;
    pdf_file& operator=(const pdf_file&) = delete;

    int pages() const;

    // UTF-8: the title that the PDF gives itself, or else its file's name.
    std::string title() const;

    // The page block of a page, in the form that StoreFaxPage takes. Pages count from 1. Throws
    // failure for a page that can't be rendered.
    std::vector<unsigned char> render(int page) const;

    // What was wrong with the page rendered last, "" for nothing: it may be incomplete then.
    std::string complaint() const;

  private:
    std::string path_;
    std::unique_ptr<poppler::document> document_;
    std::unique_ptr<std::string> said_; // first message of the renderer since it was last emptied
};

} // namespace zerdix::app

#endif
