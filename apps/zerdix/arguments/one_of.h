// SPDX-License-Identifier: MIT
// An option or argument that takes one of a few words.
#ifndef ZERDIX_APP_ARGUMENTS_ONE_OF_H
#define ZERDIX_APP_ARGUMENTS_ONE_OF_H

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace zerdix::app {

// A check for it. Its name holds the words with a "|" between them, which is where shell completion
// finds them; the help text is left as it was written.
inline CLI::Validator one_of(const std::vector<std::string>& words) {
    return CLI::Validator(CLI::IsMember(words)).description("").name(CLI::detail::join(words, "|"));
}

} // namespace zerdix::app

#endif
