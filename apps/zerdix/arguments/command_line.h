// SPDX-License-Identifier: MIT
// The whole command line of a program: read, and run.
#ifndef ZERDIX_APP_ARGUMENTS_COMMAND_LINE_H
#define ZERDIX_APP_ARGUMENTS_COMMAND_LINE_H

#include <memory>

#include "arguments/command.h"

namespace zerdix::app::cli {

class command_line {
  public:
    // With --help and --version, and no commands yet.
    command_line(const char* name, const char* description, const char* version);

    // What the commands are added to.
    command top() const { return command(*known_); }

    // Runs the command that is named, and gives the program's exit code. Wrong usage is told on
    // standard error; what the command throws comes out.
    int run(int argc, char** argv) const;

  private:
    std::shared_ptr<CLI::App> known_;
};

} // namespace zerdix::app::cli

#endif
