// What happens to a document that is to leave the house.
#ifndef ZERDIX_ALPHAD_SENDING_H
#define ZERDIX_ALPHAD_SENDING_H

#include <optional>

#include "alphad/spool.h"
#include "alphad/store.h"
#include "rpc/wire/document_records.h"

namespace zerdix::alphad {

class sending {
  public:
    // Both must outlive the object.
    sending(alphad::store& store, const alphad::spool& spool) : store_(store), spool_(spool) {}

    // Makes an outgoing document, the server's own copy, with a send job, and spools its picture.
    // The new id, or 0: no pages, a page that isn't a sound picture, a receiver that nobody knows.
    std::int32_t send(const document& desk, const a_s_rec& wanted);

    // Only a job that still waits can be changed or cancelled, only a cancelled one restarted.
    bool change(const a_chg_s_rec_i& wanted);
    bool cancel(std::int32_t id);
    bool restart(std::int32_t id);

    // Spools some pages of a document for a printer; for the telex printer page 1, a text with its
    // control record in front.
    bool print(const document& printed, const a_print_doc_i& wanted);

  private:
    struct receiver {
        std::string number;
        std::string tsi;
    };
    std::optional<receiver> find_receiver(const a_s_rec& wanted) const;
    std::optional<std::vector<page_picture>> pictures(std::int32_t document, std::int16_t first,
                                                      std::int16_t last, bool normal) const;
    bool print_telex(const document& printed) const;
    void spool_job(send_job& job, std::vector<page_picture> pages);
    bool spool_again(send_job& job);

    alphad::store& store_;
    const alphad::spool& spool_;
};

} // namespace zerdix::alphad

#endif
