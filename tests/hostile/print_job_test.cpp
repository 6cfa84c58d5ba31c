// SPDX-License-Identifier: MIT
// A fax job, a telex and a job given up, with trouble at each of their calls.

#include <gtest/gtest.h>

#include "hostile/faults.h"
#include "sendfax/job_fixture.h"

namespace zerdix::testing {
namespace {

struct job {
    const char* name;
    std::vector<std::int32_t> (*run)(); // the results of its steps
};

std::vector<std::int32_t> fax() {
    return {TransmissionDlg(nullptr, "Angebot", 1), merge("#PHONE 030 1# #RECEIVERGROUP kunden#"),
            store(driver_block(64, 8)), store(driver_block(64, 8)), SendFaxDoc()};
}
std::vector<std::int32_t> telex() {
    return {TransmissionDlg(nullptr, "Angebot", 0), merge("#PHONE 030 1# #PHONE 030 2#"),
            SendTelex("text", 4)};
}
std::vector<std::int32_t> given_up() {
    return {TransmissionDlg(nullptr, "Angebot", 1), store(driver_block(64, 8)), DeleteFaxDoc()};
}

class HostilePrintJob : public ::testing::TestWithParam<job> {
  protected:
    HostilePrintJob() { sendfax::install_send_dialog(nullptr); }

    // The worst result of a job's steps; afterwards there is no job, and another can begin.
    std::int32_t run(int n, const fault* met) {
        on.begin(n, met);
        std::int32_t worst = 0;
        for (const std::int32_t result : GetParam().run()) {
            EXPECT_TRUE(result == 0 || result == 4 || result == 8) << result;
            worst = std::max(worst, result);
        }
        EXPECT_NE(AbandonFaxDoc(), -1);
        EXPECT_EQ(pzerdix, nullptr);
        EXPECT_EQ(lPDCountReceiver, 0);
        return worst;
    }

    troubled_server on;
};

// What a job goes on without: the time zone, comments, log lines, the removal of what it made, and
// a group's member whose entry can't be had.
bool is_aside(std::uint32_t procedure) {
    return procedure == 89 || procedure == 23 || procedure == 22 || procedure == 6 ||
           procedure == 82;
}

TEST_P(HostilePrintJob, EndsInAResultAndLeavesNothingBehind) {
    ASSERT_EQ(run(-1, nullptr), 0);
    const int made = on.calls();
    ASSERT_GT(made, 5);
    for (int n = 0; n < made; ++n)
        for (const fault& met : quick_faults()) {
            const std::int32_t worst = run(n, &met);
            const std::uint32_t procedure = on.procedure(n);
            const std::string what = std::string{met.name} + ", call " + std::to_string(n) +
                                     ", procedure " + std::to_string(procedure);
            const bool fails = met.expected == outcome::fails || met.expected == outcome::lost;
            const bool matters =
                met.expected == outcome::goes_well || (fails && !is_aside(procedure));
            EXPECT_TRUE(!matters || worst == (fails ? 8 : 0)) << what << ": " << worst;
        }
    for (int n = 0; n < made; ++n)
        for (std::size_t k = 0; k < 40; k += 3) {
            const fault cut = connection_cut_at(k);
            run(n, &cut);
        }
    EXPECT_EQ(run(-1, nullptr), 0);
}

INSTANTIATE_TEST_SUITE_P(Of, HostilePrintJob,
                         ::testing::Values(job{"Fax", &fax}, job{"Telex", &telex},
                                           job{"GivenUp", &given_up}),
                         [](const auto& chosen) { return chosen.param.name; });

} // namespace
} // namespace zerdix::testing
