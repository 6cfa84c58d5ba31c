// SPDX-License-Identifier: MIT
// The entries of a phone book for one net, block after block, as a list asks for them.
#ifndef ZERDIX_DIALOGS_ENTRY_PAGER_H
#define ZERDIX_DIALOGS_ENTRY_PAGER_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <zerdix/pager.h>
#include <zerdix/telebook.h>

namespace zerdix::dialogs {

class entry_pager {
  public:
    // Asks the server for the size of a block. The phone book object outlives the pager.
    explicit entry_pager(TELEBOOK& telebook);

    // At the beginning of a book; nothing is fetched for it.
    void start(const str10& book, nettypetype net);

    // One remote call for the entries that come next; empty at the end of the book. Nothing when
    // the block couldn't be had: that is an end, too.
    std::optional<std::vector<o_tebul>> next();

    bool is_complete() const { return fListComplete; }
    // The `teleid` of the last entry that was fetched, empty at the beginning.
    const str10& last_key() const { return startKey; }

  private:
    struct key_of {
        std::string operator()(const o_tebul& entry) const {
            return std::string{entry.teleid.view()};
        }
    };

    PTRLIST* fetch();

    TELEBOOK& telebook_;
    std::int32_t lBlockSize;
    str10 book_{};
    nettypetype net_ = NETTYPE_FAX;
    bool fListComplete = false;
    str10 startKey{};
    pager<o_tebul, leave_repeats_out<o_tebul, key_of>> pages_;
};

} // namespace zerdix::dialogs

#endif
