#include "print/connection_watch.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <rpc/rpc.h>

#include <zerdix/call_time.h>
#include <zerdix/zerdix.h>

namespace zerdix::app {

namespace {

constexpr std::chrono::seconds call_limit{call_seconds};

} // namespace

connection_watch::connection_watch() : start_(std::chrono::steady_clock::now()) {
    int fd = -1;
    CLIENT* handle = ZERDIX::clsGetClient();
    if (handle != nullptr && clnt_control(handle, CLGET_FD, reinterpret_cast<char*>(&fd)))
        fd_ = ::fcntl(fd, F_DUPFD_CLOEXEC, 0);
}

connection_watch::~connection_watch() {
    if (fd_ >= 0)
        ::close(fd_);
}

bool connection_watch::is_broken() const {
    char byte;
    const ssize_t got = ::recv(fd_, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    return got == 0 || (got < 0 && errno != EAGAIN && errno != EINTR);
}

trouble connection_watch::explain(const std::string& host) const {
    if (fd_ < 0)
        return probe_server(host);
    if (is_broken())
        return {exit_unavailable, "the connection to the server broke"};
    if (std::chrono::steady_clock::now() - start_ >= call_limit)
        return {exit_unavailable, "the server refused it, or didn't answer within 25 seconds"};
    return {exit_refused, "the server refused it"};
}

} // namespace zerdix::app
