// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/heap_result.h"

namespace zerdix::alphad {

namespace {

std::string_view view(const bytes& field) {
    return {reinterpret_cast<const char*>(field.data), field.length};
}

// The stamp is the number of the newest message that a client has.
a_get_board_o messages_behind(const board& board, std::int32_t stamp, std::int16_t kind) {
    chain<a_board_entry> entries;
    for (const board_message& message : board.behind(stamp, kind)) {
        a_board_entry& entry = entries.append();
        entry.boardid = message.id;
        entry.text = message.text;
        set_posted_at(entry, message.time);
        stamp = message.number;
    }
    return {entries.take(), stamp};
}

} // namespace

bytes answers::answer(proc::a_get_sig_1, const str10& user) {
    return heap_bytes(store_.signatures.whole(user.view()));
}

boolean answers::answer(proc::a_put_sig_1, const a_put_sig_i& in) {
    if (!store_.users.knows(in.userid.view()))
        return yes(false);
    return yes(store_.signatures.put(in.userid.view(), view(in.data)));
}

a_get_sigb_o answers::answer(proc::a_get_sigb_1, const a_get_sigb_i& in) {
    const std::string whole = store_.signatures.whole(in.userid.view());
    a_get_sigb_o out{};
    out.sig_flag = !whole.empty();
    if (in.length == 0) {
        out.size = static_cast<std::int32_t>(whole.size());
        return out;
    }
    const auto offset = static_cast<std::size_t>(in.offset);
    if (in.offset < 0 || in.length < 0 || offset >= whole.size())
        return out;
    const auto part = std::string_view{whole}.substr(offset, static_cast<std::size_t>(in.length));
    out.size = static_cast<std::int32_t>(part.size());
    out.data = heap_bytes(part);
    return out;
}

boolean answers::answer(proc::a_put_sigb_1, const a_put_sigb_i& in) {
    if (in.length < 0 || static_cast<std::uint32_t>(in.length) != in.data.length ||
        !store_.users.knows(in.userid.view()))
        return yes(false);
    return yes(store_.signatures.put_block(in.userid.view(), in.offset, view(in.data)));
}

boolean answers::answer(proc::a_put_board_1, const a_put_board_i& in) {
    if (in.text.empty())
        return yes(false);
    store_.board.add(in.boardkind, in.boardid.view(), in.text.view());
    return yes(true);
}

a_get_board_o answers::answer(proc::a_get_board0_1, const std::int16_t& kind) {
    return messages_behind(store_.board, 0, kind);
}

a_get_board_o answers::answer(proc::a_get_board_1, const a_get_board_i& in) {
    return messages_behind(store_.board, in.stamp, in.boardkind);
}

} // namespace zerdix::alphad
