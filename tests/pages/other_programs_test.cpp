// SPDX-License-Identifier: MIT
// The codec against programs that other people wrote.
#include "codec_calls.h"
#include "naive_codec.h"
#include "platform/scratch.h"

#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include <gmock/gmock.h>

namespace {

using codec::bytes;

class other_programs : public testing::Test {
  protected:
    // What the command, a filter, makes of the input. Empty when it fails.
    std::optional<bytes> filter(const std::string& command, const bytes& input) {
        folder_.write("in.Z", {reinterpret_cast<const char*>(input.data()), input.size()});
        const auto place = "cd " + folder_.path().string() + " && ";
        const int status = std::system((place + command + " <in.Z >out 2>err").c_str());
        // 2 of compress: done, but the output isn't smaller
        if (!WIFEXITED(status) || (WEXITSTATUS(status) != 0 && WEXITSTATUS(status) != 2))
            return std::nullopt;
        return codec::text_bytes(folder_.read("out"));
    }

    static bool installed(const std::string& program) {
        return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
    }

  private:
    zerdix::tests::scratch_folder folder_;
};

std::vector<bytes> inputs() {
    return {codec::text_bytes("x"),
            codec::repeated("xyz", 100000),
            codec::page_like(2286, 1),
            codec::random_bytes(800000, 1),
            codec::random_bytes(700000, 2, 3),
            bytes(2000000, 0)};
}

TEST_F(other_programs, read_our_streams) {
    for (const std::string program : {"compress -dc", "uncompress -c", "gzip -dc"}) {
        if (!installed(program.substr(0, program.find(' '))))
            GTEST_SKIP() << program << " isn't installed";
        for (const auto& input : inputs()) {
            const auto output = filter(program, *codec::compress(input));
            ASSERT_TRUE(output) << program;
            EXPECT_TRUE(*output == input) << program << " of " << input.size() << " bytes";
        }
    }
}

TEST_F(other_programs, are_read_by_us) {
    if (!installed("compress"))
        GTEST_SKIP() << "compress isn't installed";
    // Not 9: what this program writes then, neither itself nor others can read.
    for (int width = 10; width <= 16; ++width) {
        for (const auto& input : inputs()) {
            const auto stream = filter("compress -cf -b " + std::to_string(width), input);
            ASSERT_TRUE(stream);
            ASSERT_EQ((*stream)[2], 0x80 | width);
            EXPECT_TRUE(codec::expand(*stream) == naive::mirror(input))
                << width << " bits, " << input.size() << " bytes";
        }
    }
}

} // namespace
