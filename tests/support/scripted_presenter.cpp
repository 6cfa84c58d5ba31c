// SPDX-License-Identifier: MIT
#include "support/scripted_presenter.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <gtest/gtest.h>

namespace zerdix::test {

using forms::control_kind;
using forms::dialog_view;
using forms::window_handle;

void scripted_list::bring_into_view(std::int32_t row) {
    if (row < first || row >= first + rows)
        first = row;
}

bool scripted_list::in_view(std::int32_t row, forms::row_rectangle& place) {
    if (row < first || row >= first + rows)
        return false;
    constexpr std::int32_t height = 16;
    place = {0, (row - first) * height, width, (row - first + 1) * height};
    return true;
}

std::int32_t scripted_list::column_width(std::int32_t column) {
    const auto found = dragged_.find(column);
    return found != dragged_.end() ? found->second
                                   : list_.columns[static_cast<std::size_t>(column)].width;
}

std::size_t scripted_presenter::left_over() const {
    std::size_t count = 0;
    for (const auto& [id, queue] : scripts_)
        count += queue.size();
    return count;
}

window_handle scripted_presenter::foreign_window(std::string name, bool enabled) {
    auto& made = windows_.emplace_back(std::make_unique<own_window>());
    made->name = std::move(name);
    made->enabled = enabled;
    return made.get();
}

dialog_view* scripted_presenter::open(std::int32_t template_id) {
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(), [&](const auto& one) {
        return one->dialog != nullptr && one->dialog->form()->id == template_id;
    });
    return found != windows_.rend() ? (*found)->dialog : nullptr;
}

void scripted_presenter::scroll(dialog_view& dialog, std::int32_t id, std::int32_t first) {
    list(dialog, id).first = first;
    dialog.user_scrolls(id);
}

scripted_presenter::own_window* scripted_presenter::find(window_handle handle) {
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const auto& one) { return one.get() == handle; });
    return found != windows_.end() ? found->get() : nullptr;
}

std::string scripted_presenter::name(window_handle handle) {
    if (handle == nullptr)
        return "-";
    const own_window* one = find(handle);
    return one != nullptr ? one->name : "unknown window";
}

window_handle scripted_presenter::create(dialog_view& dialog, window_handle owner) {
    const std::int32_t id = dialog.form()->id;
    if (cannot_create.count(id) != 0)
        return nullptr;
    auto& made = windows_.emplace_back(std::make_unique<own_window>());
    made->name = std::to_string(id);
    made->dialog = &dialog;
    for (auto& one : dialog.controls()) {
        if (one.list == nullptr)
            continue;
        auto& shown = made->lists[one.id()];
        shown = std::make_unique<scripted_list>(*one.list);
        one.list->view = shown.get();
    }
    note(made.get(), "created over " + name(owner));
    return made.get();
}

void scripted_presenter::destroy(window_handle handle) {
    note(handle, "destroyed");
    std::erase_if(posted_, [&](const posted& one) { return one.window == handle; });
    if (active == handle)
        active = nullptr;
    std::erase_if(windows_, [&](const auto& one) { return one.get() == handle; });
}

std::deque<scripted_presenter::step> scripted_presenter::take_script(const dialog_view& dialog) {
    auto& waiting = scripts_[dialog.form()->id];
    if (waiting.empty())
        return {};
    const std::vector<step> steps = std::move(waiting.front());
    waiting.pop_front();
    return {steps.begin(), steps.end()};
}

// To each window in turn; a handler that runs here may open a dialog, whose loop delivers the rest.
void scripted_presenter::deliver_posted() {
    while (!posted_.empty()) {
        const posted one = posted_.front();
        posted_.pop_front();
        own_window* target = find(one.window);
        if (target != nullptr && target->dialog != nullptr)
            target->dialog->on_command(one.command);
    }
}

forms::loop_end scripted_presenter::run_modal(dialog_view& dialog) {
    constexpr std::int32_t notification = 9650;
    const bool scripted = !scripts_[dialog.form()->id].empty();
    std::deque<step> steps = take_script(dialog);
    if (dialog.form()->id == notification)
        messages.push_back(dialog.find(9651)->caption);
    if (dialog.form()->id == notification && !scripted)
        steps.push_back([](dialog_view& told) { told.user_clicks(1); });
    show(dialog.window(), true);
    while (!dialog.has_ended() && !quitting) {
        deliver_posted();
        if (!dialog.has_ended() && !quitting)
            run_step(dialog, steps);
    }
    return dialog.has_ended() ? forms::loop_end::dialog_ended : forms::loop_end::program_quits;
}

void scripted_presenter::run_step(dialog_view& dialog, std::deque<step>& steps) {
    if (!is_enabled(dialog.window()))
        ADD_FAILURE() << "input for dialog " << dialog.form()->id << ", which is disabled";
    active = dialog.window();
    if (!steps.empty()) {
        const step next = std::move(steps.front());
        steps.pop_front();
        return next(dialog);
    }
    ADD_FAILURE() << "nothing ends dialog " << dialog.form()->id;
    dialog.user_closes();
    quitting = !dialog.has_ended();
}

void scripted_presenter::show(window_handle handle, bool visible) {
    own_window* one = find(handle);
    if (one == nullptr || one->visible == visible)
        return;
    one->visible = visible;
    note(handle, visible ? "shown" : "hidden");
    if (visible)
        active = handle;
}

bool scripted_presenter::is_enabled(window_handle handle) {
    const own_window* one = find(handle);
    return one != nullptr && one->enabled;
}

void scripted_presenter::enable(window_handle handle, bool enabled) {
    if (own_window* one = find(handle))
        one->enabled = enabled;
    note(handle, enabled ? "enabled" : "disabled");
}

void scripted_presenter::activate(window_handle handle) {
    active = handle;
    note(handle, "activated");
}

void scripted_presenter::post_command(window_handle handle, std::int32_t command) {
    posted_.push_back({handle, command});
    log.push_back(std::to_string(command) + " posted to " + name(handle));
}

void scripted_presenter::remote_call_begins() {
    if (at_remote_call)
        at_remote_call();
}

void scripted_presenter::show_message(window_handle owner, std::string_view text,
                                      std::string_view caption) {
    messages.emplace_back(text);
    log.push_back("message over " + name(owner) + ": " + std::string(caption) + ": " +
                  std::string(text));
}

bool scripted_presenter::choose_font(window_handle, forms::font_description& font, bool) {
    if (fonts.empty())
        return false;
    font = fonts.front();
    fonts.pop_front();
    return true;
}

bool scripted_presenter::take_input() {
    const auto next = std::move(input.front());
    input.pop_front();
    return next();
}

void scripted_presenter::quit(int code) {
    quitting = true;
    log.push_back("quit " + std::to_string(code));
}

} // namespace zerdix::test
