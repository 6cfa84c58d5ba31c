// SPDX-License-Identifier: MIT
// Storing the pages of a print job, and deleting or abandoning the job.

#include <cstdlib>
#include <limits>
#include <memory>
#include <span>

#include <zerdix/values.h>

#include "pages/driver_form.h"
#include "pages/page_codec.h"
#include "rpc/call.h"
#include "sendfax/job.h"
#include "sendfax/landscape_page.h"
#include "sendfax/letterhead.h"
#include "sendfax/log_line.h"
#include "sendfax/trace_lines.h"

using namespace zerdix;
using namespace zerdix::sendfax;

namespace {

using heap_bytes = std::unique_ptr<unsigned char, free_memory>;

// The first page brings the document into being. A failed id stays in the job's state, so that no
// later page makes another document.
bool create_document(const job_log& log) {
    job_state& state = job();
    const std::int32_t made = sending::made_document(
        sending::job_outcome(), [&state] { return state.lFaxid = state.pjournal->makeDoc(); });
    if (made == sending::no_document) {
        trace_lines.error("StoreFaxPage(): Problems with RPC connection");
        return false;
    }
    pa_s_rec->faxid = state.lFaxid;
    trace_lines.info("StoreFaxPage(): Faxid of created document: %ld", state.lFaxid);
    if (state.pjournal->putComment2Doc(TOPF_P, state.lFaxid, pa_s_rec->comment.bytes) != success)
        trace_lines.warning("StoreFaxPage(): Problems with setting comment");
    log.document_created(state.lFaxid, ZERDIX::clsGetUserId(), ZERDIX::clsGetAlphaServer());
    return true;
}

bool is_sound(std::span<const unsigned char> block) {
    if (block.size() < pages::block_header_size) {
        trace_lines.error("StoreFaxPage(): The page block of %lu bytes has no room for its header",
                          static_cast<std::uint32_t>(block.size()));
        return false;
    }
    const pages::page_size size = pages::read_header(block.data(), pages::header_form::stored);
    trace_lines.info("StoreFaxPage(): Width: %ld Height %ld", size.width, size.height);
    if (!pages::is_storable(size)) {
        trace_lines.error("StoreFaxPage(): A page of %lu by %lu pixels can't be stored: the width "
                          "must be a multiple of 8, and neither may be 0",
                          size.width, size.height);
        return false;
    }
    if (size.block_bytes() <= block.size())
        return true;
    trace_lines.error("StoreFaxPage(): The page block of %lu bytes doesn't cover its rows",
                      static_cast<std::uint32_t>(block.size()));
    return false;
}

// The count and the number of a page are 16 bits wide, on the wire too.
bool is_room_for_a_page() {
    constexpr std::int16_t most_pages = std::numeric_limits<std::int16_t>::max();
    if (job().sPageCount < most_pages)
        return true;
    trace_lines.error("StoreFaxPage(): A document holds %hd pages at most", most_pages);
    return false;
}

// The C library's allocator gives the memory of large blocks back to the system, which has to clear
// it anew for every page: that takes longer than all else here. It keeps twice the size of the
// largest block that it has mapped by itself and that was freed. So one is allocated and freed
// here, and never written to. Twice its size is what a page needs on its way over a letterhead: its
// work buffer, the two bitmaps, the page's rows once more for the codec, its tables and the
// compressed page.
void keep_memory_for_pages(std::size_t block_size) {
    void* volatile large = std::malloc(3 * block_size);
    std::free(large);
}

// From driver form to stored form, and into the codec.
bool compress_page(std::span<const unsigned char> block, std::span<unsigned char> buffer,
                   page_dat& page) {
    pages::write_stored_form(block, buffer);
    std::int32_t length = 0;
    const std::int32_t rc = pages::compress_mem_2_mem(
        buffer.data(), static_cast<std::int32_t>(buffer.size()), &page.data, &length);
    page.size = static_cast<std::uint32_t>(length);
    if (rc != success)
        trace_lines.error("StoreFaxPage(): Error returned from compress_mem_2_mem() rc: %ld", rc);
    return rc == success;
}

// The compressed page of a driver's block; false on failure.
bool prepare_page(std::span<const unsigned char> block, std::int16_t paper_source, page_dat& page) {
    const heap_bytes work{static_cast<unsigned char*>(std::malloc(block.size()))};
    if (work == nullptr) {
        trace_lines.error("Storefaxpage(): Problems to allocate memory");
        return false;
    }
    const std::span buffer{work.get(), block.size()};
    const auto size = static_cast<std::int32_t>(block.size());
    const std::int16_t source = job().sPaperSource > 0 ? job().sPaperSource : paper_source;
    const std::int32_t merged = MergeBackPaper(block.data(), size, source, &page);
    if (merged == success)
        return true;
    if (merged == failure) {
        trace_lines.error("-> StoreFaxPage(): Error MergeBackPaper");
        return false;
    }
    return RotateBitmap(block.data(), size, &page) == success || compress_page(block, buffer, page);
}

// The page counts from here on, even when the server doesn't take it.
bool store_page(const page_dat& page, const job_log& log) {
    job_state& state = job();
    ++state.sPageCount;
    const std::int32_t rc =
        state.pjournal->putDocPage(state.lFaxid, state.sPageCount, picture_page, &page);
    if (rc != success) {
        sending::job_outcome().failed(ZX_STEP_STORE, rc);
        trace_lines.error("-> StoreFaxPage(): Problems with RPC connection");
        return false;
    }
    log.page_no_completed(state.lFaxid, state.sPageCount);
    return true;
}

// `rc` is 8 when it was a remote call that failed.
bool not_prepared(std::int32_t rc) {
    sending::job_outcome().failed(ZX_STEP_PREPARE, rc);
    return false;
}

bool take_page(std::span<const unsigned char> block, std::int16_t paper_source,
               const job_log& log) {
    if (job().lFaxid == NO_FAXID && !create_document(log))
        return false;
    if (!is_sound(block) || !is_room_for_a_page())
        return not_prepared(0);
    if (job().sPageCount == 0)
        keep_memory_for_pages(block.size());
    page_dat page{0, nullptr};
    const rpc::failed_call_mark calls;
    const bool prepared = prepare_page(block, paper_source, page);
    const heap_bytes owned{page.data};
    if (prepared)
        return store_page(page, log);
    return not_prepared(calls.any_failed() ? rpc::call_failed : 0);
}

// The job's document as far as it is known; a creation that failed has left a 0 or a -1.
std::int32_t known_document() {
    const std::int32_t id = job().lFaxid;
    return id == NO_FAXID || id == -1 ? 0 : id;
}

} // namespace

