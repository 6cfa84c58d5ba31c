// SPDX-License-Identifier: MIT
// Letterhead and rotation: what the server gets, which calls are made, which lines are traced.

#include "cover/template_document.h"
#include "imaging/owned_bitmap.h"
#include "imaging/pictures.h"
#include "pages/driver_form.h"
#include "pages/mirror.h"
#include "sendfax/failing_malloc.h"
#include "sendfax/job_fixture.h"
#include "sendfax/landscape_page.h"
#include "sendfax/letterhead.h"

namespace zerdix::testing {
namespace {

using imaging::picture;
using imaging::turned_left;
using ::testing::IsSupersetOf;
using calls = std::vector<int>;
using bytes = std::vector<unsigned char>;

picture random_page(std::int32_t width, std::int32_t height, unsigned seed) {
    return imaging::random_picture(width, height, 3, seed);
}

// The letterhead is as large as the page, or smaller by whole times.
picture laid_over(const picture& page, const picture& letterhead) {
    picture result = page;
    for (std::size_t y = 0; y < page.size(); ++y)
        for (std::size_t x = 0; x < page[y].size(); ++x)
            result[y][x] = page[y][x] != letterhead[y * letterhead.size() / page.size()]
                                                   [x * letterhead[0].size() / page[y].size()];
    return result;
}

// The block as a driver sends it: the last row first.
bytes driver_form(const picture& from) {
    const std::size_t row = from[0].size() / 8;
    bytes block = driver_block(static_cast<std::uint32_t>(from[0].size()),
                               static_cast<std::uint32_t>(from.size()));
    for (std::size_t y = 0; y < from.size(); ++y)
        for (std::size_t x = 0; x < from[y].size(); ++x)
            block[8 + (from.size() - 1 - y) * row + x / 8] ^=
                static_cast<unsigned char>(from[y][x] << (7 - x % 8));
    return block;
}

std::string stored_page(const picture& from) {
    const bytes block = driver_form(from);
    bytes stored(block.size());
    pages::write_stored_form(block, stored);
    return as_text(*codec::compress(stored));
}

picture read_page(const std::string& compressed) {
    imaging::owned_bitmap page;
    const bytes stored = codec::text_bytes(compressed);
    const auto size = static_cast<std::int32_t>(stored.size());
    EXPECT_EQ(ConvertCompressedFaxToLead(stored.data(), size, &page), 1);
    return pixels_of(page);
}

class Letterhead : public JobTrace {
  protected:
    // A pool document that holds this page, as the letterhead of a paper source.
    std::int32_t install(std::size_t source, const std::string& page) {
        const std::int32_t id = server.store().documents.create(TOPF_P, "zerdix");
        if (!page.empty())
            server.store().pages.put_block({id, 1, 0}, 0, page);
        a_user_rec user = server.store().users.preferences("zerdix");
        user.userid.assign("zerdix");
        user.papertrays[source] = id;
        server.store().users.set_preferences(user);
        return id;
    }

    std::int32_t put(const picture& page, std::int16_t source) {
        const bytes block = driver_form(page);
        return StoreFaxPage(block.data(), static_cast<std::int32_t>(block.size()), 0, source);
    }

    picture stored(std::int16_t page) {
        return read_page(*server.store().pages.picture({sendfax::job().lFaxid, page, 0}));
    }

