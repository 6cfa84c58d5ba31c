// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/heap_result.h"
#include "alphad/sending/fax_page.h"

namespace zerdix::alphad {

namespace {

// The most bytes of one answer, whatever was asked for.
constexpr std::int32_t most_block = 1 << 20;

std::string_view view(const bytes& field) {
    return {reinterpret_cast<const char*>(field.data), field.length};
}

// Of other types nothing is known.
bool is_refused(const pages& pages, picture_place place, std::int32_t offset,
                std::string_view block) {
    if (place.type != picture_page)
        return false;
    if (offset == 0 && !may_become_picture(block))
        return true;
    const auto whole = pages.ended_by(place, offset, block);
    return whole && !is_picture(*whole);
}

} // namespace

a_get_inf_o answers::answer(proc::a_get_inf_1, const a_get_inf_i& in) {
    a_get_inf_o out{};
    if (!readable(in.userid, in.pool, in.faxid))
        return out;
    const auto masks = store_.pages.masks(in.faxid);
    out.pagecount = static_cast<std::int32_t>(masks.size());
    std::copy(masks.begin(), masks.end(), out.pagemasks.begin());
    return out;
}

a_get_pageb_o answers::answer(proc::a_get_pageb_1, const a_get_pageb_i& in) {
    a_get_pageb_o out{};
    if (!readable(in.userid, in.pool, in.faxid))
        return out;
    const picture_place place{in.faxid, in.page, in.picturetype};
    if (in.length == 0) {
        out.size = store_.pages.picture_size(place);
        out.page_flag = out.size > 0;
        return out;
    }
    const std::string part =
        store_.pages.picture_part(place, in.offset, std::min(in.length, most_block));
    out.size = static_cast<std::int32_t>(part.size());
    out.page_flag = !part.empty();
    out.data = heap_bytes(part);
    return out;
}

boolean answers::answer(proc::a_put_pageb_1, const a_put_pageb_i& in) {
    if (in.length < 0 || static_cast<std::uint32_t>(in.length) != in.data.length ||
        !own(in.userid, TOPF_P, in.faxid))
        return yes(false);
    const picture_place place{in.faxid, in.page, in.picturetype};
    return yes(!is_refused(store_.pages, place, in.offset, view(in.data)) &&
               store_.pages.put_block(place, in.offset, view(in.data)));
}

// The older forms, a page in one piece.
boolean answers::answer(proc::a_put_page_1, const a_put_page_i& in) {
    return yes(own(in.userid, TOPF_P, in.faxid) &&
               (in.picturetype != picture_page || is_picture(view(in.data))) &&
               store_.pages.put_block({in.faxid, in.page, in.picturetype}, 0, view(in.data)));
}

bytes answers::answer(proc::a_get_page_1, const a_get_page_i& in) {
    if (!readable(in.userid, in.pool, in.faxid))
        return {0, nullptr};
    return heap_bytes(store_.pages.picture({in.faxid, in.page, in.picturetype}).value_or(""));
}

boolean answers::answer(proc::a_insert_page_1, const a_insert_page_i& in) {
    return yes(own(in.userid, TOPF_P, in.faxid) && store_.pages.insert(in.faxid, in.page));
}

boolean answers::answer(proc::a_del_page_1, const a_del_page_i& in) {
    return yes(own(in.userid, TOPF_P, in.faxid) && store_.pages.remove(in.faxid, in.page));
}

boolean answers::answer(proc::a_copy_page_1, const a_copy_page_i& in) {
    return yes(readable(in.userid, in.pool, in.sourceid) && own(in.userid, TOPF_P, in.targetid) &&
               store_.pages.copy(in.sourceid, in.sourcepage, in.targetid, in.targetpage));
}

} // namespace zerdix::alphad
