// SPDX-License-Identifier: MIT
// Printers and scanners, as far as this server has any: it prints into the spool folder and scans
// a test page.
#ifndef ZERDIX_ALPHAD_STORE_DEVICES_H
#define ZERDIX_ALPHAD_STORE_DEVICES_H

#include <limits>
#include <optional>
#include <vector>

#include <zerdix/values.h>

#include "alphad/store/database.h"

namespace zerdix::alphad {

class devices {
  public:
    explicit devices(database& db) : db_(db) {}

    void put(const a_printer_rec& printer);
    void put(const a_scanner_rec& scanner);

    // In the order of their ids; the start is inclusive.
    std::vector<a_printer_rec>
    printers(const str10& start = {},
             std::int32_t most = std::numeric_limits<std::int32_t>::max()) const;
    std::optional<a_printer_rec> printer(const str10& id) const;

    // Those that have all hardware features of the selector, which is any_scanner for all.
    std::vector<a_scanner_rec> scanners(std::int32_t selector) const;
    std::optional<a_scanner_rec> scanner(const str10& id) const;

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
