// SPDX-License-Identifier: MIT
// A client's session on a test server.
#ifndef ZERDIX_TESTS_SESSION_TEST_H
#define ZERDIX_TESTS_SESSION_TEST_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zerdix/zerdix.h>

#include "support/test_server.h"

namespace zerdix::testing {

class session_test : public ::testing::Test {
  protected:
    explicit session_test(bool demo_data = true) : server(demo_data) {
        session.setUserId("zerdix");
        session.setAlphaserver("127.0.0.1");
    }
    ~session_test() override { session.CleanupHostConnection(); }

    client* connect() { return session.GetClientAddr("127.0.0.1"); }

    test::test_server server;
    ZERDIX session;
};

// With a connection, whose making isn't among the calls.
class connected_test : public session_test {
  protected:
    explicit connected_test(bool demo_data = true) : session_test(demo_data) {
        EXPECT_NE(connect(), nullptr);
        server.clear_calls();
    }
};

} // namespace zerdix::testing

#endif
