// SPDX-License-Identifier: MIT
// The end of a command that can't do what it was asked: a sentence and an exit code by kind. The
// codes are those of sysexits.h, and they stand in the man pages.
#ifndef ZERDIX_APP_OUTPUT_FAILURE_H
#define ZERDIX_APP_OUTPUT_FAILURE_H

#include <stdexcept>
#include <string>

namespace zerdix::app {

enum exit_code : int {
    exit_ok = 0,
    exit_usage = 64,         // the command line is wrong
    exit_bad_data = 65,      // a PDF, a page or a phone book file is damaged or empty
    exit_no_input = 66,      // a file or a page isn't there or can't be read
    exit_no_receiver = 67,   // the server doesn't know the book, entry, group or user
    exit_no_host = 68,       // the server's name doesn't resolve
    exit_unavailable = 69,   // no port mapper, no server, or no answer from it
    exit_internal = 70,      // a fault of this program
    exit_no_output = 73,     // a file can't be written
    exit_no_dialog = 75,     // no receiver is named, and there is no dialog to ask for one
    exit_refused = 76,       // the server refused a step
    exit_no_permission = 77, // a wrong password, an unknown user, a password that others may read
    exit_interrupted = 130,
};

class failure : public std::runtime_error {
  public:
    // `sentence` is UTF-8, without a full stop and without a line break.
    failure(exit_code code, const std::string& sentence)
        : std::runtime_error(sentence), code_(code) {}

    exit_code code() const { return code_; }

  private:
    exit_code code_;
};

} // namespace zerdix::app

#endif
