// SPDX-License-Identifier: MIT
#include "dialogs/templates.h"

#include <algorithm>
#include <array>

#include "dialogs/application.h"
#include "dialogs/send_controls.h"

namespace zerdix::dialogs {

namespace {

using forms::control_kind;
using forms::control_style;
using forms::control_template;
using forms::dialog_template;
using enum send::send_control;

constexpr control_style hidden{.visible = false};
constexpr control_style greyed{.enabled = false};
constexpr control_style name_only{.captioned = false};
constexpr control_style hidden_name_only{.visible = false, .captioned = false};
constexpr control_style lines{.multiline = true};

constexpr control_style radio(int group) {
    return {.radio_group = group};
}

// Frames of our own, which hold what belongs together. One without a caption has no border.
enum send_frame : std::int32_t {
    tariff_frame = 2340,
    resolution_frame,
    time_frame,
    net_frame,
    recipient_frame,
    option_frame = 2380,
    typed_frame,
    side_frame,
    picks_frame,
    button_frame,
};

constexpr auto send_controls = std::to_array<control_template>({
    {recipient_frame, control_kind::frame, {0, 0, 0}},
    {typed_frame, control_kind::frame, {recipient_frame, 0, 0, 1, 2}},
    {typed_recipient, control_kind::edit, {typed_frame, 0, 0}, name_only},
    {add_button, control_kind::push_button, {typed_frame, 0, 1}},
    {unconfirmed_note, control_kind::label, {typed_frame, 1, 0, 1, 2}, hidden},
    {side_frame, control_kind::frame, {recipient_frame, 1, 0}},
    {recipient_side, control_kind::radio_button, {side_frame, 0, 0}, radio(1)},
    {group_side, control_kind::radio_button, {side_frame, 0, 1}, radio(1)},
    {book_frame, control_kind::frame, {recipient_frame, 2, 0, 1, 2}, hidden},
    {book_label, control_kind::label, {book_frame, 0, 0}, hidden},
    {book_choice, control_kind::combo_box, {book_frame, 0, 1}, hidden_name_only},
    {entry_list, control_kind::tree_list, {book_frame, 1, 0, 1, 2}, hidden_name_only},
    {group_frame, control_kind::frame, {recipient_frame, 2, 0, 1, 2}, hidden},
    {group_list, control_kind::tree_list, {group_frame, 0, 0}, hidden_name_only},
    {picks_frame, control_kind::frame, {recipient_frame, 3, 0, 1, 2}},
    {all_picks, control_kind::edit, {picks_frame, 0, 0}, lines},
    {reset_button, control_kind::push_button, {picks_frame, 0, 1}},
    {option_frame, control_kind::frame, {0, 1, 0}},
    {net_frame, control_kind::frame, {option_frame, 0, 0}},
    {fax, control_kind::radio_button, {net_frame, 0, 0}, radio(2)},
    {telex, control_kind::radio_button, {net_frame, 1, 0}, radio(2)},
    {cover_page, control_kind::check_box, {net_frame, 2, 0}},
    {resolution_frame, control_kind::frame, {option_frame, 0, 1}},
    {as_stored, control_kind::radio_button, {resolution_frame, 0, 0}, radio(3)},
    {fine_resolution, control_kind::radio_button, {resolution_frame, 1, 0}, radio(3)},
    {normal_resolution, control_kind::radio_button, {resolution_frame, 2, 0}, radio(3)},
    {tariff_frame, control_kind::frame, {option_frame, 0, 2}},
    {normal_tariff, control_kind::radio_button, {tariff_frame, 0, 0}, radio(4)},
    {night_tariff, control_kind::radio_button, {tariff_frame, 1, 0}, radio(4)},
    {time_frame, control_kind::frame, {option_frame, 0, 3}},
    {send_date, control_kind::edit, {time_frame, 0, 0}},
    {send_clock, control_kind::edit, {time_frame, 1, 0}},
    {retries, control_kind::edit, {time_frame, 2, 0}},
    {comment, control_kind::edit, {0, 2, 0}},
    {button_frame, control_kind::frame, {0, 0, 1, 3, 1}},
    {ok_button, control_kind::push_button, {button_frame, 0, 0}},
    {cancel_button, control_kind::push_button, {button_frame, 1, 0}},
    {desk_button, control_kind::push_button, {button_frame, 2, 0}, hidden},
    {new_button, control_kind::push_button, {button_frame, 3, 0}, greyed},
    {find_button, control_kind::push_button, {button_frame, 4, 0}, greyed},
    {2320, control_kind::push_button, {button_frame, 5, 0}, hidden},
});

constexpr auto entry_controls = std::to_array<control_template>({
    {1908, control_kind::edit, {0, 0, 0, 1, 2}},
    {1911, control_kind::edit, {0, 1, 0, 1, 2}},
    {1913, control_kind::edit, {0, 2, 0, 1, 2}},
    {1915, control_kind::edit, {0, 3, 0, 1, 2}},
    {1920, control_kind::frame, {0, 4, 0}},
    {1904, control_kind::radio_button, {1920, 0, 0}, radio(1)},
    {1903, control_kind::radio_button, {1920, 1, 0}, radio(1)},
    {1921, control_kind::frame, {0, 4, 1}},
    {1906, control_kind::radio_button, {1921, 0, 0}, radio(2)},
    {1905, control_kind::radio_button, {1921, 1, 0}, radio(2)},
    {1922, control_kind::frame, {0, 0, 2, 5, 1}},
    {1901, control_kind::push_button, {1922, 0, 0}},
    {1902, control_kind::push_button, {1922, 1, 0}},
});

constexpr auto user_controls = std::to_array<control_template>({
    {2453, control_kind::tree_list, {0, 0, 0}, name_only},
    {2454, control_kind::frame, {0, 0, 1}},
    {2451, control_kind::push_button, {2454, 0, 0}},
    {2452, control_kind::push_button, {2454, 1, 0}},
});

constexpr auto find_controls = std::to_array<control_template>({
    {1403, control_kind::edit, {0, 0, 0}, name_only},
    {1401, control_kind::push_button, {0, 0, 1}},
    {1402, control_kind::push_button, {0, 1, 1}},
});

constexpr auto wait_controls = std::to_array<control_template>({
    {9605, control_kind::label, {0, 0, 0}},
    {9607, control_kind::push_button, {0, 1, 0}},
});

constexpr auto print_controls = std::to_array<control_template>({
    {9601, control_kind::label, {0, 0, 0}},
    {9602, control_kind::label, {0, 1, 0}},
    {9603, control_kind::label, {0, 2, 0}},
    {9604, control_kind::label, {0, 3, 0}},
    {9605, control_kind::label, {0, 4, 0}},
    {9606, control_kind::label, {0, 5, 0}},
    {9607, control_kind::push_button, {0, 6, 0}},
});

constexpr auto notify_controls = std::to_array<control_template>({
    {9651, control_kind::label, {0, 0, 0}},
    {9652, control_kind::label, {0, 1, 0}},
    {1, control_kind::push_button, {0, 2, 0}},
});

constexpr auto font_menu = std::to_array<forms::menu_command>({
    {choose_list_font, 40004},
    {choose_text_font, 40005},
});

constexpr dialog_template send_dialog(std::int32_t id, int list_rows, int text_percent) {
    return {.id = id,
            .captions_of = send_form,
            .controls = send_controls,
            .default_button = ok_button,
            .cancel_button = cancel_button,
            .entry_edit = typed_recipient,
            .entry_button = add_button,
            .list_rows = list_rows,
            .text_percent = text_percent,
            .list_characters = 9600 / text_percent,
            .list_menu = font_menu};
}

constexpr auto all = std::to_array<dialog_template>({
    {find_form, find_form, find_controls, 1401, 1402},
    {entry_form, entry_form, entry_controls, 1901, 1902},
    send_dialog(large_send_form, 18, 125),
    send_dialog(send_form, 8, 100),
    {user_form, user_form, user_controls, 2451, 2452},
    {wait_form, wait_form, wait_controls, 0, 9607},
    {print_form, print_form, print_controls, 0, 9607},
    {notify_form, notify_form, notify_controls, 1, 1},
});

} // namespace

std::span<const dialog_template> templates() {
    return all;
}

const dialog_template* find_template(std::int32_t id) {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [id](const dialog_template& one) { return one.id == id; });
    return found != all.end() ? &*found : nullptr;
}

} // namespace zerdix::dialogs
