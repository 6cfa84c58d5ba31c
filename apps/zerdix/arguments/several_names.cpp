// SPDX-License-Identifier: MIT
#include "arguments/several_names.h"

#include <cstdio>
#include <optional>

#include "output/failure.h"

namespace zerdix::app {

namespace {

bool ends_the_walk(const failure& error) {
    return error.code() == exit_unavailable || error.code() == exit_no_host;
}

std::string undone(std::size_t all, std::size_t done) {
    return std::to_string(all - done) + " of " + std::to_string(all) +
           (all - done == 1 ? " wasn't done" : " weren't done");
}

} // namespace

void for_each_name(const report& out, const std::vector<std::string>& names,
                   const std::function<named_act(const std::string&)>& work) {
    json done_objects = json::array();
    std::optional<failure> first;
    for (const std::string& name : names) {
        try {
            named_act done = work(name);
            if (!out.is_json())
                out.done(done.sentence);
            done_objects.push_back(std::move(done.object));
        } catch (const failure& error) {
            if (names.size() > 1)
                std::fprintf(stderr, "zerdix: %s\n", error.what());
            if (!first)
                first = error;
            if (ends_the_walk(error))
                break;
        }
    }
    if (out.is_json() && !done_objects.empty())
        out.rows(done_objects, {}, "");
    if (first && names.size() > 1)
        throw failure(first->code(), undone(names.size(), done_objects.size()));
    if (first)
        throw failure(*first);
}

} // namespace zerdix::app
