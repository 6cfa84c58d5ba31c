// SPDX-License-Identifier: MIT
// Carries out a command for several names, one after the other. It tells of each that fails, and
// goes on with the rest.
#ifndef ZERDIX_APP_ARGUMENTS_SEVERAL_NAMES_H
#define ZERDIX_APP_ARGUMENTS_SEVERAL_NAMES_H

#include <functional>
#include <string>
#include <vector>

#include "output/report.h"

namespace zerdix::app {

// What was done to one of them: a sentence for a reader, an object for JSON.
struct named_act {
    std::string sentence;
    json object;
};

// Runs `work` for each name. Reports a sentence for each named_act, or one array of all of them.
// When some couldn't be done, throws failure in the end, with the code of the first. A connection
// that is gone ends the walk.
void for_each_name(const report& out, const std::vector<std::string>& names,
                   const std::function<named_act(const std::string&)>& work);

} // namespace zerdix::app

#endif
