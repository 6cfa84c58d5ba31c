// What the server does for each procedure: one overload of answer() each, told apart by the
// procedure's type. A procedure without an overload answers an empty result.
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

    // Documents
    std::int32_t answer(proc::a_create_doc_1, const str10&);
    boolean answer(proc::a_copy_doc_1, const a_copy_doc_i&);
    boolean answer(proc::a_del_doc_1, const a_del_doc_i&);
    boolean answer(proc::a_forward_doc_1, const a_forward_doc_i&);
    boolean answer(proc::a_put_comment_1, const a_put_comment_i&);
    boolean answer(proc::a_set_public_1, const a_set_public_i&);
    boolean answer(proc::a_set_bif_1, const a_set_bif_i&);
    boolean answer(proc::a_is_bif_1, const a_is_bif_i&);
    a_e_rec answer(proc::a_get_e_1, const a_get_e_i&);
    a_p_rec answer(proc::a_get_p_1, const a_get_p_i&);
    a_s_rec answer(proc::a_get_s_1, const a_get_s_i&);

    // Pages
    a_get_inf_o answer(proc::a_get_inf_1, const a_get_inf_i&);
    a_get_pageb_o answer(proc::a_get_pageb_1, const a_get_pageb_i&);
    boolean answer(proc::a_put_pageb_1, const a_put_pageb_i&);
    boolean answer(proc::a_insert_page_1, const a_insert_page_i&);
    boolean answer(proc::a_del_page_1, const a_del_page_i&);
    boolean answer(proc::a_copy_page_1, const a_copy_page_i&);
    boolean answer(proc::a_put_page_1, const a_put_page_i&);
    bytes answer(proc::a_get_page_1, const a_get_page_i&);

    // Logs
    boolean answer(proc::a_put_log_1, const a_put_log_i&);
    bytes answer(proc::a_get_log_1, const a_get_log_i&);
    a_get_logb_o answer(proc::a_get_logb_1, const a_get_logb_i&);
    a_get_logl_o answer(proc::a_get_logl_1, const a_get_logl_i&);

    // Send jobs and printing
    std::int32_t answer(proc::a_send_doc_1, const a_send_doc_i&);
    boolean answer(proc::a_chg_s_rec_1, const a_chg_s_rec_i&);
    boolean answer(proc::a_cancel_job_1, const a_cancel_job_i&);
    boolean answer(proc::a_restart_job_1, const a_restart_job_i&);
    boolean answer(proc::a_print_doc_1, const a_print_doc_i&);

    // Document lists
    a_get_elist_o answer(proc::a_get_elist_1, const a_get_elist_i&);
    a_get_plist_o answer(proc::a_get_plist_1, const a_get_plist_i&);
    a_get_slist_o answer(proc::a_get_slist_1, const a_get_slist_i&);
    a_get_elist_o answer(proc::a_get_elistb_1, const a_get_elistb_i&);
    a_get_plist_o answer(proc::a_get_plistb_1, const a_get_plistb_i&);
    a_get_slist_o answer(proc::a_get_slistb_1, const a_get_slistb_i&);

    // Session
    str80 answer(proc::a_get_config_1, const a_get_config_i&);
    a_get_tz_o answer(proc::a_get_tz_1, const wire::none&);
    a_get_compat_o answer(proc::a_get_compat_1, const wire::none&);
    a_get_login_o answer(proc::a_get_login_1, const a_get_login_i&);
    wire::none answer(proc::a_logout_1, const a_logout_i&);
    boolean answer(proc::a_check_login_1, const std::int32_t&);
    std::int32_t answer(proc::a_chg_pw_1, const a_chg_pw_i&);

    // Users
    a_user_rec answer(proc::a_get_user_1, const str10&);
    boolean answer(proc::a_put_user_1, const a_user_rec&);
    o_user_rec answer(proc::o_get_user_1, const o_get_user_i&);
    boolean answer(proc::o_put_user_1, const o_user_rec&);
    boolean answer(proc::a_check_cycle_1, const a_check_cycle_i&);
    a_get_users_o answer(proc::a_get_users_1, const wire::none&);
    a_get_users_o answer(proc::a_get_usersb_1, const a_get_usersb_i&);
    a_get_groups_o answer(proc::a_get_groups_1, const wire::none&);
    a_get_members_o answer(proc::a_get_members_1, const str10&);

    // Devices
    a_get_printers_o answer(proc::a_get_printers_1, const wire::none&);
    a_get_printers_o answer(proc::a_get_printersb_1, const a_get_printersb_i&);
    a_printer_rec answer(proc::a_get_printer_1, const str10&);
    a_get_scanners_o answer(proc::a_get_scanners_1, const std::int32_t&);
    a_get_scanners_o answer(proc::a_get_freescanners_1, const std::int32_t&);
    a_scanner_rec answer(proc::a_get_scanner_1, const str10&);
    boolean answer(proc::a_scan_doc_1, const a_scan_doc_i&);

    // Signature and bulletin board
    bytes answer(proc::a_get_sig_1, const str10&);
    boolean answer(proc::a_put_sig_1, const a_put_sig_i&);
    a_get_sigb_o answer(proc::a_get_sigb_1, const a_get_sigb_i&);
    boolean answer(proc::a_put_sigb_1, const a_put_sigb_i&);
    boolean answer(proc::a_put_board_1, const a_put_board_i&);
    a_get_board_o answer(proc::a_get_board0_1, const std::int16_t&);
    a_get_board_o answer(proc::a_get_board_1, const a_get_board_i&);

    // The external phone book
    std::int32_t answer(proc::a_query_ext_1, const o_query_ext_i&);
    a_fetch_result_o answer(proc::a_fetch_result_1, const std::int32_t&);

    // Phone books
    boolean answer(proc::o_put_tbook_1, const o_put_tbook_i&);
    o_tebu answer(proc::o_get_tbook_1, const o_get_tbook_i&);
    o_get_tbooks_o answer(proc::o_get_tbooks_1, const o_get_tbooks_i&);
    o_get_tbooksb_o answer(proc::o_get_tbooksb_1, const o_get_tbooksb_i&);
    boolean answer(proc::o_del_tbook_1, const o_del_tbook_i&);
    boolean answer(proc::o_put_tbookentry_1, const o_put_tbookentry_i&);
    o_tebul answer(proc::o_get_tbookentry_1, const o_get_tbookentry_i&);
    o_get_tbookl_o answer(proc::o_get_tbookl_1, const o_get_tbookl_i&);
    boolean answer(proc::o_del_tbookentry_1, const o_del_tbookentry_i&);

    // Recipient groups
    boolean answer(proc::o_put_tgroup_1, const o_put_tgroup_i&);
    o_tgroup answer(proc::o_get_tgroup_1, const o_get_tgroup_i&);
    o_get_tgroups_o answer(proc::o_get_tgroups_1, const o_get_tgroups_i&);
    o_get_tgroupsb_o answer(proc::o_get_tgroupsb_1, const o_get_tgroupsb_i&);
    boolean answer(proc::o_del_tgroup_1, const o_del_tgroup_i&);
    boolean answer(proc::o_put_tgroupentry_1, const o_put_tgroupentry_i&);
    o_get_tgroupl_o answer(proc::o_get_tgroupl_1, const o_get_tgroupl_i&);
    o_get_tgrouplb_o answer(proc::o_get_tgrouplb_1, const o_get_tgrouplb_i&);
    boolean answer(proc::o_del_tgroupentry_1, const o_del_tgroupentry_i&);

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
