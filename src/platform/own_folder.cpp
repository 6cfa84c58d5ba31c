// SPDX-License-Identifier: MIT
#include "platform/own_folder.h"

#include <dlfcn.h>
#include <link.h>

namespace zerdix::platform {
namespace {

// The program's own name may be a bare word; the system knows better.
constexpr const char* program = "/proc/self/exe";

} // namespace

std::filesystem::path own_folder() {
    static const char inside = 0;
    Dl_info info = {};
    link_map* map = nullptr;
    if (::dladdr1(&inside, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) == 0)
        return {};
    const bool is_library = map != nullptr && map->l_name != nullptr && *map->l_name != '\0';
    std::error_code error;
    return std::filesystem::canonical(is_library ? map->l_name : program, error).parent_path();
}

} // namespace zerdix::platform
