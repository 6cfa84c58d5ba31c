// SPDX-License-Identifier: MIT
// Cover pages and letterheads: seen before they are sent, and given to the server.

#include "alphad/demo/demo_data.h"
#include "alphad/sending/fax_page.h"
#include "cli/desk_test.h"
#include "cli/tiny_pdf.h"
#include "output/failure.h"
#include "pictures/png_file.h"
#include "pictures/png_picture.h"

namespace zerdix::test {
namespace {

using namespace app;
using testing::HasSubstr;

class Cover : public desk_test {
  protected:
    Cover() { alphad::add_demo_cover(server_.store()); }

    page_picture preview(const std::string& words) {
        const std::string file = path("preview.png");
        EXPECT_EQ(answer("cover preview " + words + " -o " + file)["file"], file);
        bool had_shades = false;
        return read_png(file, 1728, 2300, had_shades);
    }

    // A PNG of one black square.
    std::string square(std::uint32_t side) const {
        page_picture drawn{side, side, {}};
        drawn.bits.assign(drawn.row_bytes() * side, 0xFF);
        write_png(path("square.png"), drawn);
        return path("square.png");
    }

    std::string template_id() { return server_.store().configuration.value("COVER"); }
};

// Whether anything in these rows is black, right of the labels and left of the edge.
bool has_ink(const page_picture& page, std::size_t top, std::size_t rows) {
    for (std::size_t y = top; y < top + rows; ++y)
        for (std::size_t x = 480 / 8; x < 1600 / 8; ++x)
            if (page.bits[y * page.row_bytes() + x] != 0)
                return true;
    return false;
}

// But for the document's number, which there is none of before it is sent.
TEST_F(Cover, LooksAsItWillWhenItIsSent) {
    const page_picture expected = preview("--to common:kanzlei -T Anfrage");
    for (const std::size_t line : {398U, 518U, 638U, 758U, 878U, 998U})
        EXPECT_TRUE(has_ink(expected, line, 60)) << line;
    EXPECT_FALSE(has_ink(preview("-T Anfrage"), 398, 60)) << "nobody";
    EXPECT_THAT(zerdix("cover preview -o - -T", {std::string(31, 'x')}).errors,
                HasSubstr("cut to 30"));
    fails("cover preview -o x.png --to common:nix", exit_no_receiver, "no entry nix");

    const auto sent =
        zerdix("print --cover --paper 1 --to common:kanzlei -T Anfrage", {SAMPLE_PDF});
    ASSERT_EQ(sent.status, 0) << sent.errors;
    const auto job = server_.jobs().at(0);
    EXPECT_EQ(server_.store().pages.count(job.record.faxid), 4);
    const auto page = alphad::read_page(*server_.store().pages.picture({job.record.faxid, 1, 0}));
    ASSERT_EQ(page->rows.size(), expected.bits.size());
    const auto number = static_cast<std::ptrdiff_t>(870 * expected.row_bytes());
    const auto below = static_cast<std::ptrdiff_t>(940 * expected.row_bytes());
    const auto& bits = expected.bits;
    EXPECT_TRUE(std::equal(bits.begin(), bits.begin() + number, page->rows.begin()));
    EXPECT_TRUE(std::equal(bits.begin() + below, bits.end(), page->rows.begin() + below));
}

TEST_F(Cover, IsReplacedByItsOwnerAndOfferedByOthers) {
    const std::string commands = write("commands", "#DRUCK#\r\nsetfaxstring=für;600;100");
    const std::string files = square(40) + ' ' + commands;
    EXPECT_TRUE(
        has_ink(preview("--form " + path("square.png") + " --commands " + commands), 100, 40));
    EXPECT_EQ(answer("cover install " + files)["in_use"], true);
    const page_picture page = preview("");
    EXPECT_EQ(page.rows, 2286U);
    EXPECT_EQ(page.bits[4], 0xFF);
    EXPECT_TRUE(has_ink(page, 100, 40)) << "a line without an end is one all the same";
    EXPECT_FALSE(has_ink(page, 398, 60));

    // A form from a PDF: 204 by 196 pixels to the inch, in the middle of the page.
    const tiny_page corner{595.28, 841.89, "0 g 0 741.89 100 100 re f"};
    const std::string pdf = write("form.PDF", tiny_pdf({corner, {595.28, 841.89, ""}}));
    EXPECT_THAT(zerdix("cover install", {pdf, commands}).errors, HasSubstr("has 2 pages; the fi"));
    const page_picture from_pdf = preview("");
    EXPECT_EQ(from_pdf.rows, 2292U);
    for (const std::size_t at : {3U, 36U, 270U * 216U + 36U})
        EXPECT_EQ(from_pdf.bits[at], 0xFF) << at;
    for (const std::size_t at : {1U, 39U, 274U * 216U + 3U})
        EXPECT_EQ(from_pdf.bits[at], 0) << at;
    EXPECT_TRUE(has_ink(from_pdf, 100, 40));

    const auto offered = answer("cover install " + files + as_meier());
    EXPECT_EQ(offered["in_use"], false);
    EXPECT_NE(std::to_string(offered["id"].get<int>()), template_id());
    EXPECT_THAT(zerdix("cover install " + files + as_meier()).output,
                HasSubstr("alphad config COVER"));
    server_.set_config("COVER", std::to_string(offered["id"].get<int>()));
    EXPECT_TRUE(has_ink(preview(""), 100, 40)) << "others may read it";

    fails("cover install " + path("square.png"), exit_bad_data, "#DRUCK#",
          {write("none", "setdate=1;1;\n")});
    server_.set_config("COVER", "99");
    fails("print --cover --to 1", exit_no_input, "document 99, has no form", {SAMPLE_PDF});
    server_.set_config("COVER", "");
    fails("cover preview -o x.png", exit_no_input, "names no cover template");
    fails("print --cover --to 1", exit_no_input, "names no cover template", {SAMPLE_PDF});
    EXPECT_TRUE(server_.jobs().empty());
}

// The document of the job stays for those who haven't got it; copies with cover pages don't.
TEST_F(Cover, ThatCantBeMadeIsToldAndLeavesOnlyWhatCanBeSent) {
    std::size_t desk = server_.desk("zerdix").size();
    struct {
        int procedure, nth;
        std::size_t jobs, stays;
        const char* told;
    } const faults[] = {
        {38, 1, 0, 1, "sending to 2 failed: there is no cover page for it; 0 of 2 send jobs"},
        {38, 2, 1, 0, "sending to 1 failed: there is no cover page for it; 1 of 2 send jobs"},
        {25, 1, 0, 1, "sending to 2 failed: the server refused it; 0 of 2 send jobs"},
        {25, 2, 1, 1, "sending to 1 failed: the server refused it; 1 of 2 send jobs"},
        {6, 1, 1, 1, "deleting the document after sending failed: the server refused it; 1 of 2"},
        {6, 2, 2, 0, "deleting the document after sending failed: the server refused it; 2 of 2"},
    };
    for (const auto& fault : faults) {
        const std::size_t jobs = server_.jobs().size();
        server_.refuse(fault.procedure, fault.nth);
        fails("print --cover --to 1 --to 2", exit_refused, fault.told, {SAMPLE_PDF});
        EXPECT_EQ(server_.jobs().size() - jobs, fault.jobs) << fault.told;
        desk += fault.stays;
        EXPECT_EQ(server_.desk("zerdix").size(), desk) << fault.told;
    }
    const std::size_t jobs = server_.jobs().size();
    server_.store().pages.put_block({std::stoi(template_id()), 1, 0}, 0, "damaged");
    fails("print --cover --to 1", exit_bad_data, "the cover template, document ", {SAMPLE_PDF});
    fails("cover preview -o x.png", exit_bad_data, "form of the cover template is");
    EXPECT_EQ(server_.jobs().size(), jobs);
    EXPECT_EQ(server_.desk("zerdix").size(), desk);
}

TEST_F(Cover, LetterheadIsNamedForItsPaper) {
    const auto one = answer("preferences show")["paper"].at(1);
    const auto made = answer("letterhead install --paper 2 " + square(16));
    const auto paper = answer("preferences show")["paper"];
    EXPECT_EQ(paper.at(2), made["id"]);
    EXPECT_EQ(paper.at(1), one);
    const auto page =
        alphad::read_page(*server_.store().pages.picture({made["id"].get<int>(), 1, 0}));
    EXPECT_EQ(page->size.width, 1728U);
    EXPECT_EQ(page->size.height, 2286U);

    // Asked for before the first page: it went out bare, and the server was blamed for the other.
    fails("print --paper 3 --to 1", exit_no_input, "no letterhead for paper 3", {SAMPLE_PDF});
    server_.store().pages.put_block({made["id"], 1, 0}, 0, "damaged");
    fails("print --paper 2 --to 1", exit_bad_data,
          "the letterhead for paper 2, document " + made["id"].dump() + ", is damaged",
          {SAMPLE_PDF});
    done("doc delete " + made["id"].dump());
    fails("print --paper 2 --to 1", exit_no_input, "has no form that you may read", {SAMPLE_PDF});
    EXPECT_TRUE(server_.jobs().empty());
    fails("letterhead install", exit_bad_data, "more than 1728 by 2286", {square(2000)});
    fails("letterhead install", exit_no_input, "can't be read", {path("no.pdf")});
}

} // namespace
} // namespace zerdix::test
