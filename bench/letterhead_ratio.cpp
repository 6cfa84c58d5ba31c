// SPDX-License-Identifier: MIT
// Compares StoreFaxPage with letterhead and rotation to StoreFaxPage without: a landscape
// page laid over a letterhead, against the very picture that comes of it, handed in ready made.
// Codec and remote calls have the same to do in both.
//
//     letterhead_ratio [page-block-file...]
//
// Files hold pages in stored form; without any it makes a text page and a dense one. The letterhead
// is a page of 2,286 rows with two lines of text. It is fetched once, with the first page, as
// in any job. White rows are added to the pages up to a multiple of 8, as landscape pages have them
// across; so the letterhead is stretched where that makes other than 2,286.
#include <algorithm>
#include <cstring>
#include <span>
#include <string>

#include <zerdix/sendfax.h>

#include "bench/instant_server.h"
#include "bench/sample_pages.h"
#include "bench/sample_replies.h"
#include "imaging/owned_bitmap.h"
#include "pages/codec_calls.h"
#include "pages/driver_form.h"
#include "pages/mirror.h"
#include "sendfax/job.h"
#include "sendfax/letterhead.h"
#include "support/test_server.h"

using namespace zerdix;
using bench::encoded;
using bench::page_bytes;
using bench::require;

namespace {

constexpr int rounds = 60;
constexpr double most = 1.3;
constexpr std::int16_t letterhead_source = 1; // source 0 has none
constexpr std::size_t header = pages::block_header_size;

// A user with a letterhead, and its page in blocks.
bench::instant_server::replies answers(page_bytes letterhead) {
    a_user_rec user{};
    user.userid.assign("zerdix");
    user.papertrays[letterhead_source] = 1;
    a_get_inf_o document{};
    document.pagecount = 1;
    document.pagemasks[0] = 1;
    bench::reply_list page;
    bench::add_picture<a_get_pageb_o>(page, std::move(letterhead));
    return {{30, {encoded(user)}}, {20, {encoded(document)}}, {59, page}};
}

// Another height, with white below.
page_bytes with_height(page_bytes page, std::uint32_t height) {
    const pages::page_size size = pages::read_header(page.data(), pages::header_form::stored);
    page.resize(header + height * size.row_bytes());
    page[6] = static_cast<unsigned char>(height >> 8);
    page[7] = static_cast<unsigned char>(height);
    return page;
}

// Two lines of text above those of the text page.
page_bytes letterhead_page() {
    const page_bytes text = bench::text_page();
    page_bytes page(text.size());
    const std::size_t row = pages::read_header(text.data(), pages::header_form::stored).row_bytes();
    std::copy_n(text.begin(), header, page.begin());
    std::copy_n(text.begin() + header + 1050 * row, 200 * row, page.begin() + header);
    return *codec::compress(page);
}

// The page turned three times to the left, as a driver sends it.
page_bytes landscape_page(const page_bytes& page) {
    imaging::owned_bitmap bitmap;
    require(imaging::bitmap_of_driver_block(bench::driver_form(page), bitmap), "a bitmap");
    for (int turn = 0; turn < 3; ++turn)
        require(L_RotateBitmap(&bitmap, -90, 1) == 1, "a turn");
    page_bytes turned(header);
    std::memcpy(turned.data(), &bitmap.width, 4);
    std::memcpy(turned.data() + 4, &bitmap.height, 4);
    for (const std::size_t at : {0, 4})
        std::reverse(&turned[at], &turned[at] + 4);
    for (std::int32_t row = 0; row < bitmap.height; ++row) { // drivers send the last one first
        turned.resize(turned.size() + imaging::row_bytes(bitmap.width));
        L_GetRow(&bitmap, &turned[turned.size() - imaging::row_bytes(bitmap.width)], row,
                 imaging::row_bytes(bitmap.width));
    }
    return turned;
}

// What the letterhead makes of the landscape page, as a driver would send it.
page_bytes finished_page(const page_bytes& landscape) {
    page_dat page{0, nullptr};
    require(sendfax::MergeBackPaper(landscape.data(), bench::length_of(landscape),
                                    letterhead_source, &page) == 0,
            "MergeBackPaper");
    page_bytes stored = *codec::expand({page.data, page.data + page.size});
    std::free(page.data);
    pages::mirror_bits(stored);
    return bench::driver_form(stored);
}

void store(const page_bytes& page, std::int16_t source) {
    require(StoreFaxPage(page.data(), bench::length_of(page), 0, source) == 0, "StoreFaxPage");
}

bool measure(const char* name, page_bytes stored) {
    const std::uint32_t height =
        pages::read_header(stored.data(), pages::header_form::stored).height;
    stored = with_height(stored, (height + 7) / 8 * 8);
    const page_bytes upright = bench::driver_form(stored);
    const page_bytes landscape = landscape_page(stored);
    require(TransmissionDlg(nullptr, "Letterhead", 1) == 0, "TransmissionDlg");
    store(upright, 0);
    const page_bytes finished = finished_page(landscape);
    bench::best_time with;
    bench::best_time without;
    bench::best_time bare;
    for (int round = 0; round < rounds; ++round) {
        with.run([&] { store(landscape, letterhead_source); });
        without.run([&] { store(finished, 0); });
        bare.run([&] { store(upright, 0); });
    }
    require(DeleteFaxDoc() == 0, "DeleteFaxDoc");
    std::printf("%s, best of %d runs\n  landscape over letterhead %.0f us, the finished picture "
                "%.0f us, the upright page alone %.0f us\n",
                name, rounds, with.microseconds(), without.microseconds(), bare.microseconds());
    return bench::bar("with letterhead and rotation : without",
                      with.microseconds() / without.microseconds(), most, "");
}

} // namespace

int main(int argc, char** argv) {
    const test::scratch_folder folder;
    const test::client_environment environment{folder.path()};
    bench::keep_to_one_processor();
    const bench::instant_server server{answers(letterhead_page())};
    return bench::measure_pages(argc, argv, measure) ? 0 : 1;
}
