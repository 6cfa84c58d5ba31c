#include "alphad/answers.h"

namespace zerdix::alphad {

namespace {

boolean yes(bool value) {
    return {value ? 1 : 0};
}

} // namespace

std::optional<document> answers::own(const str10& user, topftype pool, std::int32_t id) const {
    std::optional<document> found = store_.documents.find(id);
    if (!found || found->pool != pool)
        return std::nullopt;
    if (user == std::string_view{found->owner} || user == admin_user)
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
    if (!store_.directory.knows(user.view()))
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

boolean answers::answer(proc::a_del_doc_1, const a_del_doc_i& in) {
    if (!own(in.userid, in.pool, in.faxid))
        return yes(false);
    store_.documents.remove(in.faxid);
    return yes(true);
}

// To a user of this server alone: the first target name is the user's, the second one isn't used.
boolean answers::answer(proc::a_forward_doc_1, const a_forward_doc_i& in) {
    const auto source = readable(in.userid, in.pool, in.faxid);
    const bool local = in.targetalpha.empty() ||
                       in.targetalpha == std::string_view{store_.directory.config("ALPHAID")};
    const bool pool_fits = in.targetpool == TOPF_E || in.targetpool == TOPF_P;
    if (!source || !local || !pool_fits || !store_.directory.knows(in.targetone.view()))
        return yes(false);
    const std::int32_t copy =
        store_.documents.create(in.targetpool, in.targetone.view(), source->comment);
    store_.pages.copy_all(source->id, copy);
    store_.logs.copy(source->id, copy);
    store_.documents.set_bif(copy, true);
    return yes(true);
}

boolean answers::answer(proc::a_put_comment_1, const a_put_comment_i& in) {
    if (!own(in.userid, in.pool, in.faxid))
        return yes(false);
    store_.documents.set_comment(in.faxid, in.comment.view());
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
    a_e_rec out{};
    const auto found = own(in.userid, TOPF_E, in.faxid);
    if (!found)
        return out;
    out.faxid = found->id;
    out.userid.assign(found->owner);
    out.e_value1 = static_cast<std::int32_t>(found->created);
    out.e_value2 = found->pages;
    out.e_text1.assign(found->comment);
    return out;
}

a_p_rec answers::answer(proc::a_get_p_1, const a_get_p_i& in) {
    a_p_rec out{};
    const auto found = readable(in.userid, TOPF_P, in.faxid);
    if (!found)
        return out;
    out.faxid = found->id;
    out.userid.assign(found->owner);
    out.p_flag = found->is_public;
    out.p_value1 = static_cast<std::int32_t>(found->created);
    out.p_value2 = found->pages;
    out.p_text.assign(found->comment);
    return out;
}

a_s_rec answers::answer(proc::a_get_s_1, const a_get_s_i& in) {
    if (!own(in.userid, TOPF_S, in.faxid))
        return {};
    const auto job = store_.jobs.find(in.faxid);
    return job ? job->record : a_s_rec{};
}

} // namespace zerdix::alphad
