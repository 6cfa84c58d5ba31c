// What a job that ended before its time has left on the server. Everything here is asked and done
// over a connection of its own, since the job's own may be what failed.
#ifndef ZERDIX_APP_PRINT_LEFTOVER_H
#define ZERDIX_APP_PRINT_LEFTOVER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace zerdix::app {

enum class removal {
    done,
    needless, // it wasn't there any more
    refused,  // it stays
    unknown,  // the server couldn't be asked
};

// Deletes a desk document of the session's user. Tells the user when it stays or may stay.
removal clear_leftover(std::int32_t faxid, const std::string& host);

// The log of a desk document, by which the send jobs made of it are known: each begins with a copy
// of it, and its first line names the document. Over the connection that stands. Empty when it
// can't be had.
std::string log_of_desk_document(std::int32_t faxid);

struct sent_leftover {
    removal removed;
    std::optional<std::size_t> jobs; // made of it; none when the server couldn't tell
};

// Deletes a desk document that may have been sent, so that nothing more can be made of it, and
// counts the send jobs that were. `log` is its log from before it
// was sent; an empty one is fetched.
sent_leftover clear_sent_leftover(std::int32_t faxid, std::string log, const std::string& host);

// Takes away the empty document that was made on another user's desk since `faxid` was made. It is
// taken only when there is no doubt which it is. Whether it is gone.
bool clear_empty_document(std::int32_t faxid, const std::string& host);

// Deletes a document of the print user. Whether it is gone.
bool clear_print_document(std::int32_t faxid, const std::string& host);

} // namespace zerdix::app

#endif
