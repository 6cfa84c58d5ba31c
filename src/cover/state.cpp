// SPDX-License-Identifier: MIT
#include "cover/state.h"

namespace zerdix::cover {

cover_state& state() {
    static cover_state kept;
    return kept;
}

void forget_session() {
    state().pCoverUser.reset();
    state().form.forget();
    state().signature.forget();
}

} // namespace zerdix::cover
