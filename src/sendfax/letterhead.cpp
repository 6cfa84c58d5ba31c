// SPDX-License-Identifier: MIT
// Laying pages over the user's letterhead. The letterhead of a paper source is the first page of a
// pool document that the user's record names.

#include <zerdix/values.h>

#include "imaging/owned_bitmap.h"
#include "imaging/stretch.h"
#include "sendfax/job.h"
#include "sendfax/letterhead.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

using imaging::LeadBitmap;
using imaging::owned_bitmap;

constexpr std::int16_t first_page = 1;

enum class outcome {
    merged,
    undefined, // the user has no letterhead for the paper source
    unusable,
    failed,
};

outcome failed(const char* line) {
    trace_lines.error("%s", line);
    return outcome::failed;
}

outcome unusable(const char* line) {
    trace_lines.info("%s", line);
    forget_background();
    return outcome::unusable;
}

// The pool document for a paper source, 0 for none; false when the server couldn't be asked.
bool find_document(std::int16_t source, std::int32_t& id) {
    const a_user_rec* user = pzerdix->getAUserRecord();
    if (user == nullptr)
        return false;
    const bool known = source >= 0 && static_cast<std::size_t>(source) < user->papertrays.size();
    id = known ? user->papertrays[static_cast<std::size_t>(source)] : 0;
    return true;
}

outcome fetch_page(std::int32_t id) {
    job_state& state = job();
    const a_get_inf_o* document = state.pjournal->getDocInf(TOPF_P, id, 0);
    if (document == nullptr)
        return failed("MergeBackPaper(): problems with RPC connection");
    if (document->pagecount <= 0)
        return unusable("MergeBackPaper(): document contains no pages");
    if (!has_picture(document->pagemasks[0], picture_page))
        return unusable("MergeBackPaper(): no page (PCT_CBM_FINE) found");
    // The page fetched before goes with this call, whatever becomes of it.
    forget_background();
    state.pBackPage = state.pjournal->getDocPage(TOPF_P, id, first_page, picture_page);
    if (state.pBackPage == nullptr)
        return failed("MergeBackPaper(): problems with RPC connection");
    if (state.pBackPage->size == 0)
        return unusable("MergeBackPaper(): empty page");
    trace_lines.info("MergeBackPaper(): pool document (%ld bytes) could be loaded\n",
                     state.pBackPage->size);
    return outcome::merged;
}

outcome load_background(std::int16_t source) {
    std::int32_t id = 0;
    if (!find_document(source, id))
        return failed("MergeBackPaper(): Error returned from pzerdix->getAUserRecord!");
    if (id == 0)
        return outcome::undefined;
    trace_lines.info("MergeBackPaper(): %ld. background paper: <%ld>", source, id);
    const outcome fetched = fetch_page(id);
    if (fetched == outcome::merged)
        job().sLastPaperSource = source;
    return fetched;
}

// Sees to it that the job's background page is that of the paper source.
outcome provide_background(std::int16_t source) {
    if (source != job().sLastPaperSource)
        return load_background(source);
    trace_lines.info("MergeBackPaper(): passed paper source matches with last one");
    if (job().pBackPage != nullptr)
        return outcome::merged;
    trace_lines.info("MergeBackPaper(): no background page defined");
    return outcome::unusable;
}

void turn_upright(LeadBitmap& bitmap) {
    if (bitmap.width <= bitmap.height)
        return;
    trace_lines.info("MergeBackPaper(): start rotating Original bitmap -90");
    L_RotateBitmap(&bitmap, -90, 1);
    trace_lines.info("MergeBackPaper(): end rotating Original bitmap -90");
}

// The letterhead's picture, white-first. It is kept from page to page.
bool expand_background(LeadBitmap& background) {
    if (holds_pixels(background))
        return true;
    const page_dat& page = *job().pBackPage;
    return ConvertCompressedFaxToLead(page.data, static_cast<std::int32_t>(page.size),
                                      &background) == 1 &&
           L_InvertBitmap(&background) == 1;
}

// The rows of the page are driver rows, a set bit is white; those of the letterhead are expanded
// rows, a set bit is black. Exclusive or makes driver rows of them in which a pixel is black where
// one of the two is.
void lay_over(LeadBitmap& background, LeadBitmap& original) {
    const bool landscape = background.width > background.height;
    turn_upright(original);
    turn_upright(background);
    L_InvertBitmap(&original);
    if (imaging::stretch_exclusive_or(background, &original) != 1)
        trace_lines.error("MergeBackPaper(): Error BitBlt()");
    trace_lines.info("MergeBackPaper(): after BitBlt");
    if (landscape) // turned anew for the next page, as the trace tells
        FreeLeadBitmap(&background);
}

outcome merge(std::span<const unsigned char> block, page_dat& page) {
    const pages::page_size size = pages::read_header(block.data(), pages::header_form::stored);
    trace_lines.info("MergeBackPaper(): original width: %ld height: %ld", size.width, size.height);
    owned_bitmap original;
    if (!imaging::bitmap_of_driver_block(block, original))
        return failed("MergeBackPaper(): Error ConvertBmToLead()");
    if (!expand_background(job().bmpBackground)) {
        FreeLeadBitmap(&job().bmpBackground);
        return failed("MergeBackPaper(): Error ConvertCompressedFaxToLead()");
    }
    lay_over(job().bmpBackground, original);
    if (ConvertLeadToCompressedFax(&page, &original, 1) != 1)
        return failed("MergeBackPaper(): Error ConvertLeadToCompressedFax()");
    return outcome::merged;
}

} // namespace

std::int32_t MergeBackPaper(const unsigned char* block, std::int32_t size, std::int16_t paperSource,
                            page_dat* page) {
    const trace::operation traced{
        trace_lines,
        "MergeBackPaper():", "<-- MergeBackPaper(): selected paper source (pool document id): %ld",
        paperSource};
    outcome end = provide_background(paperSource);
    if (end == outcome::merged)
        end = merge({block, static_cast<std::size_t>(size)}, *page);
    if (end == outcome::undefined)
        traced.exit("--> MergeBackPaper(): no pool document is defined for background paper "
                    "number %ld",
                    paperSource);
    if (end == outcome::failed)
        return failure;
    return end == outcome::merged ? success : declined;
}

} // namespace zerdix::sendfax
