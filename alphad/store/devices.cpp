// SPDX-License-Identifier: MIT
#include "alphad/store/devices.h"

#include <algorithm>

#include "alphad/store/stored_record.h"

namespace zerdix::alphad {

void devices::put(const a_printer_rec& printer) {
    execute(db_, "INSERT OR REPLACE INTO printers (id, record) VALUES (?, ?)",
            whole_key(clean_key(printer.printerid)), to_stored(printer));
}

void devices::put(const a_scanner_rec& scanner) {
    execute(db_, "INSERT OR REPLACE INTO scanners (id, record) VALUES (?, ?)",
            whole_key(clean_key(scanner.scannerid)), to_stored(scanner));
}

std::vector<a_printer_rec> devices::printers(const str10& start, std::int32_t most) const {
    return record_rows<a_printer_rec>(
               db_, "SELECT record FROM printers WHERE id >= ? ORDER BY id LIMIT ?",
               whole_key(start), std::max(most, 0))
        .all();
}

std::optional<a_printer_rec> devices::printer(const str10& id) const {
    return record_rows<a_printer_rec>(db_, "SELECT record FROM printers WHERE id = ?",
                                      whole_key(clean_key(id)))
        .first();
}

std::vector<a_scanner_rec> devices::scanners(std::int32_t selector) const {
    auto found = record_rows<a_scanner_rec>(db_, "SELECT record FROM scanners ORDER BY id").all();
    std::erase_if(found, [selector](const a_scanner_rec& scanner) {
        return (features(scanner) & selector) != selector;
    });
    return found;
}

std::optional<a_scanner_rec> devices::scanner(const str10& id) const {
    return record_rows<a_scanner_rec>(db_, "SELECT record FROM scanners WHERE id = ?",
                                      whole_key(clean_key(id)))
        .first();
}

} // namespace zerdix::alphad
