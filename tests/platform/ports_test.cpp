// SPDX-License-Identifier: MIT
#include <arpa/inet.h>
#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "platform/append_file.h"
#include "platform/host_lookup.h"
#include "platform/message_box.h"
#include "platform/scratch.h"
#include "platform/tick.h"

using namespace zerdix;

TEST(HostLookup, LoopbackHasAnAddressAndAName) {
    const auto by_name = platform::host_by_name("localhost");
    ASSERT_TRUE(by_name.found()) << by_name.error;
    EXPECT_EQ(by_name.address, htonl(INADDR_LOOPBACK));
    const auto by_address = platform::host_by_address("127.0.0.1");
    ASSERT_TRUE(by_address.found()) << by_address.error;
    EXPECT_EQ(by_address.address, htonl(INADDR_LOOPBACK));
}

// Neither leaves the machine: a name with a blank and the broadcast address have no server.
TEST(HostLookup, FailuresCarryAReason) {
    EXPECT_FALSE(platform::host_by_name("no such host").found());
    const auto odd = platform::host_by_address("3com");
    EXPECT_FALSE(odd.found());
    EXPECT_EQ(odd.address, INADDR_NONE);
}

TEST(Tick, CountsMilliseconds) {
    const std::uint32_t before = platform::tick();
    ::usleep(20000);
    const std::uint32_t passed = platform::tick() - before;
    EXPECT_GE(passed, 20u);
    EXPECT_LT(passed, 10000u);
}

TEST(MessageBox, DefaultWritesOneUtf8LineToStandardError) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    platform::message_box().show("zu gro\xdf\nnoch eine Zeile", "Fax");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Fax: zu gro\xc3\x9f noch eine Zeile\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// A process that merely loads the library must live on, whoever reads its messages or doesn't.
TEST(MessageBox, NeitherWaitsForAReaderNorDiesOfOneThatHasGone) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_NONBLOCK), 0);
    const int saved = ::dup(STDERR_FILENO);
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[1]);
    std::string full(65536, 'x');
    while (::write(STDERR_FILENO, full.data(), full.size()) > 0) {
    }
    ::fcntl(STDERR_FILENO, F_SETFL, 0);
    ::alarm(10);
    platform::message_box().show("nobody reads", "Fax");
    EXPECT_EQ(::read(ends[0], full.data(), full.size()), 65536);
    platform::message_box().show(std::string(70000, 'y'), "Fax");
    EXPECT_EQ(::read(ends[0], full.data(), full.size()), PIPE_BUF);
    ::close(ends[0]);
    platform::message_box().show("nobody is there", "Fax");
    ::dup2(saved, STDERR_FILENO);
    ::close(saved);
}

TEST(TraceFile, CreatesAppendsAndTellsWhyNot) {
    const tests::scratch_folder folder;
    const std::string path = folder.path("trace");
    auto& files = platform::append_files();
    EXPECT_FALSE(files.exists(path.c_str()));
    EXPECT_EQ(files.open_at_end(path.c_str()).error, ENOENT);
    for (const char* text : {"one", "two"}) {
        const auto opened = files.exists(path.c_str()) ? files.open_at_end(path.c_str())
                                                       : files.create(path.c_str());
        ASSERT_GT(opened.handle, STDERR_FILENO);
        files.write(opened.handle, text);
        EXPECT_THAT(folder.read("trace"), testing::EndsWith(text)); // unbuffered
        files.close(opened.handle);
    }
    EXPECT_EQ(folder.read("trace"), "onetwo");
    const auto failed = files.create(folder.path("no/such/folder").c_str());
    EXPECT_EQ(failed.handle, platform::append_file_port::invalid);
    EXPECT_EQ(failed.error, ENOENT);
    files.write(failed.handle, "lost");
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.open_at_end(folder.path("pipe").c_str()).error, ENXIO); // at once
}

TEST(TraceFile, NeverTakesTheNumberOfAStandardStream) {
    const tests::scratch_folder folder;
    const int saved = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);
    const auto opened = platform::append_files().create(folder.path("trace").c_str());
    const bool stdin_is_free = ::fcntl(STDIN_FILENO, F_GETFD) < 0;
    if (saved >= 0)
        ::dup2(saved, STDIN_FILENO);
    ::close(saved);
    EXPECT_GT(opened.handle, STDERR_FILENO);
    EXPECT_TRUE(stdin_is_free);
    platform::append_files().close(opened.handle);
}
