// SPDX-License-Identifier: MIT
// The controls of the send dialog, and the numbers of its messages.
#ifndef ZERDIX_DIALOGS_SEND_CONTROLS_H
#define ZERDIX_DIALOGS_SEND_CONTROLS_H

#include <cstdint>

#include <zerdix/values.h>

namespace zerdix::dialogs::send {

enum send_control : std::int32_t {
    ok_button = send_dialog_accepted,
    cancel_button = send_dialog_cancelled,
    new_button = 2303,
    group_list = 2304,
    book_frame = 2305,
    normal_tariff = 2307,
    night_tariff = 2308,
    book_choice = 2310,
    send_clock = 2311,
    as_stored = 2313,
    normal_resolution = 2314,
    fine_resolution = 2315,
    comment = 2317,
    retries = 2319,
    desk_button = 2321,
    find_button = 2322,
    recipient_side = 2324,
    fax = 2325,
    group_side = 2326,
    typed_recipient = 2327,
    telex = 2328,
    book_label = 2329,
    group_frame = 2330,
    entry_list = 2331,
    send_date = 2332,
    add_button = 2333,
    reset_button = 2347,
    all_picks = 2348,
    cover_page = 2350,
    unconfirmed_note = 2385, // beneath the typed recipient
};

// Most characters. A send record takes one less of the comment.
constexpr std::size_t date_limit = 8;
constexpr std::size_t comment_limit = 30;
constexpr std::size_t comment_taken = comment_limit - 1;
constexpr std::size_t receiver_limit = 30;
constexpr std::size_t picks_limit = 2000;

enum send_text : std::int32_t {
    fax_word = 1332,
    telex_word = 1336,
    intern_word = 1356,
    extern_word = 1357,
    several_comments = 1431,

    no_user_record = 1203,
    bad_send_time = 1265,
    no_recipient = 1267,
    input_missing = 1268,
    bad_retries = 1280,
    no_books = 1293,
    no_members = 1295,
    no_groups = 1296,
    no_entries = 1312,
    no_group = 1458,
    not_found = 1465,
};

} // namespace zerdix::dialogs::send

#endif
