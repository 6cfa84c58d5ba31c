// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/heap_result.h"

namespace zerdix::alphad {

std::int32_t answers::answer(proc::a_query_ext_1, const o_query_ext_i& in) {
    const auto book = store_.phone_books.book(in.tbookid);
    if (!book || !is_external(*book) || !rights_.may(in.userid, right_read, *book))
        return 0;
    return external_.query(in.params);
}

a_fetch_result_o answers::answer(proc::a_fetch_result_1, const std::int32_t& query) {
    a_fetch_result_o out{};
    const auto rows = external_.fetch(query);
    out.fetchstate = rows ? fetch_finished : fetch_unknown;
    chain<a_log_line> lines;
    if (rows)
        for (const std::string& row : *rows)
            row.copy(reinterpret_cast<char*>(lines.append().line.bytes),
                     sizeof(a_log_line::line) - 1);
    out.first = lines.take();
    return out;
}

} // namespace zerdix::alphad
