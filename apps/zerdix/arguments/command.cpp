// SPDX-License-Identifier: MIT
#include "arguments/command.h"

#include <optional>

#include <CLI/CLI.hpp>

namespace zerdix::app::cli {

namespace {

template <class Value>
CLI::Option* add(CLI::App& app, const char* names, Value& place, const std::string& description) {
    return app.add_option(names, place, description);
}

// Not the library's own optional, which an empty text leaves empty.
template <class Value>
CLI::Option* add(CLI::App& app, const char* names, std::optional<Value>& place,
                 const std::string& description) {
    return app.add_option_function<Value>(
        names, [&place](const Value& value) { place = value; }, description);
}

} // namespace

option option::required() const {
    return option(*known_->required());
}

option option::optional() const {
    return option(*known_->required(false));
}

option option::in_range(int least, int most) const {
    return option(*known_->check(CLI::Range(least, most).description("")));
}

// The name of the check holds the words, which is where shell completion finds them; the help text
// is left as it was written.
option option::one_of(const std::vector<std::string>& words) const {
    return option(*known_->check(
        CLI::Validator(CLI::IsMember(words)).description("").name(CLI::detail::join(words, "|"))));
}

option option::excludes(option other) const {
    return option(*known_->excludes(other.known_));
}

option option::needs(option other) const {
    return option(*known_->needs(other.known_));
}

option option::takes(int least, int most) const {
    return option(*known_->expected(least, most));
}

option option::repeats() const {
    return option(*known_->expected(1)->allow_extra_args(false)->multi_option_policy(
        CLI::MultiOptionPolicy::TakeAll));
}

option option::under_heading(const char* heading) const {
    return option(*known_->group(heading));
}

command command::add_command(const char* name, const std::string& description) const {
    return command(*known_->add_subcommand(name, description));
}

command command::add_group(const char* name, const char* description) const {
    return command(*known_->add_subcommand(name, description)->require_subcommand(1));
}

template <class Place>
option command::add_option(const char* names, Place& place, const std::string& description,
                           const char* shape) const {
    return option(*add(*known_, names, place, description)->option_text(shape));
}

#define ZERDIX_PLACE(type)                                                                         \
    template option command::add_option(const char*, type&, const std::string&, const char*) const
ZERDIX_PLACE(std::string);
ZERDIX_PLACE(int);
ZERDIX_PLACE(std::optional<std::string>);
ZERDIX_PLACE(std::optional<int>);
ZERDIX_PLACE(std::vector<std::string>);
#undef ZERDIX_PLACE

option command::add_flag(const char* names, bool& place, const char* description) const {
    return option(*known_->add_flag(names, place, description));
}

option command::add_flag(const char* names, std::function<void()> named,
                         const char* description) const {
    return option(*known_->add_flag_callback(names, std::move(named), description));
}

command command::alias(const char* name) const {
    return command(*known_->alias(name));
}

command command::footer(const std::string& text) const {
    return command(*known_->footer(text));
}

command command::callback(std::function<void()> work) const {
    return command(*known_->callback(std::move(work)));
}

} // namespace zerdix::app::cli
