// SPDX-License-Identifier: MIT
#include "platform/profile.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/profile_text.h"
#include "platform/scratch.h"

using namespace zerdix;
using platform::profile_string;
using platform::write_profile_string;
using tests::environment_variable;

namespace {

class Profile : public testing::Test {
  protected:
    std::string host() const { return profile_string("Zerdix", "Host", "default", 30); }

    tests::scratch_folder folder;
    environment_variable ini{"ZERDIX_INI", folder.path("own.ini")};
    environment_variable xdg{"XDG_CONFIG_HOME", folder.path("config")};
    environment_variable home{"HOME", folder.path("home")};
};

} // namespace

TEST_F(Profile, TheUsersFileIsLookedForAtEachCall) {
    const environment_variable unset("ZERDIX_INI", nullptr);
    EXPECT_EQ(host(), "default");
    folder.write("home/.config/zerdix/zerdix.ini", "[Zerdix]\nHost=home\n");
    EXPECT_EQ(host(), "default"); // XDG_CONFIG_HOME stands in place of ~/.config
    {
        const environment_variable no_xdg("XDG_CONFIG_HOME", nullptr);
        EXPECT_EQ(host(), "home");
        const environment_variable relative("XDG_CONFIG_HOME", "config");
        EXPECT_EQ(host(), "home");
    }
    folder.write("config/zerdix/zerdix.ini", "[Zerdix]\nHost=user\n");
    EXPECT_EQ(host(), "user");
}

// The settings of the build folder stand for those of a machine: a test can't write into /etc.
TEST_F(Profile, EachKeyIsLookedForInTheUsersFileFirst) {
    const environment_variable unset("ZERDIX_INI", nullptr);
    const auto value = [](const char* key) { return profile_string("Zerdix", key, "none", 80); };
    const std::string language = value("Language32");
    EXPECT_NE(language, "none");
    EXPECT_NE(value("Errorfile"), "none");
    EXPECT_GT(platform::find_profile_entry("Zerdix", "Language32")->place, 0u);
    EXPECT_EQ(platform::profile_files()[1], "/etc/zerdix/zerdix.ini");

    // Written to the user's file, which is made.
    ASSERT_TRUE(write_profile_string("Zerdix", "Errorfile", ""));
    EXPECT_EQ(folder.read("config/zerdix/zerdix.ini"), "[Zerdix]\nErrorfile=\n");
    EXPECT_EQ(value("Errorfile"), "");
    EXPECT_EQ(value("Language32"), language);
    ASSERT_TRUE(write_profile_string("Zerdix", "Language32", "mine"));
    const auto mine = platform::find_profile_entry("Zerdix", "Language32");
    EXPECT_EQ(mine->value + " " + mine->file, "mine " + folder.path("config/zerdix/zerdix.ini"));
    EXPECT_EQ(mine->place, 0u);

    const environment_variable own("ZERDIX_INI", folder.path("own.ini"));
    EXPECT_EQ(value("Language32"), "none"); // the file that is named is the only one
}

TEST_F(Profile, AFolderOrNoiseInPlaceOfTheFileGivesDefaults) {
    std::filesystem::create_directory(folder.path("own.ini"));
    EXPECT_EQ(host(), "default");
    EXPECT_FALSE(write_profile_string("Zerdix", "Host", "x"));
    std::filesystem::remove(folder.path("own.ini"));
    folder.write("own.ini", std::string_view("\0[[[\n=\n]\xff[Zerdix\nHost=x", 23));
    EXPECT_EQ(host(), "default");
    std::filesystem::remove(folder.path("own.ini"));
    ASSERT_EQ(::mkfifo(folder.path("own.ini").c_str(), 0600), 0);
    ::alarm(10);
    EXPECT_EQ(host(), "default"); // at once
    EXPECT_FALSE(write_profile_string("Zerdix", "Host", "x"));
    EXPECT_TRUE(std::filesystem::is_fifo(folder.path("own.ini")));
}

