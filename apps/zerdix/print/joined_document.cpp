// SPDX-License-Identifier: MIT
#include "print/joined_document.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>
#include <utility>

#include "arguments/page_range.h"
#include "output/failure.h"
#include "print/pdf_file.h"

namespace zerdix::app {

namespace {

constexpr const char* input_name = "standard input";

struct close_file {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using open_file = std::unique_ptr<std::FILE, close_file>;

failure no_copy() {
    return {exit_no_output, std::string(input_name) +
                                " can't be kept in a temporary file: " + std::strerror(errno)};
}

// A PDF is read from its end, which a pipe doesn't have. The copy has no name, and goes with the
// last that has it open.
open_file copy_of_input() {
    open_file copy(std::tmpfile());
    if (copy == nullptr)
        throw no_copy();
    char block[65536];
    ssize_t got;
    while ((got = ::read(STDIN_FILENO, block, sizeof block)) > 0) {
        const auto count = static_cast<std::size_t>(got);
        if (std::fwrite(block, 1, count, copy.get()) != count)
            throw no_copy();
    }
    if (got < 0)
        throw failure(exit_no_input,
                      std::string(input_name) + " can't be read: " + std::strerror(errno));
    if (std::fflush(copy.get()) != 0)
        throw no_copy();
    return copy;
}

std::unique_ptr<page_source> open_document(const std::string& path) {
    if (path != "-")
        return std::make_unique<pdf_file>(path);
    const open_file copy = copy_of_input();
    return std::make_unique<pdf_file>("/proc/self/fd/" + std::to_string(::fileno(copy.get())),
                                      input_name);
}

} // namespace

joined_document::joined_document(files opened, std::vector<place> places)
    : files_(std::move(opened)), places_(std::move(places)) {}

joined_document::joined_document(const std::vector<std::string>& paths, const std::string& pages) {
    const std::vector<page_range> ranges = read_page_ranges(pages);
    std::vector<place> all;
    for (const std::string& path : paths) {
        files_.push_back(open_document(path));
        for (int page = 1; page <= files_.back()->pages(); ++page)
            all.push_back({files_.size() - 1, page});
    }
    const std::string name = paths.size() > 1 ? "the document" : paths.front();
    for (const page_range& each : ranges) {
        const page_range range = within(each, static_cast<int>(all.size()), name);
        places_.insert(places_.end(), all.begin() + range.first - 1, all.begin() + range.last);
    }
}

fax_page joined_document::render(int page, const std::atomic<bool>& stop) {
    const place& at = places_[static_cast<std::size_t>(page - 1)];
    return files_[at.file]->render(at.page, stop);
}

std::unique_ptr<page_source> joined_document::another() const {
    files same;
    for (const auto& file : files_)
        same.push_back(file->another());
    return std::unique_ptr<page_source>(new joined_document(std::move(same), places_));
}

} // namespace zerdix::app
