// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/heap_result.h"
#include "alphad/store/log_text.h"

namespace zerdix::alphad {

namespace {

// Longer lines are cut before they are kept.
constexpr std::size_t longest_line = 1000;
// What fits into a line of an answer, beside its NUL.
constexpr std::size_t answer_line = 100;
constexpr std::int32_t most_lines = 1000;

} // namespace

boolean answers::answer(proc::a_put_log_1, const a_put_log_i& in) {
    if (!own(in.userid, in.pool, in.faxid))
        return {0};
    std::string_view line{reinterpret_cast<const char*>(in.data.data), in.data.length};
    line = line.substr(0, line.find('\0')).substr(0, longest_line);
    store_.logs.add(in.faxid, line);
    return {1};
}

// There is more as long as a line comes; the client asks until none does.
a_get_logl_o answers::answer(proc::a_get_logl_1, const a_get_logl_i& in) {
    a_get_logl_o out{};
    out.position = in.position;
    if (in.position < 0 || !readable(in.userid, in.pool, in.faxid))
        return out;
    const log_language language = language_of(in.language.view());
    chain<a_log_line> lines;
    for (const std::string& line :
         store_.logs.lines(in.faxid, in.position, std::min(in.lines, most_lines))) {
        const std::string text = in_words(line, language).substr(0, answer_line);
        std::memcpy(lines.append().line.bytes, text.data(), text.size());
    }
    out.more = lines.count() > 0;
    out.position = in.position + lines.count();
    out.first = lines.take();
    return out;
}

std::string answers::log_text(const str10& user, topftype pool, std::int32_t id) const {
    std::string text;
    if (readable(user, pool, id))
        for (const std::string& line : store_.logs.all(id))
            text += line + "\r\n";
    return text;
}

bytes answers::answer(proc::a_get_log_1, const a_get_log_i& in) {
    return heap_bytes(log_text(in.userid, in.pool, in.faxid));
}

a_get_logb_o answers::answer(proc::a_get_logb_1, const a_get_logb_i& in) {
    a_get_logb_o out{};
    const std::string text = log_text(in.userid, in.pool, in.faxid);
    if (in.length == 0) {
        out.size = static_cast<std::int32_t>(text.size());
        out.log_flag = out.size > 0;
        return out;
    }
    const auto offset = static_cast<std::size_t>(std::max(in.offset, 0));
    if (in.offset < 0 || in.length < 0 || offset >= text.size())
        return out;
    const std::string part = text.substr(offset, static_cast<std::size_t>(in.length));
    out.size = static_cast<std::int32_t>(part.size());
    out.log_flag = true;
    out.data = heap_bytes(part);
    return out;
}

} // namespace zerdix::alphad