TEST_F(Profile, ValuesAreTrimmedUnquotedAndCut) {
    const struct {
        const char* line;
        const char* value;
    } cases[] = {
        {"Host=alpha", "alpha"},
        {"  HOST \t= \t alpha beta \t", "alpha beta"},
        {"host=\" alpha \"", " alpha "},
        {"Host='alpha'", "alpha"},
        {"Host=\"\"alpha\"\"", "\"alpha\""},
        {"Host=\"alpha", "\"alpha"},
        {"Host=\"alpha'", "\"alpha'"},
        {"Host=\"", "\""},
        {"Host=a=b;c", "a=b;c"},
        {"Host=", ""},
        {"Host=one\nHost=two", "one"},
        {"Host\nHost=two", "two"},
        {";Host=no\n#Host=no\nHostname=no\nHost=yes", "yes"},
        {"Host=alpha\r", "alpha"},
    };
    for (const auto& c : cases) {
        folder.write("own.ini", "\xef\xbb\xbf[Other]\nHost=no\n[ zerDIX ]\n" + std::string(c.line));
        EXPECT_EQ(host(), c.value) << c.line;
    }
    EXPECT_EQ(profile_string("Zerdix", "Host", "", 3), "al");
    EXPECT_EQ(profile_string("Zerdix", "None", "default", 3), "de");
    EXPECT_EQ(profile_string("Zerdix", "Host", "", 1), "");
    EXPECT_EQ(profile_string("Zerdix", "Host", "x", 0), "");
}

TEST_F(Profile, WritingChangesOneValueAndNoOtherByte) {
    const std::string before =
        "; first\n\n[Other]\nHost=o\n# note\n[Zerdix]\n junk\nhOSt  =  old \n"
        "Unknown = kept \n\n[Last]\nz=1\n; end";
    folder.write("own.ini", before);
    ::chmod(folder.path("own.ini").c_str(), 0640);
    ASSERT_TRUE(write_profile_string("Zerdix", "Host", "new"));
    ASSERT_TRUE(write_profile_string("ZERDIX", "TBookId", "common"));
    ASSERT_TRUE(write_profile_string("Fresh", "a", "b"));
    EXPECT_EQ(folder.read("own.ini"),
              "; first\n\n[Other]\nHost=o\n# note\n[Zerdix]\n junk\nhOSt  =new\n"
              "Unknown = kept \nTBookId=common\n\n[Last]\nz=1\n; end\n[Fresh]\na=b\n");
    struct stat info = {};
    ASSERT_EQ(::stat(folder.path("own.ini").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST_F(Profile, WhatIsWrittenIsReadBack) {
    for (const char* value : {"", " padded ", "\"quoted\"", "a\"b", "'", "a=b", "[x]", ";c"}) {
        ASSERT_TRUE(write_profile_string("Zerdix", "Host", value));
        EXPECT_EQ(host(), value);
    }
    EXPECT_FALSE(write_profile_string("Zerdix", "Host", "a\n[Other]"));
    EXPECT_EQ(host(), ";c");
}

TEST_F(Profile, KeepsTheFilesLineEnds) {
    EXPECT_EQ(platform::with_value("[Z]\r\na=1\r\n", "Z", "a", "2"), "[Z]\r\na=2\r\n");
    EXPECT_EQ(platform::with_value("[Z]\r\na=1\r\n", "Z", "b", "2"), "[Z]\r\na=1\r\nb=2\r\n");
    EXPECT_EQ(platform::with_value("[Z]", "Z", "b", "2"), "[Z]\nb=2\n");
}

TEST_F(Profile, AReaderFindsTheOldFileOrTheNewOne) {
    folder.write("own.ini", "[Zerdix]\nHost=old\n");
    std::ifstream reader(folder.path("own.ini"));
    ASSERT_TRUE(write_profile_string("Zerdix", "Host", "new"));
    const std::string seen{std::istreambuf_iterator<char>(reader), {}};
    EXPECT_EQ(seen, "[Zerdix]\nHost=old\n");
    const std::filesystem::directory_iterator files(folder.path(""));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1); // nothing left beside it
}

TEST_F(Profile, AFileThatIsNamedIsMadeWithItsFolder) {
    folder.write("config/zerdix/zerdix.ini", "[Zerdix]\nHost=user\n");
    const environment_variable named("ZERDIX_INI", folder.path("some/where/own.ini"));
    ASSERT_TRUE(write_profile_string("Zerdix", "Host", "made"));
    EXPECT_EQ(folder.read("some/where/own.ini"), "[Zerdix]\nHost=made\n");
    EXPECT_EQ(folder.read("config/zerdix/zerdix.ini"), "[Zerdix]\nHost=user\n");
}

TEST_F(Profile, ASymbolicLinkStays) {
    folder.write("real.ini", "[Zerdix]\nHost=old\n");
    std::filesystem::create_symlink("real.ini", folder.path("own.ini"));
    ASSERT_TRUE(write_profile_string("Zerdix", "Host", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("own.ini")));
    EXPECT_EQ(folder.read("real.ini"), "[Zerdix]\nHost=new\n");
}
