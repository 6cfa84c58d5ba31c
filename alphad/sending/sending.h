// SPDX-License-Identifier: MIT
// Sends and prints documents: makes outgoing documents with their send jobs, and files in the spool
// folder of what would go over the line or to a printer.
#ifndef ZERDIX_ALPHAD_SENDING_SENDING_H
#define ZERDIX_ALPHAD_SENDING_SENDING_H

#include <optional>

#include "alphad/sending/fax_page.h"
#include "alphad/sending/spool.h"
#include "alphad/sending/telex_order.h"
#include "alphad/store/book_rights.h"
#include "alphad/store/store.h"
#include "rpc/wire/document_records.h"
#include "tiff/fax_tiff.h"

namespace zerdix::alphad {

class sending {
  public:
    // Both must outlive the object.
    sending(alphad::store& store, alphad::spool& spool)
        : store_(store), spool_(spool), rights_(store.users, store.user_groups) {}

    // Makes an outgoing document, the server's own copy, with a send job, and spools its picture.
    // The new id, or 0: no pages, a page that isn't a sound picture, a receiver that nobody knows
    // or that the user may not use.
    std::int32_t send(const str10& user, const document& desk, const a_s_rec& wanted);

    // Only a job that still waits can be changed or cancelled, only a cancelled one restarted.
    bool change(const a_chg_s_rec_i& wanted);
    bool cancel(std::int32_t id);
    bool restart(std::int32_t id);

    // Spools some pages of a document for a printer. The telex printer takes page 1, a text with
    // its control record in front: it becomes an outgoing document of the user that the record
    // names, with a send job; when the record names no receiver, a document on that user's desk.
    bool print(const document& printed, const a_print_doc_i& wanted);

    // Files change in two steps: an operation writes them beside their places and notes in the
    // store what is to become of them. Call settle_files once its work is in the store for good,
    // and at the start; discard_files when the work was undone. settle_files throws spool_error.
    void settle_files();
    void discard_files() noexcept;

    // For a store of an older version, which kept the names of files and not their folder: those
    // that lie in the present one are noted as such.
    void adopt_files();

  private:
    struct receiver {
        std::string number;
        std::string tsi;
        bool other_net = false; // a telex number for a fax, or the other way round
    };
    // What goes over the line: pictures, or a telex text.
    struct message {
        std::vector<tiff::coded_page> pages;
        std::string telex;
    };
    std::optional<receiver> find_receiver(const str10& user, const a_s_rec& wanted) const;
    std::optional<std::vector<tiff::coded_page>> pictures(std::int32_t document, std::int16_t first,
                                                          std::int16_t last, bool normal) const;
    std::optional<std::string> telex_text(std::int32_t document) const;
    std::optional<message> message_of(std::int32_t document, const a_s_rec& record) const;
    // The outgoing document with its job.
    std::int32_t make_job(const document& from, a_s_rec record, const receiver& to, message what);
    bool print_telex(const document& printed);
    void lay_on_desk(const document& telex, const telex_order& order);
    void end_without_line(send_job& job);
    void spool_job(send_job& job, message what);
    std::string write_file(const a_s_rec& record, message what);
    void write_picture(const std::string& name, const std::vector<tiff::coded_page>& pages,
                       int dpi_down, const tiff::fax_tiff_texts& texts);
    void change_file(const std::string& name, bool appears);
    bool spool_again(send_job& job);

    alphad::store& store_;
    alphad::spool& spool_;
    book_rights rights_;
    bool files_to_settle_ = true; // at the start those of a server that was killed
};

} // namespace zerdix::alphad

#endif
