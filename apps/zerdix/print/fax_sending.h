// The end of a fax job: SendFaxDoc, and what is told of it.
//
// SendFaxDoc says that all went well or that a step failed. What came of the job is put together
// here: from the job's record, which stays as the last pass had it, and from the server, which is
// asked over a new connection. What neither can tell is told as unknown, and never guessed.
#ifndef ZERDIX_APP_PRINT_FAX_SENDING_H
#define ZERDIX_APP_PRINT_FAX_SENDING_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "link_probe.h"
#include "print/leftover.h"

namespace zerdix::app {

// The receivers that the open job has by now, Windows-1252.
std::vector<std::string> job_receivers();

class fax_sending {
  public:
    // Of the open job, all of whose pages are stored. `host` is Windows-1252.
    fax_sending(std::string host, int pages);

    // Ends the job, and leaves nothing of it on the desk but what the dialog was told to leave
    // there. What was done, a clause such as "3 send jobs made". Throws failure.
    std::string run();

  private:
    struct range {
        std::size_t least, most;
    };

    bool lacks_cover_page() const;
    range told_by_record() const;
    range told_with_covers(range made, const sent_leftover& own) const;
    [[noreturn]] void stopped(const trouble& why) const;
    [[noreturn]] void stopped_without_cover_page() const;
    [[noreturn]] void tell(range made, const trouble& why) const;

    std::string dialog_done() const;
    [[noreturn]] void dialog_failed(const trouble& why) const;
    [[noreturn]] void not_on_other_desk(const trouble& why) const;

    std::string host_;
    int pages_;
    std::vector<std::string> receivers_; // named on the command line, Windows-1252
    std::int32_t document_;
    bool has_covers_;
    std::string log_; // of the document, with all its pages
};

} // namespace zerdix::app

#endif
