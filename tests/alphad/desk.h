// SPDX-License-Identifier: MIT
// A client at a server, and short forms of the calls that put documents and pages on a desk.
#ifndef ZERDIX_TESTS_ALPHAD_DESK_H
#define ZERDIX_TESTS_ALPHAD_DESK_H

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/raw_client.h"
#include "support/test_server.h"

namespace zerdix::test {

namespace proc = wire::proc;

inline bytes lent(std::string_view text) {
    return {static_cast<std::uint32_t>(text.size()),
            reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()))};
}

struct log_answer {
    bool more;
    std::int32_t position;
    std::vector<std::string> lines;
};

class desk_client : public raw_client {
  public:
    using raw_client::raw_client;

    // The login id and the status.
    a_get_login_o login(std::string_view user, std::string_view password) {
        return call(proc::a_get_login_1{}, {id(user), field<str20>(password)});
    }

    std::int32_t create(std::string_view user = "zerdix") {
        return call(proc::a_create_doc_1{}, id(user));
    }

    bool remove(std::int32_t document, std::string_view user = "zerdix") {
        return call(proc::a_del_doc_1{}, {id(user), TOPF_P, document, {1}});
    }

    bool put_block(std::int32_t document, std::int16_t page, std::int32_t offset,
                   std::string_view block, std::string_view user = "zerdix",
                   std::int16_t type = 0) {
        return call(proc::a_put_pageb_1{}, {id(user), document, page, type, offset,
                                            static_cast<std::int32_t>(block.size()), lent(block)});
    }

    std::int32_t page_size(std::int32_t document, std::int16_t page,
                           std::string_view user = "zerdix", topftype pool = TOPF_P) {
        return call(proc::a_get_pageb_1{}, {id(user), pool, document, page, 0, 0, 0}).size;
    }

    std::string page_part(std::int32_t document, std::int16_t page, std::int32_t offset,
                          std::int32_t length) {
        const auto& got =
            call(proc::a_get_pageb_1{}, {me, TOPF_P, document, page, 0, offset, length});
        EXPECT_EQ(got.size, static_cast<std::int32_t>(got.data.length));
        return {reinterpret_cast<const char*>(got.data.data), got.data.length};
    }

    // The masks of a document's pages.
    std::vector<std::int32_t> masks(std::int32_t document, std::string_view user = "zerdix") {
        const auto& info = call(proc::a_get_inf_1{}, {id(user), TOPF_P, document});
        return {info.pagemasks.begin(), info.pagemasks.begin() + info.pagecount};
    }

    bool put_log(std::int32_t document, std::string_view line, std::string_view user = "zerdix") {
        return call(proc::a_put_log_1{}, {id(user), TOPF_P, document, lent(line)});
    }

    log_answer get_log(std::int32_t document, std::int32_t position,
                       std::string_view language = "english_us", topftype pool = TOPF_P) {
        const auto& got =
            call(proc::a_get_logl_1{}, {me, pool, document, position, 80, field<str30>(language)});
        log_answer answer{got.more, got.position, {}};
        for (const a_log_line* node = got.first; node != nullptr; node = node->next)
            answer.lines.emplace_back(reinterpret_cast<const char*>(node->line.bytes));
        return answer;
    }

    // The number of the job, 0 when it is refused.
    std::int32_t send_fax(std::int32_t document, std::string_view receiver,
                          std::string_view user = "zerdix") {
        a_s_rec record{};
        record.nettype = NETTYPE_FAX;
        record.phone.assign(receiver);
        return call(proc::a_send_doc_1{}, {id(user), document, record});
    }

    const str10 me = id("zerdix");
};

// What a list's records say of themselves, in the list's order.
template <class List, class Name>
auto each_of(const List& list, Name name) {
    std::vector<decltype(name(*list.first))> found;
    for (const auto* node = list.first; node != nullptr; node = node->next)
        found.push_back(name(*node));
    EXPECT_EQ(list.count, static_cast<std::int32_t>(found.size()));
    return found;
}

// The name that a person looks for in the spool folder.
inline std::string spool_name(std::int32_t number, const std::string& receiver) {
    const std::string digits = std::to_string(number);
    return std::string(6 - digits.size(), '0') + digits + "-" + receiver + ".tif";
}

class started_server {
  protected:
    explicit started_server(bool demo_data) : server(demo_data) {}
    test_server server;
};

// Is the client itself.
class client_test : public ::testing::Test, protected started_server, protected desk_client {
  protected:
    explicit client_test(bool demo_data = true)
        : started_server(demo_data), desk_client(server.program()) {}
};

} // namespace zerdix::test

#endif
