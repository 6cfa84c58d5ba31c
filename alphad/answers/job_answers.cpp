// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"

namespace zerdix::alphad {

std::int32_t answers::answer(proc::a_send_doc_1, const a_send_doc_i& in) {
    const auto desk = own(in.userid, TOPF_P, in.faxid);
    return desk ? sending_.send(in.userid, *desk, in.record) : 0;
}

boolean answers::answer(proc::a_chg_s_rec_1, const a_chg_s_rec_i& in) {
    if (!own(in.userid, TOPF_S, in.faxid))
        return yes(false);
    return yes(sending_.change(in));
}

boolean answers::answer(proc::a_cancel_job_1, const a_cancel_job_i& in) {
    return yes(own(in.userid, TOPF_S, in.faxid) && sending_.cancel(in.faxid));
}

boolean answers::answer(proc::a_restart_job_1, const a_restart_job_i& in) {
    return yes(own(in.userid, TOPF_S, in.faxid) && sending_.restart(in.faxid));
}

boolean answers::answer(proc::a_print_doc_1, const a_print_doc_i& in) {
    const auto found = readable(in.userid, in.pool, in.faxid);
    return yes(found && sending_.print(*found, in));
}

} // namespace zerdix::alphad
