// SPDX-License-Identifier: MIT
#include "dialogs/dialog_resources.h"

#include "common/string_table.h"
#include "dialogs/templates.h"
#include "forms/dialog.h"

namespace zerdix::dialogs {

namespace {

class templates_and_words final : public forms::dialog_resources {
  public:
    const forms::dialog_template* find(std::int32_t id) override { return find_template(id); }
    std::string caption(std::int32_t dialog, std::int32_t control) override {
        return common::caption(dialog, control);
    }
    std::string text(std::int32_t number) override { return common::string_text(number); }
};

constinit templates_and_words all;

} // namespace

void install_dialog_resources() {
    forms::replace_dialog_resources(&all);
}

} // namespace zerdix::dialogs
