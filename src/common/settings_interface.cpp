// SPDX-License-Identifier: MIT
// The settings for callers of the library.

#include <zerdix/settings.h>

#include "common/settings.h"
#include "platform/home.h"
#include "platform/profile.h"

using namespace zerdix;

extern "C" const zx_settings* ReadSettings() {
    static std::string user, host, error_file;
    static zx_settings read;
    user = common::setting_user();
    host = common::setting_host();
    error_file = common::setting_error_file().path;
    read = {user.c_str(), host.c_str(), error_file.c_str()};
    return &read;
}

extern "C" const zx_setting* FindSetting(const char* key) {
    static platform::profile_entry entry;
    static std::string path;
    static zx_setting found;
    auto there = platform::find_profile_entry("Zerdix", key != nullptr ? key : "");
    if (!there || there->value.empty())
        return nullptr;
    entry = std::move(*there);
    path = platform::from_home(entry.value);
    found = {entry.value.c_str(), path.c_str(), entry.file.c_str()};
    return &found;
}
