// SPDX-License-Identifier: MIT
// The session of a user, logged on for the length of a command, with the ways to say how it went.
//
// Every operation of the three classes goes through expect() or fetch(), which turn a result into a
// sentence and an exit code.
#ifndef ZERDIX_APP_SESSION_USER_SESSION_H
#define ZERDIX_APP_SESSION_USER_SESSION_H

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <zerdix/journal.h>
#include <zerdix/telebook.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "output/failure.h"
#include "output/report.h"
#include "session/connection_probe.h"

namespace zerdix::app {

struct session_options {
    std::string user, host, password_file, settings;
    bool as_json = false;
    bool quiet = false;
};

class user_session {
  public:
    // Connects, logs on and takes the server's time zone. Throws failure with the reason.
    explicit user_session(const session_options& options);

    // Logs off.
    ~user_session();
    user_session(const user_session&) = delete;
    user_session& operator=(const user_session&) = delete;

    // The objects live as long as this one; pointers they give are good as their headers say.
    ZERDIX& session() { return session_; }
    JOURNAL& journal() { return *journal_; }
    TELEBOOK& books() { return *books_; }

    const report& out() const { return out_; }
    const std::string& host() const { return host_; } // Windows-1252
    std::string user() const;                         // UTF-8

    // The password of the login, Windows-1252, for those who change it.
    const std::string& password() const { return password_; }

    // Runs an operation whose result is 0 on success. `doing` is a clause without a verb form of
    // its own, such as "deleting document 17". Throws failure: for 4 with `refused` behind it (a
    // clause such as "the server refused"), for 8 and 12 with what is wrong with the connection.
    template <class Operation>
    void expect(const std::string& doing, Operation operation,
                const std::string& refused = "the server refused") {
        const call_probe watch;
        check(doing, operation(), refused, watch);
    }

    // The same; `why` is asked for the clause only when the server refused. It may look around on
    // the server for the reason, and throw a failure of its own.
    template <class Operation, class Reason>
    requires std::is_invocable_r_v<std::string, Reason>
    void expect(const std::string& doing, Operation operation, Reason why) {
        const call_probe watch;
        const std::int32_t result = operation();
        check(doing, result, result == call_refused ? why() : "the server refused", watch);
    }

    // Runs an operation that gives a pointer, and null when it failed.
    template <class Operation>
    auto& fetch(const std::string& doing, Operation operation) {
        const call_probe watch;
        auto* result = operation();
        if (result == nullptr)
            lost(doing, watch);
        return *result;
    }

    // The failure of a call that got no answer.
    [[noreturn]] void lost(const std::string& doing, const call_probe& watch) const;

  private:
    void check(const std::string& doing, std::int32_t result, const std::string& refused,
               const call_probe& watch) const;
    void log_on(const session_options& options);

    report out_;
    std::string host_; // Windows-1252
    std::string password_;
    ZERDIX session_;
    // After the login, since a new object takes the handle that stands.
    std::unique_ptr<JOURNAL> journal_;
    std::unique_ptr<TELEBOOK> books_;
};

// A list that an operation gave, as references to its records.
template <class Record>
std::vector<const Record*> records(const PTRLIST& list) {
    std::vector<const Record*> all;
    for (std::uint32_t i = 0; i < list.getSize(); ++i)
        all.push_back(static_cast<const Record*>(list[i]));
    return all;
}

} // namespace zerdix::app

#endif
