// SPDX-License-Identifier: MIT
// Every operation of the exported classes against every kind of trouble, at each of its calls.

#include <gtest/gtest.h>
#include <optional>

#include "hostile/faults.h"
#include "hostile/operations.h"
#include "rpc/session.h"
#include "rpc/wire/transport.h"

namespace zerdix::testing {
namespace {

using namespace std::chrono_literals;

struct exported_class {
    const char* name;
    std::vector<operation> (*table)();
};

class HostileServer : public ::testing::TestWithParam<exported_class> {
  protected:
    ~HostileServer() override { disconnect(); }

    void disconnect() {
        if (rpc::session().pclient != nullptr)
            clnt_destroy(rpc::session().pclient);
        rpc::session().pclient = nullptr;
    }

    // A handle whose calls take at most so long: the last run's, where that can go on.
    client* connected(timeval call_time) {
        if (!goes_on)
            disconnect();
        client* handle = std::exchange(rpc::session().pclient, nullptr);
        if (handle == nullptr)
            handle = wire::connect(on.server.address(), on.server.program());
        clnt_control(handle, CLSET_TIMEOUT, reinterpret_cast<char*>(&call_time));
        return handle;
    }

    // One run on a session without a past; `met` befalls the n-th call.
    std::int64_t run(const operation& what, int n, const fault* met, timeval call_time = {5, 0}) {
        client* handle = connected(call_time);
        on.begin(n, met);
        goes_on = met == nullptr || met->expected == outcome::fails;
        rpc::session() = {};
        clients fresh;
        rpc::session().pclient = handle;
        return what.run(fresh);
    }

    int calls_of(const operation& what) {
        EXPECT_EQ(run(what, -1, nullptr), what.good) << what.name;
        return on.calls();
    }

    static std::int64_t at(const std::vector<std::int64_t>& values, int n) {
        return values[std::min(static_cast<std::size_t>(n), values.size() - 1)];
    }

    // Nothing where anything may come of it.
    std::optional<std::int64_t> expected(const operation& what, int n, int made,
                                         outcome met) const {
        const auto& lost = what.lost.empty() ? what.failed : what.lost;
        switch (met) {
        case outcome::goes_well:
            return what.good;
        case outcome::refused:
            return at(what.refused, n);
        case outcome::fails:
            return at(what.failed, n);
        case outcome::lost:
            return at(lost, n);
        case outcome::ends_later:
            return made > n + 1 ? at(lost, n + 1) : what.good;
        case outcome::dynamic:
            return all_answers().at(on.procedure(n)).is_dynamic ? std::optional{at(what.failed, n)}
                                                                : std::nullopt;
        default:
            return std::nullopt;
        }
    }

    void expect_one(const operation& what, int n, int made, const fault& met,
                    timeval call_time = {5, 0}) {
        std::int64_t result = run(what, n, &met, call_time);
        if (call_time.tv_sec == 0 && result != expected(what, n, made, met.expected))
            result = run(what, n, &met, {1, 0}); // sound calls may need longer on a busy machine
        ASSERT_EQ(result, expected(what, n, made, met.expected).value_or(result))
            << what.name << ", call " << n << ": " << met.name;
    }

    troubled_server on;
    bool goes_on = true; // what the last run leaves of the connection
};

TEST_P(HostileServer, TroubleIsTheResultThatOperationsTell) {
    for (const operation& what : GetParam().table()) {
        const int made = calls_of(what);
        for (int n = 0; n < made; ++n)
            for (const fault& met : quick_faults())
                expect_one(what, n, made, met);
    }
}

// The time-out of a call ends the session's connection, and whatever follows fails without one.
TEST_P(HostileServer, EndlessRepliesAreGivenUp) {
    std::vector<operation> all = GetParam().table();
    std::erase_if(all, [](const operation& what) { return what.name == std::string{"login"}; });
    for (const operation& what : all) {
        const int made = calls_of(what);
        for (const fault& met : slow_faults())
            expect_one(what, made - 1, made, met, {0, 60'000});
    }
}

fault record_cut_at(std::size_t k) {
    return {"a record that ends early", outcome::fails,
            [k](const auto& call, const auto& of, auto& client) {
                byte_vector cut = reply_to(call, of.sound).bytes();
                cut.resize(k);
                client.send(
                    record_of(wire_bytes{}.raw({reinterpret_cast<const char*>(cut.data()), k})));
            }};
}

// Near both ends of a reply everywhere, between them at odd places.
bool worth_a_cut(std::size_t k, std::size_t size, std::size_t margin, std::size_t stride) {
    return k < margin || k + margin > size || k % stride == 0;
}

TEST_P(HostileServer, ACutReplyIsAFailedCall) {
    for (const operation& what : GetParam().table()) {
        const int made = calls_of(what);
        for (int n = 0; n < made; ++n) {
            const std::size_t size = 24 + all_answers().at(on.procedure(n)).sound.size();
            for (std::size_t k = 0; k < size && !HasFatalFailure(); ++k) {
                if (worth_a_cut(k, size, 500, 7))
                    expect_one(what, n, made, record_cut_at(k));
                if (worth_a_cut(k, size, 36, 97))
                    expect_one(what, n, made, connection_cut_at(k));
            }
        }
    }
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Of, HostileServer,
                         ::testing::Values(exported_class{"ZERDIX", &session_operations},
                                           exported_class{"JOURNAL", &journal_operations},
                                           exported_class{"TELEBOOK", &book_operations}),
                         [](const auto& chosen) { return chosen.param.name; });

} // namespace zerdix::testing
