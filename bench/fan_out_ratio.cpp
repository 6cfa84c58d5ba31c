// SPDX-License-Identifier: MIT
// The fan-out of a print job against the same number of calls made directly through the RPC
// library: the same bytes to the same procedure of the same server, which answers at once.
//
// SendFaxDoc is timed whole: the send jobs, two log lines, the deletion of the document and the
// closing of the connection. The peer is a loop of clnt_call on an open connection, nothing else.
// The two take turns, and the best of each counts.
#include <string>
#include <vector>

#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "bench/direct_calls.h"
#include "bench/instant_server.h"
#include "support/test_server.h"

using namespace zerdix;
using bench::require;

namespace {

constexpr int receivers = 1000;
constexpr int rounds = 40;
constexpr double limit = 4.0 / 3; // within a third
constexpr std::uint32_t calls_beside = 3;

const std::vector<unsigned char>& small_page() {
    static const std::vector<unsigned char> page{0, 0, 0, 8, 0, 0, 0, 1, 0xAA};
    return page;
}

std::string receivers_text() {
    std::string text;
    for (int i = 0; i < receivers; ++i)
        text += "#PHONE 0049 30 " + std::to_string(100000 + i) + "#";
    return text;
}

void open_job(const std::string& merge_data) {
    require(TransmissionDlg(nullptr, "Fan-out", 1) == 0, "TransmissionDlg");
    require(SetFaxMergeData(merge_data.data(), static_cast<std::int32_t>(merge_data.size())) == 0,
            "SetFaxMergeData");
    require(StoreFaxPage(small_page().data(), static_cast<std::int32_t>(small_page().size()), 0,
                         0) == 0,
            "StoreFaxPage");
}

} // namespace

int main() {
    const test::scratch_folder folder;
    const test::client_environment environment{folder.path()};
    bench::keep_to_one_processor();
    const bench::instant_server server;
    bench::direct_client direct{environment.program()};
    a_send_doc_i send_job{};
    bench::bytes_on_wire argument = bench::encoded(send_job);
    bench::bytes_on_wire answer(4); // a long
    const std::string merge_data = receivers_text();
    bench::best_time fan_out;
    bench::best_time calls;
    for (int round = 0; round < rounds; ++round) {
        open_job(merge_data);
        const std::uint32_t before = server.calls();
        fan_out.run([] { require(SendFaxDoc() == 0, "SendFaxDoc"); });
        require(server.calls() - before == receivers + calls_beside, "one call each");
        calls.run([&] {
            for (int i = 0; i < receivers; ++i)
                direct.call(wire::proc::a_send_doc_1::number, argument, answer);
        });
    }
    const double ratio = fan_out.microseconds() / calls.microseconds();
    std::printf("fan-out to %d receivers, best of %d runs each, taking turns\n", receivers, rounds);
    std::printf("  SendFaxDoc            %9.0f us, %d remote calls and %u beside\n",
                fan_out.microseconds(), receivers, calls_beside);
    std::printf("  clnt_call, directly   %9.0f us, %d calls of %zu bytes\n", calls.microseconds(),
                receivers, argument.size());
    return bench::bar("fan-out : direct calls", ratio, limit, "") ? 0 : 1;
}
