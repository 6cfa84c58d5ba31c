#include "alphad/answers/document_records.h"

namespace zerdix::alphad {

namespace {

// In e_value4 and p_value3.
constexpr std::int32_t new_bit = 1;

} // namespace

template <>
a_e_rec record_of(const store&, const document& from) {
    a_e_rec out{};
    out.faxid = from.id;
    out.userid.assign(from.owner);
    out.e_value1 = static_cast<std::int32_t>(from.created);
    out.e_value2 = from.pages;
    out.e_value3 = from.nettype;
    out.e_text1.assign(from.comment);
    out.e_text2.assign(from.tsi);
    out.e_value4 = from.bif ? new_bit : 0;
    out.e_value5 = from.error;
    out.e_text3.assign(from.forwarder);
    out.e_text4.assign(from.number);
    return out;
}

template <>
a_p_rec record_of(const store&, const document& from) {
    a_p_rec out{};
    out.faxid = from.id;
    out.userid.assign(from.owner);
    out.p_flag = from.is_public;
    out.p_value1 = static_cast<std::int32_t>(from.created);
    out.p_value2 = from.pages;
    out.p_text.assign(from.comment);
    out.p_value3 = from.bif ? new_bit : 0;
    return out;
}

template <>
a_s_rec record_of(const store& store, const document& from) {
    if (const auto job = store.jobs.find(from.id))
        return job->record;
    a_s_rec out{};
    out.faxid = from.id;
    out.userid.assign(from.owner);
    out.pages = from.pages;
    out.comment.assign(from.comment);
    return out;
}

} // namespace zerdix::alphad
