// SPDX-License-Identifier: MIT
// The server's answers: for each procedure an overload of answer(), which is chosen by the
// procedure's type. The table of procedures declares them all; the files *_answers.cpp define them,
// and a new procedure that has no answer there doesn't link.
//
// An answer either does the whole thing or refuses with false, 0 or an empty record and leaves the
// store as it was; the dispatcher wraps each in a transaction. Bytes and chains in a result are on
// the heap (malloc); the dispatcher releases them.
#ifndef ZERDIX_ALPHAD_ANSWERS_ANSWERS_H
#define ZERDIX_ALPHAD_ANSWERS_ANSWERS_H

#include <optional>

#include "alphad/answers/sessions.h"
#include "alphad/sending/sending.h"
#include "alphad/store/book_rights.h"
#include "alphad/store/external_phone_book.h"
#include "alphad/store/store.h"
#include "rpc/wire/procedures.h"

namespace zerdix::alphad {

namespace proc = wire::proc;

inline boolean yes(bool value) {
    return {value ? 1 : 0};
}

// Procedures of the table that have no answer here: their result is empty.
using unanswered = wire::procedure_list<
    proc::a_ping_1, proc::a_dir_list_1, proc::a_dir_put_1, proc::a_dir_del_1, proc::a_dir_get_1,
    proc::a_proc39_1, proc::a_proc49_1, proc::a_proc56_1, proc::a_proc57_1, proc::a_proc71_1,
    proc::a_proc73_1, proc::a_proc76_1, proc::a_proc91_1, proc::a_proc92_1, proc::a_proc94_1,
    proc::a_tag_get_1, proc::a_tag_byid_1, proc::a_tag_put_1, proc::a_tag_del_1, proc::a_tag_list_1,
    proc::a_tag_listb_1, proc::a_proc1000_1, proc::a_proc1001_1, proc::a_proc1002_1,
    proc::a_proc1003_1, proc::a_proc1004_1>;

class answers {
  public:
    // Both must outlive the object.
    answers(alphad::store& store, alphad::sending& sending)
        : store_(store), sending_(sending), rights_(store.users, store.user_groups) {}

    // The next answers are for a call that came over this connection, a number that is never used
    // twice. One that is gone makes nobody present any more.
    void use_connection(std::uint64_t number) { connection_ = number; }
    void connection_gone(std::uint64_t number) { sessions_.connection_gone(number); }

    // The work of the last answer is in the store for good, or was undone: the files that belong
    // to it appear or go. settle_files throws spool_error.
    void settle_files() { sending_.settle_files(); }
    void discard_files() noexcept { sending_.discard_files(); }

#define ZERDIX_PROCEDURE(procedure_number, procedure_name, argument_type, result_type)             \
    proc::procedure_name::result answer(proc::procedure_name,                                      \
                                        const proc::procedure_name::argument&);
#include "rpc/wire/procedures.def"
#undef ZERDIX_PROCEDURE

  private:
    // The document, when the user may change it: their own, any for the administrative user.
    std::optional<document> own(const str10& user, topftype pool, std::int32_t id) const;

    // The document, when the user may read it: their own, or a public one of the desk pools.
    std::optional<document> readable(const str10& user, topftype pool, std::int32_t id) const;

    std::string log_text(const str10& user, topftype pool, std::int32_t id) const;

    std::int32_t password_status(const str10& user, const str20& password) const;

    // Whether a user of a server may be the replacement of `user`.
    bool can_stand_in(std::string_view server, std::string_view userid,
                      std::string_view user) const;

    template <class Record>
    bool may(const str10& user, book_right wanted, const std::optional<Record>& record) const;
    template <class Result, class Node, class Record>
    Result readable_list(const str10& user, record_rows<Record>&& rows, Record Node::*field,
                         std::int32_t most) const;

    alphad::store& store_;
    alphad::sending& sending_;
    book_rights rights_;
    sessions sessions_;
    external_phone_book external_;
    std::uint64_t connection_ = 0;
};

} // namespace zerdix::alphad

#endif
