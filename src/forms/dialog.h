// SPDX-License-Identifier: MIT
// The base of every dialog: its controls by id, its handlers by id and event, its modal loop.
//
// A dialog that isn't on a window has no controls; getters then give empty values and setters do
// nothing. Texts are Windows-1252.
#ifndef ZERDIX_FORMS_DIALOG_H
#define ZERDIX_FORMS_DIALOG_H

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "forms/dialog_view.h"

namespace zerdix::forms {

// Where templates and words come from.
class dialog_resources {
  public:
    // Null for a template that doesn't exist. Good for the life of the process.
    virtual const dialog_template* find(std::int32_t id) = 0;
    // Of a control, or of the dialog itself where `control` is 0.
    virtual std::string caption(std::int32_t dialog, std::int32_t control) = 0;
    virtual std::string text(std::int32_t number) = 0;

  protected:
    ~dialog_resources() = default;
};

// Returns the ones before. Null: no template exists.
dialog_resources* replace_dialog_resources(dialog_resources* resources);

class dialog : public dialog_view {
  public:
    // `owner` may be null or a foreign window.
    explicit dialog(std::int32_t template_id, window_handle owner = nullptr);
    virtual ~dialog();
    dialog(const dialog&) = delete;
    dialog& operator=(const dialog&) = delete;

    // Shows the dialog over its owner until it ends; its result, or -1 when it can't be shown or
    // the program ends meanwhile.
    virtual std::int32_t DoModal();
    // Opens the dialog beside the program's other windows. False when that can't be.
    bool Create();
    void DestroyWindow();

    void EndDialog(std::int32_t result);
    bool has_ended() const final { return result_.has_value(); }

    void user_clicks(std::int32_t id) final;
    void user_edits(std::int32_t id, std::string_view text) final;
    bool user_may_type(std::int32_t id, unsigned char character) final;
    void user_picks_item(std::int32_t id, std::int32_t item) final;
    void user_selects_row(std::int32_t id, std::int32_t row) final;
    void user_double_clicks(std::int32_t id, std::int32_t row) final;
    void user_scrolls(std::int32_t id) final;
    void user_presses_key(std::int32_t id, std::int32_t key) final;
    void user_closes() final;
    void on_command(std::int32_t command) final;
    std::string string_text(std::int32_t number) const final;

    // Handlers and controls: for the dialog, and for classes that look after a part of it. A
    // handler takes the place of an earlier one for the same control and event.
    void on(std::int32_t id, control_event event, std::function<void()> handler);
    void on_posted(std::int32_t command, std::function<void()> handler);

    std::string text(std::int32_t id);
    // At most `limit` characters of it.
    std::string text(std::int32_t id, std::size_t limit);
    void set_text(std::int32_t id, std::string_view text);
    std::string caption_of(std::int32_t id);
    void set_caption(std::int32_t id, std::string_view caption);
    void set_limit(std::int32_t id, std::size_t characters);
    void set_read_only(std::int32_t id, bool read_only = true);
    void set_filter(std::int32_t id, bool (*accepts)(unsigned char));
    // Marks an edit, and tells those who don't see it why; an empty text takes the mark away.
    void mark(std::int32_t id, std::string_view why);
    bool is_checked(std::int32_t id);
    void check(std::int32_t id, bool checked = true);
    void enable(std::int32_t id, bool enabled = true);
    void show(std::int32_t id, bool visible = true);
    void set_focus(std::int32_t id);
    void add_item(std::int32_t id, std::string_view item);
    // The item of exactly this text; nothing is selected when there is none.
    void select_item(std::int32_t id, std::string_view item);
    std::string selected_item(std::int32_t id);
    // The list control of that id, for SftTree_WndProc; null when there is none.
    tree_list* list(std::int32_t id);

  protected:
    // Runs once the window is there and before it shows. False: the focus was set on purpose.
    virtual bool OnInitDialog();
    // Escape, and closing the window. By default the dialog's cancel button is pressed.
    virtual void OnCancel();

    // The steps of DoModal, for a dialog that has its own way of opening. `make_window` runs
    // OnInitDialog. Each is false when it can't be.
    bool has_template() const;
    bool make_window();
    std::int32_t result() const { return result_.value_or(-1); }
    std::int32_t template_id() const { return template_id_; }

  private:
    template <typename Change>
    void change(std::int32_t id, Change&& change);
    control* usable(std::int32_t id);
    void run(std::int32_t id, control_event event);
    void make_controls();

    std::int32_t template_id_;
    window_handle owner_;
    std::optional<std::int32_t> result_;
    std::map<std::pair<std::int32_t, control_event>, std::function<void()>> handlers_;
    std::map<std::int32_t, std::function<void()>> commands_;
};

} // namespace zerdix::forms

#endif
