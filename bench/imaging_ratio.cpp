// SPDX-License-Identifier: MIT
// A quarter turn, laying two pages over each other and stretching one for it, against Leptonica,
// which also has to come to the same pictures.
//
//     imaging_ratio [page-block-file...]
//
// Files hold pages in stored form; without any it makes a text page and a dense one. Leptonica's
// sides count with the picture that they make and release, as ours do.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

#include <leptonica/allheaders.h>

#include "bench/measure.h"
#include "bench/sample_pages.h"
#include "imaging/owned_bitmap.h"
#include "imaging/stretch.h"
#include "pages/mirror.h"

using namespace zerdix;
using bench::require;
using imaging::owned_bitmap;

namespace {

constexpr int rounds = 60;
constexpr double least_turn = 2;           // times as fast
constexpr double least_bandwidth = 0.6;    // of memcpy's
constexpr double least_stretched = 2;      // times as fast
constexpr std::int32_t other_width = 1654; // one of A4 at 200 dots to the inch
constexpr std::int32_t other_height = 2339;

class pix {
  public:
    explicit pix(PIX* picture) : picture_(picture) { require(picture != nullptr, "Leptonica"); }
    ~pix() { pixDestroy(&picture_); }
    pix(const pix&) = delete;
    pix& operator=(const pix&) = delete;

    PIX* get() const { return picture_; }

  private:
    PIX* picture_;
};

// Leptonica keeps rows in words of 32 bits, the highest bit leftmost.
PIX* pix_of(const imaging::LeadBitmap& bitmap) {
    PIX* made = pixCreate(bitmap.width, bitmap.height, 1);
    require(made != nullptr, "pixCreate");
    const std::size_t bytes = static_cast<std::size_t>(pixGetWpl(made)) * 4;
    for (std::int32_t y = 0; y < bitmap.height; ++y)
        std::memcpy(pixGetData(made) + static_cast<std::ptrdiff_t>(y) * pixGetWpl(made),
                    row_from_top(bitmap, y), bytes);
    pixEndianByteSwap(made);
    return made;
}

void require_same(const imaging::LeadBitmap& ours, PIX* theirs, const char* what) {
    const pix as_pix{pix_of(ours)};
    l_int32 same = 0;
    require(pixEqual(as_pix.get(), theirs, &same) == 0 && same == 1, what);
}

// The picture of a page in stored form, white-first.
void read_page(imaging::LeadBitmap& bitmap, bench::page_bytes page) {
    pages::mirror_bits(std::span{page}.subspan(pages::block_header_size));
    for (const std::size_t at : {0, 4})
        std::reverse(&page[at], &page[at] + 4);
    require(ConvertBmToLead(page.data(), &bitmap, 0) == 1 && L_InvertBitmap(&bitmap) == 1,
            "a page");
}

void copy_of(const imaging::LeadBitmap& bitmap, imaging::LeadBitmap& copy) {
    require(stretch(bitmap, bitmap.width, bitmap.height, &copy) == 1, "a copy");
}

bool compare_turns(const imaging::LeadBitmap& page) {
    const pix theirs{pix_of(page)};
    bench::best_time ours_took;
    bench::best_time theirs_took;
    for (int round = 0; round < rounds; ++round) {
        owned_bitmap turned;
        copy_of(page, turned);
        ours_took.run([&] { require(L_RotateBitmap(&turned, -90, 1) == 1, "a turn"); });
        theirs_took.run([&] { const pix result{pixRotate90(theirs.get(), -1)}; });
        if (round == 0)
            require_same(turned, pix{pixRotate90(theirs.get(), -1)}.get(), "the same turn");
    }
    std::printf("  turn: %.0f us, Leptonica %.0f us\n", ours_took.microseconds(),
                theirs_took.microseconds());
    return bench::bar_from_below("quarter turn, times as fast",
                                 theirs_took.microseconds() / ours_took.microseconds(), least_turn,
                                 "times");
}

bool compare_merges(const imaging::LeadBitmap& page) {
    const std::size_t bytes = page.stride * static_cast<std::size_t>(page.height);
    owned_bitmap target;
    copy_of(page, target);
    std::vector<unsigned char> other(bytes);
    bench::best_time merge;
    bench::best_time copy;
    for (int round = 0; round < 4 * rounds; ++round) {
        merge.run([&] { require(stretch_exclusive_or(page, &target) == 1, "a merge"); });
        copy.run([&] {
            std::memcpy(other.data(), page.pixels, bytes);
            asm volatile("" : : "r"(other.data()) : "memory");
        });
    }
    std::printf("  merge of %zu bytes: %.1f us, memcpy of them %.1f us\n", bytes,
                merge.microseconds(), copy.microseconds());
    // Two pages read and one written, against one and one.
    return bench::bar_from_below("merge, share of memcpy's bandwidth",
                                 3 * copy.microseconds() / (2 * merge.microseconds()),
                                 least_bandwidth, "");
}

// Leptonica's scaling takes other rows; where all are doubled there is but one way to do it.
void require_doubled(const imaging::LeadBitmap& bitmap) {
    owned_bitmap doubled;
    require(stretch(bitmap, 2 * bitmap.width, 2 * bitmap.height, &doubled) == 1, "a stretch");
    const pix small{pix_of(bitmap)};
    require_same(doubled, pix{pixExpandBinaryReplicate(small.get(), 2, 2)}.get(),
                 "the same stretch");
}

bool compare_stretched(const imaging::LeadBitmap& page, std::int32_t width, std::int32_t height) {
    owned_bitmap letterhead;
    require(stretch(page, width, height, &letterhead) == 1, "a letterhead");
    const pix their_page{pix_of(page)};
    const pix their_letterhead{pix_of(letterhead)};
    bench::best_time ours_took;
    bench::best_time theirs_took;
    require_doubled(letterhead);
    owned_bitmap ours;
    const pix theirs{pixCopy(nullptr, their_page.get())};
    copy_of(page, ours);
    for (int round = 0; round < rounds; ++round) {
        ours_took.run([&] { require(stretch_exclusive_or(letterhead, &ours) == 1, "a merge"); });
        theirs_took.run([&] {
            const pix scaled{pixScaleToSize(their_letterhead.get(), page.width, page.height)};
            pixXor(theirs.get(), theirs.get(), scaled.get());
        });
    }
    std::printf("  merge stretched from %d by %d: %.0f us, Leptonica %.0f us\n", width, height,
                ours_took.microseconds(), theirs_took.microseconds());
    return bench::bar_from_below("stretched merge, times as fast",
                                 theirs_took.microseconds() / ours_took.microseconds(),
                                 least_stretched, "times");
}

bool measure(const char* name, const bench::page_bytes& stored) {
    owned_bitmap page;
    read_page(page, stored);
    std::printf("%s: %d by %d pixels, best of %d runs\n", name, page.width, page.height, rounds);
    const bool turned = compare_turns(page);
    const bool merged = compare_merges(page);
    const bool doubled = compare_stretched(page, page.width, page.height / 2);
    const bool shrunk = compare_stretched(page, other_width, other_height);
    return turned && merged && doubled && shrunk;
}

// The C library keeps twice the size of the largest block that it has seen come back. Without it
// both sides would have the system clear their pages' memory anew each time.
void announce_pages() {
    void* volatile large = std::malloc(4 << 20);
    std::free(large);
}

} // namespace

int main(int argc, char** argv) {
    bench::keep_to_one_processor();
    announce_pages();
    return bench::measure_pages(argc, argv, measure) ? 0 : 1;
}
