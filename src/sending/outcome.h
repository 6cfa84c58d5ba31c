// SPDX-License-Identifier: MIT
// The record of what came of a job: kept where things happen, handed out by zerdix/outcome.h.
#ifndef ZERDIX_SENDING_OUTCOME_H
#define ZERDIX_SENDING_OUTCOME_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include <zerdix/outcome.h>

namespace zerdix::sending {

class outcome {
  public:
    // Forgets the job before, once it has ended. A job that has begun stays as it is: merge data
    // may come before the job is opened.
    void begin();

    // The receivers of the job, in their order, none of them tried yet; gives the index of the
    // first. Of those named before, the ones that have the document, or may have it, stay in front.
    std::size_t name_receivers(const std::vector<std::string>& receivers);
    // One more; gives its index.
    std::size_t name_receiver(std::string_view receiver);

    // What came of a receiver. `outgoing` is 0 where the server told no id.
    void delivered(std::size_t receiver, std::int32_t document, std::int32_t outgoing);
    // By the result of the request that failed just now.
    void not_delivered(std::size_t receiver, std::int32_t document, std::int32_t result);

    // The step that has just failed; only the first one is kept. `result` is 4, 8 or 12 as of a
    // remote operation, 0 for a failure of this side. With 8 the last failed call tells why.
    void failed(zx_step step, std::int32_t result);

    // A document that isn't meant to stay, until it is gone.
    void left_behind(std::int32_t document);
    void gone(std::int32_t document);
    // The job is for a user's desk, and then the document that lies there.
    void meant_for_desk(std::string_view user);
    void put_on_desk(std::int32_t document);

    void remark(zx_remark_kind kind, std::string_view key, std::string_view value);

    // The result of the function that ended the job.
    void ended(std::int32_t result);
    // The result of a function that failed and left the job open.
    void failed_so_far(std::int32_t result) { result_ = result; }

    const zx_outcome& view();

  private:
    struct receiver_state {
        std::string name;
        zx_delivery delivery;
        std::int32_t document;
        std::int32_t outgoing;
    };
    struct remark_state {
        zx_remark_kind kind;
        std::string key, value;
    };

    bool ended_ = true;
    std::int32_t result_ = -1;
    zx_step step_ = ZX_STEP_NONE;
    std::int32_t answer_ = 0, rpc_status_ = 0, system_error_ = 0;
    std::string desk_user_;
    std::int32_t on_desk_ = 0;
    std::deque<receiver_state> receivers_; // views keep pointers to the names
    std::deque<remark_state> remarks_;
    std::vector<std::int32_t> left_;

    zx_outcome view_{};
    std::vector<zx_receiver> receiver_views_;
    std::vector<zx_remark> remark_views_;
};

// Of the print job, and of SendStoredDocuments.
outcome& job_outcome();
outcome& stored_outcome();

} // namespace zerdix::sending

#endif
