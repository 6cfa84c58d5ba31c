// SPDX-License-Identifier: MIT
#include "cover/form_file.h"

#include <algorithm>
#include <cctype>

#include "books/text_file.h"
#include "output/failure.h"
#include "output/value_text.h"
#include "pictures/png_picture.h"
#include "print/page_placement.h"
#include "print/pdf_file.h"

namespace zerdix::app {

namespace {

constexpr std::uint32_t page_rows = 2286; // of A4 at 196 rows to the inch
constexpr std::size_t block_header = 8;
constexpr const char* begin_of_commands = "#DRUCK#";

bool is_pdf(const std::string& path) {
    std::string ending = path.substr(path.find_last_of('.') + 1);
    for (char& c : ending)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return ending == "pdf";
}

// A page block has its last row first, and a set bit is white.
page_picture picture_of(const std::vector<unsigned char>& block) {
    page_picture picture{fax_width, 0, {}};
    const std::size_t row = picture.row_bytes();
    picture.rows = static_cast<std::uint32_t>((block.size() - block_header) / row);
    for (std::size_t y = picture.rows; y-- > 0;) {
        const unsigned char* from = block.data() + block_header + y * row;
        std::transform(from, from + row, std::back_inserter(picture.bits),
                       [](unsigned char byte) { return static_cast<unsigned char>(~byte); });
    }
    return picture;
}

page_picture read_pdf(const std::string& path) {
    pdf_file pdf(path);
    if (pdf.pages() > 1)
        note(path + " has " + std::to_string(pdf.pages()) + " pages; the first one is taken");
    const fax_page page = pdf.render(1);
    if (!page.complaint.empty())
        note("the page may be incomplete: " + page.complaint);
    return picture_of(page.block);
}

page_picture on_whole_page(const page_picture& drawn) {
    page_picture page{fax_width, page_rows, {}};
    page.bits.assign(page.row_bytes() * page.rows, 0);
    for (std::size_t y = 0; y < drawn.rows; ++y)
        std::copy_n(drawn.bits.begin() + static_cast<std::ptrdiff_t>(y * drawn.row_bytes()),
                    drawn.row_bytes(),
                    page.bits.begin() + static_cast<std::ptrdiff_t>(y * page.row_bytes()));
    return page;
}

} // namespace

page_picture read_form(const std::string& path) {
    if (is_pdf(path))
        return read_pdf(path);
    bool had_shades = false;
    const page_picture drawn = read_png(path, fax_width, page_rows, had_shades);
    if (had_shades)
        note("shades of grey become black or white, at the middle");
    return on_whole_page(drawn);
}

std::string read_commands(const std::string& path) {
    std::string text;
    bool begun = false;
    for (const text_line& line : read_text_file(path, encoding::automatic).lines) {
        begun = begun || line.text.starts_with(begin_of_commands);
        text += line.text + '\n';
    }
    if (!begun)
        throw failure(exit_bad_data, path + " has no line that begins with " + begin_of_commands +
                                         "; the commands stand behind it");
    return text;
}

} // namespace zerdix::app
