#include "print/leftover.h"

#include <algorithm>
#include <cstring>

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

namespace zerdix::app {

namespace {

int count_lines(JOURNAL& journal, std::int32_t faxid) {
    const char* log = journal.getLog(TOPF_P, faxid, 0, nullptr);
    return log == nullptr ? 0 : static_cast<int>(std::count(log, log + std::strlen(log), '\n'));
}

bool remove(JOURNAL& journal, std::int32_t faxid) {
    if (journal.delDoc(TOPF_P, faxid) == 0)
        return true;
    const a_p_rec* record = journal.getPDoc(faxid);
    return record != nullptr && record->faxid == 0;
}

} // namespace

leftover clear_leftover(std::int32_t faxid, const std::string& host) {
    ZERDIX session;
    if (session.GetClientAddr(host.c_str()) == nullptr)
        return {false, 0};
    leftover result{};
    {
        JOURNAL journal;
        result.log_lines = count_lines(journal, faxid);
        result.gone = remove(journal, faxid);
    }
    session.CleanupHostConnection();
    return result;
}

bool clear_print_document(std::int32_t faxid, const std::string& host) {
    ZERDIX session;
    if (session.GetClientAddr(host.c_str()) == nullptr)
        return false;
    JOURNAL journal;
    const bool gone = journal.delPrintDoc(TOPF_P, faxid) == 0;
    session.CleanupHostConnection();
    return gone;
}

} // namespace zerdix::app
