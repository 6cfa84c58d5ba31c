// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/document_records.h"

namespace zerdix::alphad {

std::optional<document> answers::own(const str10& user, topftype pool, std::int32_t id) const {
    std::optional<document> found = store_.documents.find(id);
    if (!found || found->pool != pool)
        return std::nullopt;
    if (user == std::string_view{found->owner} || user == administrator)
        return found;
    return std::nullopt;
}

std::optional<document> answers::readable(const str10& user, topftype pool, std::int32_t id) const {
    if (auto mine = own(user, pool, id))
        return mine;
    std::optional<document> found = store_.documents.find(id);
    if (!found || found->pool != pool || pool != TOPF_P || !found->is_public)
        return std::nullopt;
    return found;
}

std::int32_t answers::answer(proc::a_create_doc_1, const str10& user) {
    if (!store_.users.knows(user.view()))
        return 0;
    return store_.documents.create(TOPF_P, user.view());
}

// The target, always on a desk, takes the source's pages and title; its log stays its own.
boolean answers::answer(proc::a_copy_doc_1, const a_copy_doc_i& in) {
    const auto source = readable(in.userid, in.pool, in.sourceid);
    const auto target = own(in.userid, TOPF_P, in.targetid);
    if (!source || !target || source->id == target->id)
        return yes(false);
    store_.pages.copy_all(source->id, target->id);
    store_.documents.set_comment(target->id, source->comment);
    return yes(true);
}

// A document that was only made to be printed is removed by any user: who gave a print up knows its
// id, and nobody else has it in a list.
boolean answers::answer(proc::a_del_doc_1, const a_del_doc_i& in) {
    const auto found = store_.documents.find(in.faxid);
    const bool print_leftover = found && found->pool == in.pool && found->owner == print_user &&
                                store_.users.knows(in.userid.view());
    if (!print_leftover && !own(in.userid, in.pool, in.faxid))
        return yes(false);
    store_.documents.remove(in.faxid);
    return yes(true);
}

// To a user of this server alone: the first target name is the user's, the second one isn't used.
boolean answers::answer(proc::a_forward_doc_1, const a_forward_doc_i& in) {
    const auto source = readable(in.userid, in.pool, in.faxid);
    const bool local = store_.configuration.is_here(in.targetalpha.view());
    const bool pool_fits = in.targetpool == TOPF_E || in.targetpool == TOPF_P;
    if (!source || !local || !pool_fits || !store_.users.knows(in.targetone.view()))
        return yes(false);
    const std::int32_t copy =
        store_.documents.create(in.targetpool, in.targetone.view(), source->comment);
    store_.pages.copy_all(source->id, copy);
    store_.logs.copy(source->id, copy);
    document origin = *source;
    origin.forwarder = in.userid.view();
    store_.documents.set_origin(copy, origin);
    store_.documents.set_bif(copy, true);
    return yes(true);
}

boolean answers::answer(proc::a_put_comment_1, const a_put_comment_i& in) {
    if (!own(in.userid, in.pool, in.faxid))
        return yes(false);
    store_.documents.set_comment(in.faxid, in.comment.view());
    if (auto job = store_.jobs.find(in.faxid)) { // the list of outgoing documents shows its title
        job->record.comment.assign(in.comment.view());
        store_.jobs.put(*job);
    }
    return yes(true);
}

boolean answers::answer(proc::a_set_public_1, const a_set_public_i& in) {
    if (!own(in.userid, TOPF_P, in.faxid))
        return yes(false);
    store_.documents.set_public(in.faxid, in.ispublic);
    return yes(true);
}

boolean answers::answer(proc::a_set_bif_1, const a_set_bif_i& in) {
    if (!own(in.userid, in.pool, in.faxid))
        return yes(false);
    store_.documents.set_bif(in.faxid, in.flag);
    return yes(true);
}

boolean answers::answer(proc::a_is_bif_1, const a_is_bif_i& in) {
    return yes(store_.documents.any_bif(in.pool, in.userid.view()));
}

a_e_rec answers::answer(proc::a_get_e_1, const a_get_e_i& in) {
    const auto found = own(in.userid, TOPF_E, in.faxid);
    return found ? record_of<a_e_rec>(store_, *found) : a_e_rec{};
}

a_p_rec answers::answer(proc::a_get_p_1, const a_get_p_i& in) {
    const auto found = readable(in.userid, TOPF_P, in.faxid);
    return found ? record_of<a_p_rec>(store_, *found) : a_p_rec{};
}

a_s_rec answers::answer(proc::a_get_s_1, const a_get_s_i& in) {
    const auto found = own(in.userid, TOPF_S, in.faxid);
    return found ? record_of<a_s_rec>(store_, *found) : a_s_rec{};
}

} // namespace zerdix::alphad
