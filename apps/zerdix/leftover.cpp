#include "leftover.h"

#include <cstring>

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

namespace zerdix::app {

namespace {

// The job writes this line when every receiver has its send job.
bool tells_of_completion(JOURNAL& journal, std::int32_t faxid) {
    const char* log = journal.getLog(TOPF_P, faxid, 0, nullptr);
    return log != nullptr && std::strstr(log, "$ps.document_deleted:") != nullptr;
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
        return {false, false};
    leftover result{};
    {
        JOURNAL journal;
        result.all_sent = tells_of_completion(journal, faxid);
        result.gone = remove(journal, faxid);
    }
    session.CleanupHostConnection();
    return result;
}

} // namespace zerdix::app
