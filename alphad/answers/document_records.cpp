// SPDX-License-Identifier: MIT
#include "alphad/answers/document_records.h"

#include <zerdix/values.h>

namespace zerdix::alphad {

namespace {

// What records of incoming documents and of the desk's have in common.
template <class Record>
Record begun(const document& from) {
    Record out{};
    out.faxid = from.id;
    out.userid.assign(from.owner);
    set_page_count(out, from.pages);
    set_title(out, from.comment);
    set_new(out, from.bif);
    return out;
}

} // namespace

template <>
a_e_rec record_of(const store&, const document& from) {
    auto out = begun<a_e_rec>(from);
    set_received_at(out, static_cast<std::int32_t>(from.created));
    set_net_type(out, from.nettype);
    set_sender_station(out, from.tsi);
    set_sender_number(out, from.number);
    set_forwarded_by(out, from.forwarder);
    set_error_status(out, from.error);
    return out;
}

template <>
a_p_rec record_of(const store&, const document& from) {
    auto out = begun<a_p_rec>(from);
    set_created_at(out, static_cast<std::int32_t>(from.created));
    set_public(out, from.is_public);
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
