// SPDX-License-Identifier: MIT
// Values that dialogs keep in section "Zerdix" of the settings file from one time to the next.
#ifndef ZERDIX_DIALOGS_KEPT_SETTING_H
#define ZERDIX_DIALOGS_KEPT_SETTING_H

#include <cstddef>
#include <string>
#include <string_view>

namespace zerdix::dialogs {

// At most width - 1 characters; `fallback` when the key is missing.
std::string kept_text(const std::string& key, std::string_view fallback, std::size_t width);
// One that can't be written is given up.
void keep_text(const std::string& key, std::string_view value);

} // namespace zerdix::dialogs

#endif
