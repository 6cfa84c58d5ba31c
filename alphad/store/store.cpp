// SPDX-License-Identifier: MIT
#include "alphad/store/store.h"

namespace zerdix::alphad {

store::store(const std::string& path, alphad::database::access mode) : db_(path, mode) {
    try {
        if (mode == alphad::database::access::read_only)
            require_schema(db_);
        else
            change_ = prepare_schema(db_);
    } catch (const database_error& error) {
        throw database_error(path + ": " + error.what());
    }
}

} // namespace zerdix::alphad
