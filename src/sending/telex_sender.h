// SPDX-License-Identifier: MIT
// The steps by which a telex reaches its receiver: a print document, whose one page is the control
// record and the text, is printed on the printer that stands for the telex line.
#ifndef ZERDIX_SENDING_TELEX_SENDER_H
#define ZERDIX_SENDING_TELEX_SENDER_H

#include <cstdint>
#include <string>

#include <zerdix/journal.h>

#include "sending/made_document.h"
#include "sending/outcome.h"

namespace zerdix::sending {

class telex_sender {
  public:
    // Both outlive the sender.
    telex_sender(JOURNAL& journal, outcome& result) : journal_(journal), result_(result) {}

    // A new print document; no_document on failure.
    std::int32_t make_document();

    // Stores the page in that picture type and prints it for the receiver of that index in the
    // outcome.
    enum class end { printed, not_stored, refused, call_failed };
    end print(std::int32_t document, std::string& content, std::int16_t picture_type,
              std::size_t receiver);

    bool remove(std::int32_t document);

  private:
    JOURNAL& journal_;
    outcome& result_;
};

} // namespace zerdix::sending

#endif
