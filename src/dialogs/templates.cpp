// SPDX-License-Identifier: MIT
#include "dialogs/templates.h"

#include <algorithm>
#include <array>

#include "dialogs/application.h"

namespace zerdix::dialogs {

namespace {

using forms::control_kind;
using forms::control_style;
using forms::control_template;
using forms::dialog_template;

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
    {2327, control_kind::edit, {typed_frame, 0, 0}, name_only},
    {2333, control_kind::push_button, {typed_frame, 0, 1}},
    {2385, control_kind::label, {typed_frame, 1, 0, 1, 2}, hidden},
    {side_frame, control_kind::frame, {recipient_frame, 1, 0}},
    {2324, control_kind::radio_button, {side_frame, 0, 0}, radio(1)},
    {2326, control_kind::radio_button, {side_frame, 0, 1}, radio(1)},
    {2305, control_kind::frame, {recipient_frame, 2, 0, 1, 2}, hidden},
    {2329, control_kind::label, {2305, 0, 0}, hidden},
    {2310, control_kind::combo_box, {2305, 0, 1}, hidden_name_only},
    {2331, control_kind::tree_list, {2305, 1, 0, 1, 2}, hidden_name_only},
    {2330, control_kind::frame, {recipient_frame, 2, 0, 1, 2}, hidden},
    {2304, control_kind::tree_list, {2330, 0, 0}, hidden_name_only},
    {picks_frame, control_kind::frame, {recipient_frame, 3, 0, 1, 2}},
    {2348, control_kind::edit, {picks_frame, 0, 0}, lines},
    {2347, control_kind::push_button, {picks_frame, 0, 1}},
    {option_frame, control_kind::frame, {0, 1, 0}},
    {net_frame, control_kind::frame, {option_frame, 0, 0}},
    {2325, control_kind::radio_button, {net_frame, 0, 0}, radio(2)},
    {2328, control_kind::radio_button, {net_frame, 1, 0}, radio(2)},
    {2350, control_kind::check_box, {net_frame, 2, 0}},
    {resolution_frame, control_kind::frame, {option_frame, 0, 1}},
    {2313, control_kind::radio_button, {resolution_frame, 0, 0}, radio(3)},
    {2315, control_kind::radio_button, {resolution_frame, 1, 0}, radio(3)},
    {2314, control_kind::radio_button, {resolution_frame, 2, 0}, radio(3)},
    {tariff_frame, control_kind::frame, {option_frame, 0, 2}},
    {2307, control_kind::radio_button, {tariff_frame, 0, 0}, radio(4)},
    {2308, control_kind::radio_button, {tariff_frame, 1, 0}, radio(4)},
    {time_frame, control_kind::frame, {option_frame, 0, 3}},
    {2332, control_kind::edit, {time_frame, 0, 0}},
    {2311, control_kind::edit, {time_frame, 1, 0}},
    {2319, control_kind::edit, {time_frame, 2, 0}},
    {2317, control_kind::edit, {0, 2, 0}},
    {button_frame, control_kind::frame, {0, 0, 1, 3, 1}},
    {2301, control_kind::push_button, {button_frame, 0, 0}},
    {2302, control_kind::push_button, {button_frame, 1, 0}},
    {2321, control_kind::push_button, {button_frame, 2, 0}, hidden},
    {2303, control_kind::push_button, {button_frame, 3, 0}, greyed},
    {2322, control_kind::push_button, {button_frame, 4, 0}, greyed},
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
            .default_button = 2301,
            .cancel_button = 2302,
            .entry_edit = 2327,
            .entry_button = 2333,
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
