// The document of a job that the library has closed after a failure: it lies on the desk still.
#ifndef ZERDIX_APP_PRINT_LEFTOVER_H
#define ZERDIX_APP_PRINT_LEFTOVER_H

#include <cstdint>
#include <string>

namespace zerdix::app {

struct leftover {
    bool gone;     // it was deleted, or had been before
    int log_lines; // of the document, just before
};

// Connects anew as the session's user and deletes the document.
leftover clear_leftover(std::int32_t faxid, const std::string& host);

// Connects anew and deletes a document of the print user. Whether it is gone.
bool clear_print_document(std::int32_t faxid, const std::string& host);

} // namespace zerdix::app

#endif
