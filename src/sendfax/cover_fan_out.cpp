// SPDX-License-Identifier: MIT
#include "sendfax/cover_fan_out.h"

#include "imaging/owned_bitmap.h"
#include "sendfax/job.h"
#include "sendfax/receivers.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

enum class pass_end { served, no_cover_page, failed };

using sending::no_document;
using cover_end = sending::sender::cover_end;

pass_end failed(const char* line) {
    trace_lines.error("%s", line);
    return pass_end::failed;
}

class cover_fan_out {
  public:
    explicit cover_fan_out(const job_log& log) : log_(log), steps_(job_sender()) {
        L_InitBitmap(&pCoverBitmap, 0, 0, 0);
    }

    pass_end run_pass(std::int32_t index);

  private:
    std::int32_t copy_job_document();
    pass_end give_up(std::int32_t document);
    pass_end store_cover_page(std::int32_t document);
    pass_end send(std::int32_t document, std::int32_t index);
    pass_end remove(std::int32_t document, pass_end end);

    const job_log& log_;
    sending::sender steps_;
    imaging::owned_bitmap pCoverBitmap;
};

// A new document with the job's pages; no_document on failure.
std::int32_t cover_fan_out::copy_job_document() {
    const std::int32_t document = steps_.make_document();
    if (document == no_document) {
        trace_lines.error("SendFaxDoc(): (makedoc) Problems with RPC connection");
        return no_document;
    }
    if (job().pjournal->putComment2Doc(TOPF_P, document, pa_s_rec->comment.bytes) != success)
        trace_lines.warning("SendFaxDoc(): Problems with setting comment");
    log_.document_created(document, ZERDIX::clsGetUserId(), ZERDIX::clsGetAlphaServer());
    if (steps_.copy(job().lFaxid, document))
        return document;
    trace_lines.error("SendFaxDoc(): (copydoc) Problems with RPC connection");
    return no_document;
}

pass_end cover_fan_out::remove(std::int32_t document, pass_end end) {
    trace_lines.info("SendFaxDoc(): Delete temporary fax doc: %ld", document);
    log_.document_deleted(document);
    return steps_.remove(document) ? end : failed("SendFaxDoc(): Problems with deleting document");
}

pass_end cover_fan_out::give_up(std::int32_t document) {
    trace_lines.info("SendFaxDoc(): Inserting Cover page failed");
    return remove(document, pass_end::no_cover_page);
}

pass_end cover_fan_out::store_cover_page(std::int32_t document) {
    const auto pages = static_cast<std::int16_t>(job().sPageCount + 1);
    switch (steps_.store_cover(pCoverBitmap, document, pages)) {
    case cover_end::not_converted:
        return failed("SendFaxDoc(): Error ConvertLeadToCompressedFax()");
    case cover_end::not_stored:
        return failed("SendFaxDoc(): (putDocPage) Problems with RPC connection");
    default:
        return pass_end::served;
    }
}

pass_end cover_fan_out::send(std::int32_t document, std::int32_t index) {
    log_.document_completed(document);
    if (!steps_.send(document, static_cast<std::size_t>(index)))
        return failed("SendFaxDoc(): Problems with sending document");
    return remove(document, pass_end::served);
}

pass_end cover_fan_out::run_pass(std::int32_t index) {
    take_receiver(index);
    const std::int32_t document = index > 0 ? copy_job_document() : job().lFaxid;
    if (document == no_document)
        return pass_end::failed;
    if (!steps_.compose_cover(*pzerdix, pCoverBitmap, document))
        return give_up(document);
    trace_lines.info("SendFaxDoc(): Inserting Cover page successfull");
    pass_end end = store_cover_page(document);
    if (end == pass_end::served && userid[0] == '\0')
        end = send(document, index);
    if (end == pass_end::served)
        release_receiver(index);
    return end;
}

} // namespace

bool run_cover_passes(std::int32_t count, const job_log& log) {
    cover_fan_out run(log);
    pass_end end = pass_end::served;
    for (std::int32_t index = count - 1; index >= 0 && end == pass_end::served; --index)
        end = run.run_pass(index);
    return end != pass_end::failed;
}

} // namespace zerdix::sendfax
