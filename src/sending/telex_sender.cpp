// SPDX-License-Identifier: MIT
#include "sending/telex_sender.h"

#include <zerdix/values.h>

#include "sending/telex_record.h"

namespace zerdix::sending {

std::int32_t telex_sender::make_document() {
    return made_document(result_, [this] { return journal_.makePrintDoc(); });
}

telex_sender::end telex_sender::print(std::int32_t document, std::string& content,
                                      std::int16_t picture_type, std::size_t receiver) {
    const page_dat page{static_cast<std::uint32_t>(content.size()),
                        reinterpret_cast<unsigned char*>(content.data())};
    std::int32_t rc = journal_.putPrintDocPage(document, 1, picture_type, &page);
    if (rc != rpc::success) {
        result_.failed(ZX_STEP_STORE, rc);
        return end::not_stored;
    }
    rc = journal_.printPrintDoc(TOPF_P, document, 1, 1, telex_printer, 1);
    if (rc == rpc::success) {
        result_.delivered(receiver, document, 0);
        return end::printed;
    }
    result_.not_delivered(receiver, document, rc);
    result_.failed(ZX_STEP_SEND, rc);
    return rc == rpc::refused ? end::refused : end::call_failed;
}

bool telex_sender::remove(std::int32_t document) {
    const std::int32_t rc = journal_.delPrintDoc(TOPF_P, document);
    if (rc == rpc::success)
        result_.gone(document);
    else
        result_.failed(ZX_STEP_DELETE, rc);
    return rc == rpc::success;
}

} // namespace zerdix::sending
