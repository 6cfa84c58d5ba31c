// SPDX-License-Identifier: MIT
#include "print/pdf_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "output/failure.h"
#include "print/page_placement.h"

namespace zerdix::app {

namespace {

// The reader repairs what it can without asking; its words are the only sign of it.
bool tells_of_repair(const std::string& said) {
    for (const char* words : {"attempting to reconstruct", "May not be a PDF", "xref", "trailer"}) {
        if (said.find(words) != std::string::npos)
            return true;
    }
    return false;
}

std::string reason(const std::string& said) {
    return said.empty() ? "" : " (" + said + ")";
}

const std::string& readable(const std::string& path, const std::string& name) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::directory)
        throw failure(exit_no_input, name + " is a folder, not a PDF");
    const std::ifstream file(path, std::ios::binary);
    if (!file)
        throw failure(exit_no_input, name + " can't be read: " + std::strerror(errno));
    if (status.type() == std::filesystem::file_type::regular &&
        std::filesystem::file_size(path, error) == 0)
        throw failure(exit_bad_data, name + " is empty");
    return path;
}

} // namespace

pdf_file::pdf_file(const std::string& path, std::string name)
    : name_(std::move(name)), core_(readable(path, name_)) {
    require_sound();
}

void pdf_file::require_sound() {
    if (core_.is_locked())
        throw failure(exit_bad_data, name_ + " is encrypted and needs a password");
    const std::string said = core_.take_message();
    if (!core_.is_open() || tells_of_repair(said))
        throw failure(exit_bad_data, name_ + " is damaged or not a PDF" + reason(said));
    if (core_.pages() < 1)
        throw failure(exit_bad_data, name_ + " has no pages" + reason(core_.take_message()));
}

int pdf_file::pages() const {
    return core_.pages();
}

std::string pdf_file::title() const {
    const std::string given = core_.title();
    return given.find_first_not_of(' ') != std::string::npos
               ? given
               : std::filesystem::path(name_).filename().string();
}

fax_page pdf_file::render(int number, const std::atomic<bool>& stop) {
    const std::string name = "page " + std::to_string(number) + " of " + name_;
    core_.take_message();
    const auto size = core_.page_size(number);
    if (!size)
        throw failure(exit_bad_data, name + " is damaged" + reason(core_.take_message()));
    try {
        const page_placement place = place_page(size->width, size->height);
        fax_page page{core_.render(number, place, stop), core_.take_message()};
        if (page.block.empty())
            throw failure(exit_bad_data, "it can't be rendered" + reason(page.complaint));
        return page;
    } catch (const failure& error) {
        throw failure(error.code(), name + ": " + error.what());
    }
}

std::unique_ptr<page_source> pdf_file::another() const {
    std::unique_ptr<pdf_file> same(new pdf_file(*this));
    same->require_sound();
    return same;
}

} // namespace zerdix::app
