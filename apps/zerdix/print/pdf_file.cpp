// SPDX-License-Identifier: MIT
#include "print/pdf_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include "output/failure.h"
#include "print/dithering.h"
#include "print/page_placement.h"

namespace zerdix::app {

namespace {

void keep_first(const std::string& message, void* place) {
    auto& said = *static_cast<std::string*>(place);
    if (!said.empty())
        return;
    said = message.substr(0, message.find_last_not_of("\r\n ") + 1);
    for (const char* prefix : {"poppler/", "error: "}) {
        if (said.starts_with(prefix))
            said.erase(0, std::strlen(prefix));
    }
}

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

void require_readable(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::directory)
        throw failure(exit_no_input, path + " is a folder, not a PDF");
    const std::ifstream file(path, std::ios::binary);
    if (!file)
        throw failure(exit_no_input, path + " can't be read: " + std::strerror(errno));
    if (status.type() == std::filesystem::file_type::regular &&
        std::filesystem::file_size(path, error) == 0)
        throw failure(exit_bad_data, path + " is empty");
}

bool is_on_its_side(const poppler::page& page) {
    const auto orientation = page.orientation();
    return orientation == poppler::page::landscape || orientation == poppler::page::seascape;
}

page_placement placement_of(const poppler::page& page) {
    const poppler::rectf box = page.page_rect();
    return is_on_its_side(page) ? place_page(box.height(), box.width())
                                : place_page(box.width(), box.height());
}

poppler::image render_grey(const poppler::page& page, const page_placement& place) {
    poppler::page_renderer renderer; // without smoothing: edges are black or white
    renderer.set_image_format(poppler::image::format_gray8);
    return renderer.render_page(&page, place.dpi_across, place.dpi_down, -place.left, 0, fax_width,
                                place.rows, place.turned ? poppler::rotate_270 : poppler::rotate_0);
}

} // namespace

pdf_file::pdf_file(const std::string& path) : path_(path), said_(std::make_unique<std::string>()) {
    require_readable(path);
    poppler::set_debug_error_function(keep_first, said_.get());
    document_.reset(poppler::document::load_from_file(path));
    if (document_ != nullptr && document_->is_locked())
        throw failure(exit_bad_data, path + " is encrypted and needs a password");
    if (document_ == nullptr || tells_of_repair(*said_))
        throw failure(exit_bad_data, path + " is damaged or not a PDF" + reason(*said_));
    if (document_->pages() < 1)
        throw failure(exit_bad_data, path + " has no pages" + reason(*said_));
}

pdf_file::~pdf_file() {
    document_.reset();
    poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
}

int pdf_file::pages() const {
    return document_->pages();
}

std::string pdf_file::title() const {
    const poppler::byte_array utf8 = document_->get_title().to_utf8();
    const std::string given(utf8.data(), utf8.size());
    return given.find_first_not_of(' ') != std::string::npos
               ? given
               : std::filesystem::path(path_).filename().string();
}

std::vector<unsigned char> pdf_file::render(int number) const {
    const std::string name = "page " + std::to_string(number) + " of " + path_;
    said_->clear();
    const std::unique_ptr<poppler::page> page(document_->create_page(number - 1));
    if (page == nullptr)
        throw failure(exit_bad_data, name + " is damaged" + reason(*said_));
    try {
        const page_placement place = placement_of(*page);
        const poppler::image image = render_grey(*page, place);
        if (!image.is_valid() || image.width() != fax_width || image.height() != place.rows)
            throw failure(exit_bad_data, "it can't be rendered" + reason(*said_));
        return driver_block({reinterpret_cast<const unsigned char*>(image.const_data()),
                             static_cast<std::size_t>(image.bytes_per_row()), image.width(),
                             image.height()});
    } catch (const failure& error) {
        throw failure(error.code(), name + ": " + error.what());
    }
}

std::string pdf_file::complaint() const {
    return *said_;
}

} // namespace zerdix::app
