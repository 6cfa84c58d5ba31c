// SPDX-License-Identifier: MIT
#include "sending/group_members.h"

#include <zerdix/book_entry.h>

namespace zerdix::sending {

namespace {

std::string text_of(const str10& field) {
    return std::string{field.view()};
}

} // namespace

group_end read_group(TELEBOOK& books, const std::string& id, const member_taker& take) {
    const o_tgroup* group = books.getTGroup(id.c_str());
    if (group == nullptr)
        return group_end::no_group;
    if (group->groupid.empty())
        return group_end::unknown;
    PTRLIST* members = books.getTGroupEntries(text_of(group->groupid).c_str(), 1);
    if (members == nullptr)
        return group_end::no_members;
    for (std::uint32_t i = 0; i < members->getSize(); ++i) {
        const auto& member = *static_cast<const o_tgroupl*>((*members)[i]);
        const std::string book = text_of(member.tbookid);
        take(member, books.getTBookEntry(book.c_str(), text_of(member.teleid).c_str(), 1));
    }
    return group_end::read;
}

std::string receiver_string(const str10& book, const str10& entry) {
    return book_entry{text_of(book), text_of(entry)}.text();
}

bool is_missing(const o_tebul* entry) {
    return entry == nullptr || entry->tbookid.empty();
}

} // namespace zerdix::sending
