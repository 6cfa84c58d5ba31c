// SPDX-License-Identifier: MIT
// Commands, their options and arguments. It is a thin face of the library that reads command lines,
// which takes longer to compile than a command does: only sources of this folder, and the one that
// looks at the whole command line for completion, include it.
//
// Commands and options are handles, as cheap as pointers. What they stand for lives as long as the
// command_line; the places that take the values must live until it has run.
#ifndef ZERDIX_APP_ARGUMENTS_COMMAND_H
#define ZERDIX_APP_ARGUMENTS_COMMAND_H

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace zerdix::app::cli {

// An option, a flag or an argument. Each function is a condition on it.
class option {
  public:
    explicit option(CLI::Option& known) : known_(&known) {}

    option required() const;
    option optional() const; // an argument that may be left out
    option in_range(int least, int most) const;
    // Only these words will do; shell completion offers them.
    option one_of(const std::vector<std::string>& words) const;
    option excludes(option other) const;
    option needs(option other) const;
    // A list that takes so many values at once.
    option takes(int least, int most) const;
    // A list that takes one value each time it is named.
    option repeats() const;
    option under_heading(const char* heading) const;

  private:
    CLI::Option* known_;
};

class command {
  public:
    explicit command(CLI::App& known) : known_(&known) {}

    // A command below this one.
    command add_command(const char* name, const std::string& description) const;
    // One that is only a name for the commands below it, and prints its help without one.
    command add_group(const char* name, const char* description) const;

    // An option with a value, for which `shape` stands in the help text. A place is a std::string,
    // an int, a std::optional of one of them, which stays empty when the option isn't named, or a
    // list of strings.
    template <class Place>
    option add_option(const char* names, Place& place, const std::string& description,
                      const char* shape = "TEXT") const;

    // An argument; a list takes one value or more.
    template <class Place>
    option add_argument(const char* name, Place& place, const std::string& description) const {
        return add_option(name, place, description, " ").required();
    }
    option add_argument(const char* name, std::vector<std::string>& places,
                        const std::string& description, const char* shape = "...") const {
        return add_option(name, places, description, shape).required();
    }

    option add_flag(const char* names, bool& place, const char* description) const;
    option add_flag(const char* names, std::function<void()> named, const char* description) const;

    command alias(const char* name) const;
    // The text below the options in its help.
    command footer(const std::string& text) const;
    // What it does. May throw failure.
    command callback(std::function<void()> work) const;

    CLI::App& known() const { return *known_; }

  private:
    CLI::App* known_;
};

} // namespace zerdix::app::cli

#endif
