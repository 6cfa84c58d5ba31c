// SPDX-License-Identifier: MIT
// PDFs made up by tests: pages of a size with drawing operators on them.
#ifndef ZERDIX_TESTS_CLI_TINY_PDF_H
#define ZERDIX_TESTS_CLI_TINY_PDF_H

#include <filesystem>
#include <string>
#include <vector>

namespace zerdix::test {

struct tiny_page {
    double width; // points
    double height;
    std::string drawing; // "0 g 0 0 10 10 re f": a black square in the lower left corner
    int rotate = 0;
};

std::string tiny_pdf(const std::vector<tiny_page>& pages, const std::string& trailer_entries = "");

// Such a PDF with a password that nobody knows.
std::string locked_pdf();

} // namespace zerdix::test

#endif
