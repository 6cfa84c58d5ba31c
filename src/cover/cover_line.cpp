// SPDX-License-Identifier: MIT
#include "cover/cover_line.h"

#include <cstring>
#include <utility>

namespace zerdix::cover {

int ParseCoverLine(char* line, char* field1, int size1, char* field2, int size2, char* field3,
                   int size3) {
    char* from = std::strchr(line, '=');
    if (from == nullptr)
        return 1;
    ++from;
    for (const auto& [field, size] : {std::pair{field1, size1}, {field2, size2}, {field3, size3}}) {
        if (field == nullptr)
            break;
        char* const end = std::strchr(from, ';');
        if (end != nullptr)
            *end = '\0';
        if (end != nullptr || *from != '\0')
            std::strncpy(field, from, static_cast<std::size_t>(size));
        if (end == nullptr)
            break;
        from = end + 1;
    }
    return 1;
}

} // namespace zerdix::cover
