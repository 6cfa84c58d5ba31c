// SPDX-License-Identifier: MIT
// The documents of a pool, read from the server.
#ifndef ZERDIX_APP_DOCUMENTS_POOL_LIST_H
#define ZERDIX_APP_DOCUMENTS_POOL_LIST_H

#include <cstdint>

#include "documents/document_name.h"
#include "output/report.h"
#include <zerdix/values.h>

namespace zerdix::app {

// All of them that the selection shows, from the id `from` on, block by block in the size that the
// server is configured with.
json list_pool(user_session& user, topftype pool, list_selection which,
               std::int32_t from = first_block);

// One block.
json list_block(user_session& user, topftype pool, list_selection which, std::int32_t from,
                int most);

} // namespace zerdix::app

#endif
