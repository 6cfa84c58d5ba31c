// SPDX-License-Identifier: MIT
// Any bytes as the merge data of a job that has no server. The receivers are those that a second
// reading of the text finds, in its order; all else that the text sets stays in its range; a
// recipient group ends it, since its members can't be had.
#include <string>
#include <string_view>
#include <vector>

#include "require.h"
#include "sendfax/job.h"
#include "sendfax/receivers.h"

using namespace zerdix;

namespace {

struct reading {
    std::vector<std::string> receivers;
    bool last_page = false;
    bool asked_for_a_group = false;

    std::int32_t result() const {
        if (asked_for_a_group)
            return sendfax::failure;
        return last_page ? sendfax::declined : sendfax::success;
    }
};

// What stands behind a key: without leading blanks, at most 30 bytes, up to a NUL.
std::string value_of(std::string_view pair, std::string_view key) {
    std::string value(pair.substr(key.size()));
    value.erase(0, value.find_first_not_of(' '));
    value.resize(std::min<std::size_t>(value.size(), 30));
    return value.c_str();
}

void read_pair(std::string_view pair, reading& read) {
    read.last_page |= pair.starts_with("LAST_DOCPAGE");
    if (pair.starts_with("RECEIVERGROUP"))
        read.asked_for_a_group = !value_of(pair, "RECEIVERGROUP").empty();
    if (!pair.starts_with("PHONE"))
        return;
    std::string receiver = value_of(pair, "PHONE");
    if (!receiver.empty())
        read.receivers.push_back(std::move(receiver));
}

reading read_again(std::string_view text) {
    reading read;
    std::size_t at = text.find('#');
    while (at != std::string_view::npos && !read.asked_for_a_group) {
        const std::size_t end = text.find('#', at + 1);
        if (end == std::string_view::npos)
            break;
        read_pair(text.substr(at + 1, end - at - 1), read);
        at = text.find('#', end + 1);
    }
    return read;
}

void check_job(const reading& expected) {
    require(lPDCountReceiver == static_cast<std::int32_t>(expected.receivers.size()));
    for (std::size_t i = 0; i < expected.receivers.size(); ++i)
        require(ppReceiver[i] == expected.receivers[i]);
    require(pa_s_rec->priority >= 0);
    require(pa_s_rec->resolution >= 0 && pa_s_rec->resolution <= 2);
    require(pa_s_rec->comment.view().size() <= 30);
    require(sendfax::job().sPaperSource >= 0 && sendfax::job().sPaperSource <= 9);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    sendfax::release_receivers();
    *pa_s_rec = {};
    sendfax::job().sPaperSource = 0;
    const auto* text = reinterpret_cast<const char*>(data);
    const reading expected = read_again({text, size});
    require(SetFaxMergeData(text, static_cast<std::int32_t>(size)) == expected.result());
    check_job(expected);
    return 0;
}