    // The lines of the preparers among those traced since the last look.
    lines prepared() {
        lines found;
        for (const std::string& line : traced())
            if (line.find("MergeBackPaper") != std::string::npos ||
                line.find("RotateBitmap") != std::string::npos)
                found.push_back(line);
        return found;
    }
};

const std::string selected =
    "Entry: <-- MergeBackPaper(): selected paper source (pool document id): ";

TEST_F(Letterhead, AnUprightLetterheadUnderTwoPages) {
    const picture letterhead = random_page(40, 50, 1);
    const std::string page = stored_page(letterhead);
    const std::int32_t id = install(3, page);
    open_job();
    traced();
    ASSERT_EQ(put(random_page(80, 100, 2), 3), 0);
    EXPECT_EQ(server.calls(), (calls{3, 23, 22, 30, 20, 59, 59, 60, 22}));
    EXPECT_EQ(stored(1), laid_over(random_page(80, 100, 2), letterhead));
    const lines merged{"Info1: MergeBackPaper(): original width: 80 height: 100",
                       "Info1: MergeBackPaper(): after BitBlt", "Exit: --> MergeBackPaper():"};
    lines expected{selected + "3",
                   "Info1: MergeBackPaper(): 3. background paper: <" + std::to_string(id) + ">",
                   "Info1: MergeBackPaper(): pool document (" + std::to_string(page.size()) +
                       " bytes) could be loaded"};
    expected.insert(expected.end(), merged.begin(), merged.end());
    EXPECT_EQ(prepared(), expected);

    server.clear_calls();
    ASSERT_EQ(put(random_page(80, 99, 4), 3), 0);
    EXPECT_EQ(server.calls(), (calls{60, 22}));
    EXPECT_EQ(
        prepared(),
        (lines{selected + "3", "Info1: MergeBackPaper(): passed paper source matches with last one",
               "Info1: MergeBackPaper(): original width: 80 height: 99", merged[1], merged[2]}));
    EXPECT_EQ(stored(2).size(), 99u);

    // The next job fetches anew; merge data above 0 replace the paper source.
    ASSERT_EQ(DeleteFaxDoc(), 0);
    open_job();
    ASSERT_EQ(merge("#PAPER 3#"), 0);
    ASSERT_EQ(put(random_page(40, 50, 5), 7), 0);
    EXPECT_EQ(server.calls(), (calls{3, 23, 22, 30, 20, 59, 59, 60, 22}));
    EXPECT_EQ(stored(1), laid_over(random_page(40, 50, 5), letterhead));
}

TEST_F(Letterhead, LandscapePagesAndLetterheadsAreTurnedEachOnItsOwn) {
    const picture upright = random_page(48, 64, 1);
    const picture landscape = random_page(64, 48, 2);
    install(1, stored_page(upright));
    install(2, stored_page(landscape));
    const picture square = random_page(64, 64, 3);
    install(3, stored_page(square));
    const lines turned{"Info1: MergeBackPaper(): start rotating Original bitmap -90",
                       "Info1: MergeBackPaper(): end rotating Original bitmap -90"};
    open_job();
    for (const auto& [page, source, under, turns] : {std::tuple{landscape, 1, upright, 1},
                                                     {upright, 2, turned_left(landscape), 1},
                                                     {landscape, 2, turned_left(landscape), 2},
                                                     {upright, 1, upright, 0},
                                                     {square, 3, square, 0}}) {
        ASSERT_EQ(put(page, static_cast<std::int16_t>(source)), 0);
        EXPECT_EQ(stored(sendfax::job().sPageCount),
                  laid_over(page == landscape ? turned_left(page) : page, under));
        const lines traced_now = prepared();
        EXPECT_EQ(std::count(traced_now.begin(), traced_now.end(), turned[0]), turns);
        EXPECT_EQ(std::count(traced_now.begin(), traced_now.end(), turned[1]), turns);
    }
    const calls made = server.calls();
    EXPECT_EQ(std::count(made.begin(), made.end(), 20), 4) << "a fetch for each change of source";
}

TEST_F(Letterhead, ALandscapePageWithoutLetterheadIsTurned) {
    open_job();
    const picture landscape = random_page(96, 48, 1);
    ASSERT_EQ(put(landscape, 0), 0);
    EXPECT_EQ(stored(1), turned_left(landscape));
    EXPECT_EQ(prepared(),
              (lines{selected + "0",
                     "Exit: --> MergeBackPaper(): no pool document is defined for background paper "
                     "number 0",
                     "Entry: <-- RotateBitmap:", "Info1: RotateBitmap: Width: 96 Height 48",
                     "Info1: RotateBitmap: Width: 96 > Height 48 : Rotate -90",
                     "Info1: RotateBitmap(): start rotating bitmap",
                     "Info1: RotateBitmap(): end rotating bitmap", "Exit: --> RotateBitmap():"}));
    const picture square = random_page(1000, 1000, 2);
    ASSERT_EQ(put(square, 0), 0);
    EXPECT_EQ(stored(2), square);
    const calls made = server.calls();
    EXPECT_EQ(std::count(made.begin(), made.end(), 30), 2)
        << "a paper that isn't there is asked for";
    EXPECT_THAT(prepared(), IsSupersetOf({"Info1: RotateBitmap: Width: 1000 Height 1000",
                                          "Exit: --> RotateBitmap():"}));
    const picture upright = random_page(96, 97, 3);
    ASSERT_EQ(put(upright, -1), 0);
    EXPECT_EQ(stored(3), upright);
    EXPECT_EQ(prepared(),
              (lines{selected + "-1",
                     "Info1: MergeBackPaper(): passed paper source matches with last one",
                     "Info1: MergeBackPaper(): no background page defined",
                     "Exit: --> MergeBackPaper():", "Entry: <-- RotateBitmap:",
                     "Exit: --> RotateBitmap(): Bitmap must not be rotated"}));
}

std::string loaded(std::size_t size) {
    return "Info1: MergeBackPaper(): pool document (" + std::to_string(size) +
           " bytes) could be loaded";
}

std::string paper(int source, std::int32_t id) {
    return "Info1: MergeBackPaper(): " + std::to_string(source) + ". background paper: <" +
           std::to_string(id) + ">";
}

std::int32_t size_of(const bytes& block) {
    return static_cast<std::int32_t>(block.size());
}

TEST_F(Letterhead, EveryWayOutIsTraced) {
    const std::string header = as_text(page_of(0xFFFFFFF8, 0xFFFFFFFF, 0, 0));
    const std::string no_paper =
        "Exit: --> MergeBackPaper(): no pool document is defined for background paper number ";
    const std::int32_t no_pages = install(1, "");
    const std::int32_t no_picture = install(2, "");
    server.store().pages.insert(no_picture, 1);
    const std::int32_t damaged = install(3, "abc");
    const std::int32_t whole = install(4, stored_page(random_page(16, 24, 1)));
    const std::int32_t huge = install(5, header);
    const std::string lost = "Error: MergeBackPaper(): problems with RPC connection";
    const std::string size_told = "Info1: MergeBackPaper(): original width: 16 height: 24";
    const std::string not_expanded = "Error: MergeBackPaper(): Error ConvertCompressedFaxToLead()";
    const struct {
        std::int16_t source;
        std::int32_t result;
        lines traced;                 // without entry and exit, except where the exit tells more
        int failing = 0, refused = 0; // procedures
    } ways[] = {
        {0, 4, {no_paper + "0"}},
        {10, 4, {no_paper + "10"}},
        {-2, 4, {no_paper + "-2"}},
        {4, 8, {"Error: MergeBackPaper(): Error returned from pzerdix->getAUserRecord!"}, 30},
        {4, 8, {paper(4, whole), lost}, 20},
        {4, 8, {paper(4, whole), lost}, 59},
        {4, 4, {paper(4, whole), "Info1: MergeBackPaper(): empty page"}, 0, 59},
        {1, 4, {paper(1, no_pages), "Info1: MergeBackPaper(): document contains no pages"}},
        {2, 4, {paper(2, no_picture), "Info1: MergeBackPaper(): no page (PCT_CBM_FINE) found"}},
        {3, 8, {paper(3, damaged), loaded(3), size_told, not_expanded}},
        {5, 8, {paper(5, huge), loaded(header.size()), size_told, not_expanded}},
    };
    const bytes block = driver_form(random_page(16, 24, 2));
    for (const auto& way : ways) {
        page_dat page{0, nullptr};
        open_job();
        traced();
        if (way.failing != 0)
            server.fail(way.failing);
        if (way.refused != 0)
            server.refuse(way.refused);
        EXPECT_EQ(sendfax::MergeBackPaper(block.data(), size_of(block), way.source, &page),
                  way.result);
        lines expected = way.traced;
        expected.insert(expected.begin(), selected + std::to_string(way.source));
        if (!expected.back().starts_with("Exit"))
            expected.push_back("Exit: --> MergeBackPaper():");
        EXPECT_EQ(traced(), expected);
        EXPECT_EQ(page.data, nullptr);
        EXPECT_EQ(DeleteFaxDoc(), 0);
    }
}

TEST_F(Letterhead, NoMemoryForTheTurnedPageIsAFailure) {
    install(4, stored_page(random_page(16, 24, 1)));
    const bytes block = driver_form(random_page(24, 16, 2));
    open_job();
    page_dat page{0, nullptr};
    ASSERT_EQ(sendfax::MergeBackPaper(block.data(), size_of(block), 4, &page), 0);
    std::free(page.data);
    page = {0, nullptr};
    traced();
    {
        const failing_malloc no_room_for_the_turned_page{8 + 2 * 24};
        EXPECT_EQ(sendfax::MergeBackPaper(block.data(), size_of(block), 4, &page), 8);
        EXPECT_EQ(sendfax::RotateBitmap(block.data(), size_of(block), &page), 8);
    }
    EXPECT_THAT(traced(),
                IsSupersetOf({"Error: MergeBackPaper(): Error ConvertLeadToCompressedFax()",
                              "Error: RotateBitmap(): Error ConvertLeadToCompressedFax()"}));
    EXPECT_EQ(page.data, nullptr);
}

TEST_F(Letterhead, ABlockThatEndsBeforeItsRowsIsAFailure) {
    install(4, stored_page(random_page(16, 24, 1)));
    bytes cut = driver_form(random_page(16, 24, 2));
    open_job();
    page_dat page{0, nullptr};
    EXPECT_EQ(sendfax::MergeBackPaper(cut.data(), size_of(cut) - 1, 4, &page), 8);
    EXPECT_THAT(traced(), ::testing::Contains("Error: MergeBackPaper(): Error ConvertBmToLead()"));
    cut[3] = 32;
    EXPECT_EQ(sendfax::RotateBitmap(cut.data(), size_of(cut), &page), 8);
    EXPECT_THAT(traced(),
                ::testing::Contains("Error: RotateBitmap(): Error ConvertFromBmToLead()"));
    EXPECT_EQ(page.data, nullptr);
}

TEST_F(Letterhead, AFailedFetchDoesNotLoseTheLetterheadForGood) {
    const picture letterhead = random_page(16, 24, 1);
    install(3, stored_page(letterhead));
    install(4, stored_page(random_page(16, 24, 2)));
    open_job();
    ASSERT_EQ(put(random_page(16, 24, 3), 3), 0);
    server.fail(59);
    EXPECT_EQ(put(random_page(16, 24, 3), 4), 8);
    ASSERT_EQ(put(random_page(16, 24, 3), 3), 0);
    EXPECT_EQ(stored(2), laid_over(random_page(16, 24, 3), letterhead));
}

} // namespace
} // namespace zerdix::testing
