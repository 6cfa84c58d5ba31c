// SPDX-License-Identifier: MIT
// Page blocks in stored form out of a PDF, for the codec's benchmark.
//
//     page_blocks FILE.pdf FOLDER [COUNT]      COUNT pages, spread evenly; all without it
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <span>

#include "pages/driver_form.h"
#include "pages/mirror.h"
#include "print/pdf_file.h"

namespace {

namespace pages = zerdix::pages;

// As StoreFaxPage hands a page to the codec.
std::vector<unsigned char> stored_form(const std::vector<unsigned char>& block) {
    std::vector<unsigned char> turned(block.size());
    pages::write_stored_form(block, turned);
    return turned;
}

void write_pages(const char* pdf, const std::filesystem::path& folder, int count) {
    zerdix::app::pdf_file file{pdf};
    const int wanted = count > 0 ? std::min(count, file.pages()) : file.pages();
    for (int n = 0; n < wanted; ++n) {
        const int page = 1 + n * file.pages() / wanted;
        const auto block = stored_form(file.render(page).block);
        char name[32];
        std::snprintf(name, sizeof name, "page%04d", page);
        std::ofstream(folder / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(block.data()),
                   static_cast<std::streamsize>(block.size()));
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: page_blocks FILE.pdf FOLDER [COUNT]\n");
        return 64;
    }
    try {
        write_pages(argv[1], argv[2], argc > 3 ? std::atoi(argv[3]) : 0);
        return 0;
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "page_blocks: %s\n", problem.what());
        return 1;
    }
}
