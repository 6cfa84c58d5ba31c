// SPDX-License-Identifier: MIT
#include "forms/dialog.h"

#include <algorithm>

#include "platform/port_slot.h"

namespace zerdix::forms {

namespace {

constinit platform::port_slot<dialog_resources> resources;

bool needs_registration(const dialog_template& form) {
    return std::any_of(form.controls.begin(), form.controls.end(),
                       [](const auto& one) { return one.kind == control_kind::tree_list; });
}

std::string caption_in(const dialog_template& form, std::int32_t control) {
    std::string own = resources.current()->caption(form.id, control);
    return own.empty() ? resources.current()->caption(form.captions_of, control) : own;
}

} // namespace

dialog_resources* replace_dialog_resources(dialog_resources* given) {
    return resources.replace(given);
}

dialog::dialog(std::int32_t template_id, window_handle owner)
    : template_id_(template_id), owner_(owner) {}

dialog::~dialog() {
    DestroyWindow();
}

void dialog::make_controls() {
    caption_ = caption_in(*form_, 0);
    controls_.clear();
    for (const auto& one : form_->controls) {
        control& made = controls_.emplace_back();
        made.form = &one;
        made.caption = caption_in(*form_, one.id);
        made.enabled = one.style.enabled;
        made.visible = one.style.visible;
        if (one.kind != control_kind::tree_list)
            continue;
        made.list = std::make_unique<tree_list>();
        made.list->several = one.style.several;
    }
}

bool dialog::has_template() const {
    return resources.is_replaced() && resources.current()->find(template_id_) != nullptr;
}

bool dialog::make_window() {
    if (window_ != nullptr || !resources.is_replaced())
        return false;
    form_ = resources.current()->find(template_id_);
    if (form_ == nullptr || (needs_registration(*form_) && !tree_lists_registered()))
        return false;
    result_.reset();
    make_controls();
    window_ = current_presenter().create(*this, owner_);
    if (window_ == nullptr)
        return false;
    OnInitDialog();
    return true;
}

std::int32_t dialog::DoModal() {
    if (!ensure_presenter() || !make_window())
        return -1;
    const loop_end end =
        has_ended() ? loop_end::dialog_ended : current_presenter().run_modal(*this);
    DestroyWindow();
    return end == loop_end::dialog_ended ? result() : -1;
}

bool dialog::Create() {
    if (!ensure_presenter() || !make_window())
        return false;
    current_presenter().show(window_, true);
    return true;
}

void dialog::DestroyWindow() {
    if (window_ == nullptr)
        return;
    current_presenter().destroy(std::exchange(window_, nullptr));
    controls_.clear();
}

void dialog::EndDialog(std::int32_t result) {
    result_ = result;
}

bool dialog::OnInitDialog() {
    return true;
}

void dialog::OnCancel() {
    if (form_ != nullptr && form_->cancel_button != 0)
        run(form_->cancel_button, control_event::clicked);
}

void dialog::on(std::int32_t id, control_event event, std::function<void()> handler) {
    handlers_[{id, event}] = std::move(handler);
}

void dialog::on_posted(std::int32_t command, std::function<void()> handler) {
    commands_[command] = std::move(handler);
}

void dialog::run(std::int32_t id, control_event event) {
    const auto found = handlers_.find({id, event});
    if (found != handlers_.end())
        found->second();
}

control* dialog::usable(std::int32_t id) {
    control* one = find(id);
    return one != nullptr && one->enabled && one->visible && !has_ended() ? one : nullptr;
}

void dialog::user_clicks(std::int32_t id) {
    control* one = usable(id);
    if (one == nullptr)
        return;
    if (one->kind() == control_kind::radio_button)
        check(id);
    if (one->kind() == control_kind::check_box)
        check(id, !one->checked);
    run(id, control_event::clicked);
}

void dialog::user_edits(std::int32_t id, std::string_view text) {
    control* one = usable(id);
    if (one == nullptr || one->read_only || one->kind() != control_kind::edit)
        return;
    const auto kept = one->limit != 0 ? text.substr(0, one->limit) : text;
    if (one->text == kept && kept.size() == text.size())
        return;
    set_text(id, kept);
    run(id, control_event::changed);
}

bool dialog::user_may_type(std::int32_t id, unsigned char character) {
    const control* one = usable(id);
    if (one == nullptr || one->read_only)
        return false;
    return one->accepts == nullptr || one->accepts(character);
}

void dialog::user_picks_item(std::int32_t id, std::int32_t item) {
    control* one = usable(id);
    if (one == nullptr || item < 0 || static_cast<std::size_t>(item) >= one->items.size())
        return;
    one->selected_item = item;
    run(id, control_event::selection_changed);
}

void dialog::user_selects_row(std::int32_t id, std::int32_t row) {
    control* one = usable(id);
    if (one == nullptr || one->list == nullptr || row < -1 || row >= one->list->row_count())
        return;
    one->list->selected.assign(row < 0 ? 0 : 1, row);
    run(id, control_event::selection_changed);
}

void dialog::user_double_clicks(std::int32_t id, std::int32_t row) {
    user_selects_row(id, row);
    if (usable(id) != nullptr)
        run(id, control_event::double_clicked);
}

void dialog::user_scrolls(std::int32_t id) {
    if (usable(id) != nullptr)
        run(id, control_event::scrolled);
}

void dialog::user_presses_key(std::int32_t id, std::int32_t key) {
    if (usable(id) == nullptr)
        return;
    current_presenter().post_command(window_, list_key + key);
    run(id, control_event::key);
}

void dialog::user_closes() {
    if (!has_ended())
        OnCancel();
}

void dialog::on_command(std::int32_t command) {
    const auto found = commands_.find(command);
    if (found != commands_.end() && !has_ended())
        found->second();
}

std::string dialog::string_text(std::int32_t number) const {
    return resources.is_replaced() ? resources.current()->text(number) : std::string();
}

template <typename Change>
void dialog::change(std::int32_t id, Change&& change) {
    control* one = find(id);
    if (one == nullptr)
        return;
    change(*one);
    current_presenter().control_changed(*this, id);
}

std::string dialog::text(std::int32_t id) {
    const control* one = find(id);
    return one != nullptr ? one->text : std::string();
}

std::string dialog::text(std::int32_t id, std::size_t limit) {
    return text(id).substr(0, limit);
}

void dialog::set_text(std::int32_t id, std::string_view text) {
    change(id, [text](control& one) { one.text = text; });
}

std::string dialog::caption_of(std::int32_t id) {
    const control* one = find(id);
    return one != nullptr ? one->caption : std::string();
}

void dialog::set_caption(std::int32_t id, std::string_view caption) {
    change(id, [caption](control& one) { one.caption = caption; });
}

void dialog::set_limit(std::int32_t id, std::size_t characters) {
    change(id, [characters](control& one) { one.limit = characters; });
}

void dialog::set_read_only(std::int32_t id, bool read_only) {
    change(id, [read_only](control& one) { one.read_only = read_only; });
}

void dialog::set_filter(std::int32_t id, bool (*accepts)(unsigned char)) {
    change(id, [accepts](control& one) { one.accepts = accepts; });
}

void dialog::mark(std::int32_t id, std::string_view why) {
    change(id, [why](control& one) { one.mark = why; });
}

bool dialog::is_checked(std::int32_t id) {
    const control* one = find(id);
    return one != nullptr && one->checked;
}

void dialog::check(std::int32_t id, bool checked) {
    const control* one = find(id);
    if (one == nullptr)
        return;
    const int group = one->form->style.radio_group;
    if (checked && group != 0)
        for (auto& other : controls_)
            if (other.form->style.radio_group == group && other.checked)
                change(other.id(), [](control& left) { left.checked = false; });
    change(id, [checked](control& now) { now.checked = checked; });
}

void dialog::enable(std::int32_t id, bool enabled) {
    change(id, [enabled](control& one) { one.enabled = enabled; });
}

void dialog::show(std::int32_t id, bool visible) {
    change(id, [visible](control& one) { one.visible = visible; });
}

void dialog::set_focus(std::int32_t id) {
    if (find(id) != nullptr)
        current_presenter().set_focus(*this, id);
}

void dialog::add_item(std::int32_t id, std::string_view item) {
    change(id, [item](control& one) { one.items.emplace_back(item); });
}

void dialog::select_item(std::int32_t id, std::string_view item) {
    change(id, [item](control& one) {
        const auto found = std::find(one.items.begin(), one.items.end(), item);
        one.selected_item =
            found == one.items.end() ? -1 : static_cast<std::int32_t>(found - one.items.begin());
    });
}

std::string dialog::selected_item(std::int32_t id) {
    const control* one = find(id);
    return one != nullptr && one->selected_item >= 0
               ? one->items[static_cast<std::size_t>(one->selected_item)]
               : std::string();
}

tree_list* dialog::list(std::int32_t id) {
    const control* one = find(id);
    return one != nullptr ? one->list.get() : nullptr;
}

} // namespace zerdix::forms
