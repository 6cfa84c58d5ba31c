// SPDX-License-Identifier: MIT
// The dialogs' templates. Their words stand in the resource files.
#ifndef ZERDIX_DIALOGS_TEMPLATES_H
#define ZERDIX_DIALOGS_TEMPLATES_H

#include <cstdint>
#include <span>

#include "forms/dialog_template.h"

namespace zerdix::dialogs {

// Template ids.
constexpr std::int32_t find_form = 1400;
constexpr std::int32_t entry_form = 1900;
constexpr std::int32_t large_send_form = 2299;
constexpr std::int32_t send_form = 2300;
constexpr std::int32_t user_form = 2450;
constexpr std::int32_t wait_form = 9599;
constexpr std::int32_t print_form = 9600;
constexpr std::int32_t notify_form = 9650;

std::span<const forms::dialog_template> templates();
// Null when there is none of that id.
const forms::dialog_template* find_template(std::int32_t id);

} // namespace zerdix::dialogs

#endif
