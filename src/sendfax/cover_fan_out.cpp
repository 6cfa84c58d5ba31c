#include "sendfax/cover_fan_out.h"

#include <cstdlib>

#include "cover/composer.h"
#include "imaging/owned_bitmap.h"
#include "sendfax/job.h"
#include "sendfax/receivers.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

constexpr std::int32_t no_document = 0;
constexpr std::int16_t first_page = 1;
constexpr std::int16_t compressed_bitmap = 0; // the picture type

enum class pass_end { served, no_cover_page, failed };

pass_end failed(const char* line) {
    trace_lines.error("%s", line);
    return pass_end::failed;
}

// A new document with the job's pages; no_document on failure.
std::int32_t copy_job_document(const job_log& log) {
    JOURNAL& journal = *job().pjournal;
    const std::int32_t document = journal.makeDoc();
    if (document == 0 || document == -1) {
        trace_lines.error("SendFaxDoc(): (makedoc) Problems with RPC connection");
        return no_document;
    }
    if (journal.putComment2Doc(TOPF_P, document, pa_s_rec->comment.bytes) != success)
        trace_lines.warning("SendFaxDoc(): Problems with setting comment");
    log.document_created(document, ZERDIX::clsGetUserId(), ZERDIX::clsGetAlphaServer());
    if (journal.copyDoc(TOPF_P, job().lFaxid, document) == success)
        return document;
    trace_lines.error("SendFaxDoc(): (copydoc) Problems with RPC connection");
    return no_document;
}

pass_end delete_document(std::int32_t document, const job_log& log, pass_end end) {
    trace_lines.info("SendFaxDoc(): Delete temporary fax doc: %ld", document);
    log.document_deleted(document);
    if (job().pjournal->delDoc(TOPF_P, document) == success)
        return end;
    return failed("SendFaxDoc(): Problems with deleting document");
}

pass_end give_document_up(std::int32_t document, const job_log& log) {
    trace_lines.info("SendFaxDoc(): Inserting Cover page failed");
    return delete_document(document, log, pass_end::no_cover_page);
}

pass_end store_cover_page(std::int32_t document, imaging::LeadBitmap& bitmap) {
    page_dat coverPage{0, nullptr};
    if (ConvertLeadToCompressedFax(&coverPage, &bitmap, 0) != 1)
        return failed("SendFaxDoc(): Error ConvertLeadToCompressedFax()");
    pa_s_rec->pages = static_cast<std::int16_t>(job().sPageCount + 1);
    const std::int32_t stored =
        job().pjournal->putDocPage(document, first_page, compressed_bitmap, &coverPage);
    std::free(coverPage.data);
    if (stored != success)
        return failed("SendFaxDoc(): (putDocPage) Problems with RPC connection");
    return pass_end::served;
}

pass_end send_document(std::int32_t document, const job_log& log) {
    log.document_completed(document);
    if (job().pjournal->sendDoc(document, pa_s_rec) != success)
        return failed("SendFaxDoc(): Problems with sending document");
    return delete_document(document, log, pass_end::served);
}

pass_end run_pass(std::int32_t index, imaging::LeadBitmap& pCoverBitmap, const job_log& log) {
    take_receiver(index);
    const std::int32_t document = index > 0 ? copy_job_document(log) : job().lFaxid;
    if (document == no_document)
        return pass_end::failed;
    if (cover::InsertCoverPage(pzerdix, job().pjournal, &pCoverBitmap, pa_s_rec, document) != 1)
        return give_document_up(document, log);
    trace_lines.info("SendFaxDoc(): Inserting Cover page successfull");
    pa_s_rec->faxid = document;
    pass_end end = store_cover_page(document, pCoverBitmap);
    if (end == pass_end::served && userid[0] == '\0')
        end = send_document(document, log);
    if (end == pass_end::served)
        release_receiver(index);
    return end;
}

} // namespace

bool run_cover_passes(std::int32_t count, const job_log& log) {
    imaging::owned_bitmap pCoverBitmap;
    L_InitBitmap(&pCoverBitmap, 0, 0, 0);
    pass_end end = pass_end::served;
    for (std::int32_t index = count - 1; index >= 0 && end == pass_end::served; --index)
        end = run_pass(index, pCoverBitmap, log);
    return end != pass_end::failed;
}

} // namespace zerdix::sendfax
