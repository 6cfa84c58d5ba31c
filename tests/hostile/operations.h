// SPDX-License-Identifier: MIT
// Every operation of the three exported classes that reaches the server: how it is called, and what
// it has to give when the server answers soundly, when it refuses, and when a call fails.
#ifndef ZERDIX_TESTS_OPERATIONS_H
#define ZERDIX_TESTS_OPERATIONS_H

#include <functional>
#include <vector>

#include <zerdix/journal.h>
#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

namespace zerdix::testing {

// Objects without a past.
struct clients {
    ZERDIX session;
    JOURNAL journal;
    TELEBOOK books;
};

// Pointers count as 1, null as 0, a list as 1 more than it has elements.
struct operation {
    const char* name;
    std::function<std::int64_t(clients&)> run;
    std::int64_t good;
    // By the call in question, the first at index 0; the last value holds for all further ones.
    std::vector<std::int64_t> failed;
    std::vector<std::int64_t> refused;
    // When the call in question and all behind it fail; as `failed` where it is empty.
    std::vector<std::int64_t> lost = {};
};

std::vector<operation> session_operations();
std::vector<operation> journal_operations();
std::vector<operation> book_operations();

} // namespace zerdix::testing

#endif
