// Several things that the user named, one after the other: what can't be done is told, and the rest
// is done all the same.
#ifndef ZERDIX_APP_SHELL_EACH_NAMED_H
#define ZERDIX_APP_SHELL_EACH_NAMED_H

#include <functional>
#include <string>
#include <vector>

#include "shell/report.h"

namespace zerdix::app {

// What was done to one of them: a sentence for a reader, an object for JSON.
struct deed {
    std::string sentence;
    json object;
};

// Runs `work` for each name. Reports a sentence for each deed, or one array of all of them. When
// some couldn't be done, throws failure in the end, with the code of the first. A connection that
// is gone ends the walk.
void each_named(const report& out, const std::vector<std::string>& names,
                const std::function<deed(const std::string&)>& work);

} // namespace zerdix::app

#endif
