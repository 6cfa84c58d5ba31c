// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/heap_result.h"
#include "alphad/sending/drawn_page.h"

namespace zerdix::alphad {

a_get_printers_o answers::answer(proc::a_get_printers_1, const wire::none&) {
    return list_of<a_get_printers_o>(store_.devices.printers(), &a_printer_node::printer);
}

a_get_printers_o answers::answer(proc::a_get_printersb_1, const a_get_printersb_i& in) {
    return list_of<a_get_printers_o>(store_.devices.printers(in.printerid, in.number),
                                     &a_printer_node::printer);
}

a_printer_rec answers::answer(proc::a_get_printer_1, const str10& id) {
    return store_.devices.printer(id).value_or(a_printer_rec{});
}

a_get_scanners_o answers::answer(proc::a_get_scanners_1, const std::int32_t& selector) {
    return list_of<a_get_scanners_o>(store_.devices.scanners(selector), &a_scanner_node::scanner);
}

a_get_scanners_o answers::answer(proc::a_get_freescanners_1, const std::int32_t& selector) {
    auto scanners = store_.devices.scanners(selector);
    std::erase_if(scanners, [](const a_scanner_rec& each) { return is_busy(each); });
    return list_of<a_get_scanners_o>(scanners, &a_scanner_node::scanner);
}

a_scanner_rec answers::answer(proc::a_get_scanner_1, const str10& id) {
    return store_.devices.scanner(id).value_or(a_scanner_rec{});
}

// There is no scanner; what lies on the desk afterwards is a test page that says so.
boolean answers::answer(proc::a_scan_doc_1, const a_scan_doc_i& in) {
    const auto scanner = store_.devices.scanner(in.scanner);
    if (!scanner || is_busy(*scanner) || !store_.users.knows(in.userid.view()))
        return yes(false);
    const std::int32_t id = store_.documents.create(TOPF_P, in.userid.view(), in.comment.view());
    const std::string page =
        drawn_page("Test page", {"Scanner " + std::string{scanner->scannerid.view()},
                                 "alphad has no scanner of its own."});
    store_.pages.put_block({id, 1, picture_page}, 0, page);
    return yes(true);
}

} // namespace zerdix::alphad