extern "C" std::int32_t StoreFaxPage(const void* block, std::int32_t size, std::int16_t page_index,
                                     std::int16_t paper_source) {
    const job_log log{"StoreFaxPage()", std::time(nullptr)};
    if (pzerdix == nullptr) {
        sending::job_outcome().begin();
        if (!open_session(false)) {
            sending::job_outcome().failed_so_far(failure);
            return failure;
        }
    }
    const trace::operation traced{
        trace_lines, "StoreFaxPage():", "<-- StoreFaxPage(): Size of Bitmap: %ld Page Index: %hd",
        size, page_index};
    if (is_sending()) {
        trace_lines.error("StoreFaxPage(): the job is being sent and takes no more pages");
        return failure;
    }
    const std::size_t bytes = block != nullptr && size > 0 ? static_cast<std::size_t>(size) : 0;
    const bool accepted =
        take_page({static_cast<const unsigned char*>(block), bytes}, paper_source, log);
    if (!accepted)
        sending::job_outcome().failed_so_far(failure);
    return accepted ? success : failure;
}

extern "C" std::int32_t DeleteFaxDoc() {
    const trace::operation traced{
        trace_lines, "DeleteFaxDoc():", "<-- DeleteFaxDoc() -  Faxid: %ld", job().lFaxid};
    if (is_sending()) {
        traced.exit("--> DeleteFaxDoc(): job is being sent");
        return failure;
    }
    const bool has_document = job().lFaxid != NO_FAXID && job().pjournal != nullptr;
    if (has_document && !job_sender().remove(job().lFaxid)) {
        sending::job_outcome().failed_so_far(failure);
        trace_lines.error("-> DeleteFaxDoc(): Problems with deleting document");
        return failure;
    }
    close_job();
    sending::job_outcome().ended(success);
    traced.exit("--> -> DeleteFaxDoc(): OK");
    return success;
}

extern "C" std::int32_t AbandonFaxDoc() {
    trace_lines.entry("<-- AbandonFaxDoc() -  Faxid: %ld", job().lFaxid);
    if (is_sending()) {
        trace_lines.exit("--> AbandonFaxDoc(): job is being sent");
        return -1;
    }
    const std::int32_t left = known_document();
    close_job();
    sending::job_outcome().ended(left);
    if (left != 0)
        trace_lines.error("AbandonFaxDoc(): Document %ld stays on the server", left);
    trace_lines.exit("--> AbandonFaxDoc(): %ld", left);
    return left;
}
