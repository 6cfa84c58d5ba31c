// SPDX-License-Identifier: MIT
#include "common/settings.h"

#include <gtest/gtest.h>

#include "platform/scratch.h"

using namespace zerdix;

namespace {

class Settings : public testing::Test {
  protected:
    void set(const std::string& lines) { folder.write("zerdix.ini", "[Zerdix]\n" + lines + "\n"); }

    tests::scratch_folder folder;
    tests::environment_variable ini{"ZERDIX_INI", folder.write("zerdix.ini", "")};
};

} // namespace

TEST_F(Settings, AnEmptyFileGivesTheDefaults) {
    EXPECT_EQ(common::setting_user(), "zerdix");
    EXPECT_EQ(common::setting_host(), "alpha");
    EXPECT_EQ(common::setting_max_page_block_len(), 16384);
    EXPECT_EQ(common::setting_trace(), "0");
    EXPECT_EQ(common::setting_trace_file().path, "FAXTRACE.LOG");
    EXPECT_EQ(common::setting_error_file().path, "FAXERROR.LOG");
}

TEST_F(Settings, NamesBecomeWindows1252AndAreCutByCharacters) {
    std::string utf8, bytes;
    for (int i = 0; i < 29; ++i) {
        utf8 += "\xc3\xa4";
        bytes += "\xe4";
    }
    set("User=" + utf8 + "x\nHost=h\xc3\xb6st\nTracefile=/tmp/\xc3\xa4");
    EXPECT_EQ(common::setting_user(), bytes);
    EXPECT_EQ(common::setting_host(), "h\xf6st");
    EXPECT_EQ(common::setting_trace_file().path, "/tmp/\xc3\xa4");
}

TEST_F(Settings, TheBlockLengthIsTheNumberInSevenCharacters) {
    const struct {
        const char* text;
        std::int32_t value;
    } cases[] = {{"100", 100}, {"12345678901", 1234567}, {"none", 0},
                 {"", 0},      {"512 bytes", 512},       {"-5", -5},
                 {"+700", 700}};
    for (const auto& c : cases) {
        set("MaxPageBlockLen=" + std::string(c.text));
        EXPECT_EQ(common::setting_max_page_block_len(), c.value) << c.text;
    }
}

TEST_F(Settings, PathsAndSwitchAreCutAtTheirWidths) {
    const std::string path = "/" + std::string(300, 'p');
    set("Trace=1234\nTracefile=" + path + "\nLogDir=" + path);
    EXPECT_EQ(common::setting_trace(), "12");
    EXPECT_EQ(common::setting_trace_file().path, path.substr(0, 259));
    EXPECT_EQ(common::setting_error_file().path, path.substr(0, 259));
}

TEST_F(Settings, TheTracersFilesAreThePathsOfTheirOwnElseInTheFolderForLogs) {
    const tests::environment_variable home("HOME", "/home/of/test");
    const struct {
        const char* lines;
        const char* error_log;
        bool in_home;
    } cases[] = {{"LogDir=/logs", "/logs/FAXERROR.LOG", false},
                 {"LogDir=/logs\nErrorfile=/e", "/e", false},
                 {"LogDir=/logs\nErrorfile=", "/logs/FAXERROR.LOG", false},
                 {"LogDir=~/logs", "/home/of/test/logs/FAXERROR.LOG", true},
                 {"Errorfile=~/e", "/home/of/test/e", true},
                 {"LogDir=~", "/home/of/test/FAXERROR.LOG", true},
                 {"Errorfile=~other/e", "~other/e", false}};
    for (const auto& c : cases) {
        set(c.lines);
        EXPECT_EQ(common::setting_error_file().path, c.error_log) << c.lines;
        EXPECT_EQ(common::setting_error_file().in_home, c.in_home) << c.lines;
    }
}

// The settings of the build folder stand for those of a machine. They name an error log.
TEST_F(Settings, AFolderInTheUsersSettingsGoesBeforeAPathInTheMachines) {
    const tests::environment_variable unset("ZERDIX_INI", nullptr);
    const tests::environment_variable config("XDG_CONFIG_HOME", folder.path(""));
    const std::string of_the_machine = common::setting_error_file().path;
    EXPECT_NE(of_the_machine, "FAXERROR.LOG");
    folder.write("zerdix/zerdix.ini", "[Zerdix]\nHost=alpha\n");
    EXPECT_EQ(common::setting_error_file().path, of_the_machine);
    folder.write("zerdix/zerdix.ini", "[Zerdix]\nLogDir=/logs\n");
    EXPECT_EQ(common::setting_error_file().path, "/logs/FAXERROR.LOG");
}
