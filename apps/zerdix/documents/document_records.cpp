// SPDX-License-Identifier: MIT
#include "documents/document_records.h"

#include <initializer_list>

#include "output/value_text.h"
#include <zerdix/values.h>

namespace zerdix::app {

namespace {

json time_or_null(std::int32_t seconds) {
    return seconds != 0 ? json(iso_time(seconds)) : json();
}

const char* net_word(int net_type) {
    return net_type == NETTYPE_TELEX ? "telex" : "fax";
}

void add_word(std::string& state, const std::string& word) {
    state += (state.empty() ? "" : ", ") + word;
}

std::string error_words(int status) {
    return "error " + std::to_string(status);
}

std::string state_of(const a_e_rec& in) {
    std::string state = is_new(in) ? "new" : "read";
    if (error_status(in) != 0)
        add_word(state, error_words(error_status(in)));
    return state;
}

std::string state_of(const a_p_rec& desk) {
    std::string state;
    if (is_new(desk))
        add_word(state, "new");
    if (is_public(desk))
        add_word(state, "public");
    return state;
}

std::string waiting_words(const a_s_rec& out) {
    if (out.sendtime != 0 && out.nighttariff)
        return "waits for its time and the night";
    if (out.nighttariff)
        return "waits for the night";
    return out.sendtime != 0 ? "waits for its time" : "waits";
}

std::string state_of(const a_s_rec& out) {
    std::string state;
    if (out.status == send_waiting)
        add_word(state, waiting_words(out));
    else if (out.status == send_spooled)
        add_word(state, "spooled");
    else if (out.status == send_cancelled)
        add_word(state, "cancelled");
    else
        add_word(state, "state " + std::to_string(out.status));
    if (out.errorstatus != 0)
        add_word(state, error_words(out.errorstatus));
    return state;
}

json first_of(const json& object, std::initializer_list<const char*> keys) {
    for (const char* key : keys) {
        if (!object[key].as_text().empty())
            return object[key];
    }
    return {};
}

} // namespace

json as_json(const a_e_rec& in) {
    return {{"pool", pool_word(TOPF_E)},
            {"id", in.faxid},
            {"title", shown(title(in))},
            {"pages", page_count(in)},
            {"received", time_or_null(received_at(in))},
            {"state", state_of(in)},
            {"new", is_new(in)},
            {"error", error_status(in)},
            {"kind", net_word(net_type(in))},
            {"station", shown(sender_station(in))},
            {"number", shown(sender_number(in))},
            {"forwarded_by", shown(forwarded_by(in))},
            {"owner", shown(in.userid)}};
}

json as_json(const a_s_rec& out) {
    return {{"pool", pool_word(TOPF_S)},
            {"id", out.faxid},
            {"title", shown(out.comment)},
            {"pages", out.pages},
            {"send_at", time_or_null(out.sendtime)},
            {"night", static_cast<bool>(out.nighttariff)},
            {"state", state_of(out)},
            {"error", out.errorstatus},
            {"kind", net_word(out.nettype)},
            {"receiver", shown(out.phone)},
            {"station", shown(out.tsi)},
            {"priority", user_priority(out.priority)},
            {"retries", out.retries},
            {"retries_allowed", out.maxretries},
            {"resolution", resolution_word(out.resolution)},
            {"owner", shown(out.userid)}};
}

json as_json(const a_p_rec& desk) {
    return {{"pool", pool_word(TOPF_P)},
            {"id", desk.faxid},
            {"title", shown(title(desk))},
            {"pages", page_count(desk)},
            {"created", time_or_null(created_at(desk))},
            {"state", state_of(desk)},
            {"new", is_new(desk)},
            {"public", is_public(desk)},
            {"owner", shown(desk.userid)}};
}

std::vector<column> list_columns(topftype pool) {
    if (pool == TOPF_E)
        return {
            {"id", "Id"},       {"title", "Title"},  {"pages", "Pages"},  {"received", "Received"},
            {"state", "State"}, {"station", "From"}, {"number", "Number"}};
    if (pool == TOPF_S)
        return {{"id", "Id"},           {"title", "Title"},     {"pages", "Pages"},
                {"state", "State"},     {"send_at", "Send at"}, {"receiver", "Receiver"},
                {"station", "Station"}, {"retries", "Retries"}};
    return {{"id", "Id"},           {"title", "Title"}, {"pages", "Pages"},
            {"created", "Created"}, {"owner", "Owner"}, {"state", "State"}};
}

std::vector<column> property_columns(topftype pool) {
    std::vector<column> all = {{"pool", "Pool"},
                               {"id", "Document"},
                               {"title", "Title"},
                               {"owner", "Owner"},
                               {"state", "State"}};
    std::vector<column> own = {{"created", "Created"}};
    if (pool == TOPF_E)
        own = {{"kind", "Kind"},
               {"received", "Received"},
               {"station", "From station"},
               {"number", "Number"},
               {"forwarded_by", "Forwarded by"}};
    if (pool == TOPF_S)
        own = {{"kind", "Kind"},
               {"send_at", "Send at"},
               {"night", "Night tariff"},
               {"receiver", "Receiver"},
               {"station", "Station"},
               {"priority", "Priority"},
               {"retries", "Retries"},
               {"retries_allowed", "Retries allowed"},
               {"resolution", "Resolution"}};
    all.insert(all.end(), own.begin(), own.end());
    all.push_back({"pages", "Pages"});
    return all;
}

json with_shared_names(json document) {
    document["time"] = first_of(document, {"received", "created", "send_at"});
    document["party"] = first_of(document, {"receiver", "station", "number"});
    return document;
}

std::vector<column> shared_columns() {
    return {{"pool", "Pool"}, {"id", "Id"},       {"title", "Title"},     {"pages", "Pages"},
            {"time", "Time"}, {"state", "State"}, {"party", "From or to"}};
}

const char* resolution_word(std::int32_t resolution) {
    if (resolution == JOURNAL::clssetPCTFine())
        return "fine";
    return resolution == JOURNAL::clssetPCTNormal() ? "normal" : "as-is";
}

std::int32_t resolution_of_word(const std::string& word) {
    if (word == "fine")
        return JOURNAL::clssetPCTFine();
    return word == "normal" ? JOURNAL::clssetPCTNormal() : JOURNAL::clssetPCTAsIs();
}

} // namespace zerdix::app
