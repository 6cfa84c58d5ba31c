// SPDX-License-Identifier: MIT
// Sends documents of the desk to receivers, with a cover page of its own for each receiver where
// one is wanted.
//
// A receiver who gets a cover page gets a new document: a copy of the one that the caller named,
// with the cover page in front. So no document has another receiver's cover page in it. The new
// documents stay on the desk.
#ifndef ZERDIX_DIALOGS_STORED_SENDING_H
#define ZERDIX_DIALOGS_STORED_SENDING_H

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <zerdix/journal.h>
#include <zerdix/records.h>

#include "dialogs/pick_expansion.h"
#include "rpc/attached_object.h"
#include "sending/sender.h"

namespace zerdix::dialogs {

class stored_sending {
  public:
    // `record` is the send record of all jobs, up to comment and receiver. Messages stand over
    // `window`. Journal and phone book outlive the object.
    stored_sending(JOURNAL& journal, TELEBOOK& telebook, const a_s_rec& record, bool withCover,
                   forms::window_handle window);
    ~stored_sending();
    stored_sending(const stored_sending&) = delete;
    stored_sending& operator=(const stored_sending&) = delete;

    // To all receivers in their order. A cover page that can't be made ends it, any other failure
    // doesn't. `document` becomes the last one that was made for a receiver.
    void send(std::int32_t& document, std::string_view comment,
              const std::vector<final_receiver>& receivers);

    // Tells the user how often there was nothing to send, if at all.
    void tellFailures() const;

  private:
    bool addCover(std::int32_t original, std::int32_t& document);
    bool copyOf(std::int32_t original, std::int32_t& made);
    bool storeCover(std::int32_t made);
    void sendTo(const final_receiver& receiver, std::int32_t document);
    void sendPages(std::int32_t document, std::int32_t mask);
    void sendTelex(std::int32_t document, std::int32_t mask);
    bool printTelex(const page_dat& text, std::int16_t type);
    void lacksData(std::int32_t& count);
    std::size_t name(const std::vector<final_receiver>& receivers);
    bool lacksTelexData(const final_receiver& receiver, std::int32_t mask);
    bool refuse(std::int32_t stringId);

    JOURNAL& journal_;
    TELEBOOK& telebook_;
    a_s_rec record_;
    sending::outcome& outcome_;
    sending::sender steps_;
    std::size_t receiver_ = 0; // of the outcome, at hand
    bool withCover_;
    forms::window_handle window_;
    std::optional<rpc::attached_object> session_; // for the cover pages
    std::int32_t failedFax = 0;
    std::int32_t failedTelex = 0;
};

} // namespace zerdix::dialogs

#endif
