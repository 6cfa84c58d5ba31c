#include "sendfax/receiver_group.h"

#include <string>

#include "sendfax/job.h"
#include "sendfax/receivers.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

std::string text_of(const str10& field) {
    return std::string{field.view()};
}

bool fits_net_type(const o_tebul& entry) {
    if (pa_s_rec->nettype == NETTYPE_FAX && entry.nettype != NETTYPE_FAX) {
        trace_lines.error("SetFaxMergeData: telebook book entry is not fax receiver");
        return false;
    }
    if (pa_s_rec->nettype == NETTYPE_TELEX && entry.nettype != NETTYPE_TELEX) {
        trace_lines.error("SetFaxMergeData: telebook book entry is not telex receiver");
        return false;
    }
    return true;
}

void add_member(TELEBOOK& books, const o_tgroupl& member) {
    const std::string book = text_of(member.tbookid);
    const std::string name = text_of(member.teleid);
    const o_tebul* entry = books.getTBookEntry(book.c_str(), name.c_str(), 1);
    if (entry == nullptr || entry->tbookid.empty()) {
        trace_lines.error("SetFaxMergeData: telebook book entry does not exist");
        return;
    }
    if (!fits_net_type(*entry))
        return;
    const std::string receiver = text_of(entry->tbookid) + ':' + text_of(entry->teleid);
    add_receiver(receiver);
    trace_lines.info("SetFaxMergeData: Receiver: %s", receiver.c_str());
}

} // namespace

bool add_receiver_group(TELEBOOK& books, const char* groupid) {
    const o_tgroup* group = books.getTGroup(groupid);
    if (group == nullptr) {
        trace_lines.error("SetFaxMergeData: (getTGroup) Problems with RPC connection");
        return false;
    }
    if (group->groupid.empty()) {
        trace_lines.error("SetFaxMergeData: : group <%s> doesn't exist on the server", groupid);
        return true;
    }
    PTRLIST* members = books.getTGroupEntries(text_of(group->groupid).c_str(), 1);
    if (members == nullptr) {
        trace_lines.error("SetFaxMergeData: (getTGroupEntries) Problems with RPC connection");
        return false;
    }
    for (std::uint32_t i = 0; i < members->getSize(); ++i)
        add_member(books, *static_cast<const o_tgroupl*>((*members)[i]));
    return true;
}

} // namespace zerdix::sendfax
