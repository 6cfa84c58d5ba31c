#include "dialogs/telex_print.h"

#include <zerdix/zerdix.h>

#include "sendfax/telex_record.h"

namespace zerdix::dialogs {

bool print_telex(JOURNAL& journal, const page_dat& text, const a_s_rec& record,
                 std::int16_t pictureType) {
    const std::int32_t document = journal.makePrintDoc();
    if (document == 0 || document == -1)
        return false;
    std::string content = sendfax::control_record(record, ZERDIX::clsGetUserId(),
                                                  sendfax::telex_send_time(record.sendtime));
    content.append(reinterpret_cast<const char*>(text.data), text.size);
    const page_dat page{static_cast<std::uint32_t>(content.size()),
                        reinterpret_cast<unsigned char*>(content.data())};
    return journal.putPrintDocPage(document, 1, pictureType, &page) == 0 &&
           journal.printPrintDoc(TOPF_P, document, 1, 1, sendfax::telex_printer, 1) == 0 &&
           journal.delPrintDoc(TOPF_P, document) == 0;
}

} // namespace zerdix::dialogs
