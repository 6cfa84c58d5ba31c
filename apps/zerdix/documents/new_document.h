// SPDX-License-Identifier: MIT
// A new document on the user's desk.
#ifndef ZERDIX_APP_DOCUMENTS_NEW_DOCUMENT_H
#define ZERDIX_APP_DOCUMENTS_NEW_DOCUMENT_H

#include <cstdint>
#include <exception>

#include "session/user_session.h"

namespace zerdix::app {

// Its id. Throws failure.
std::int32_t new_document(user_session& user);

// Makes one and does something with it; when that fails the document goes again.
template <class Work>
std::int32_t new_document(user_session& user, Work work) {
    const std::int32_t id = new_document(user);
    try {
        work(id);
    } catch (const std::exception&) {
        user.journal().delDoc(TOPF_P, id);
        throw;
    }
    return id;
}

} // namespace zerdix::app

#endif
