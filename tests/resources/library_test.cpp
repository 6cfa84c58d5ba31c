// SPDX-License-Identifier: MIT
// Resource libraries that are found, and some that nobody should trust.

#include <fstream>
#include <iterator>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "common/string_table.h"
#include "platform/resource_library.h"
#include "platform/scratch.h"

using namespace zerdix;
using namespace zerdix::platform;
using common::string_text;

namespace {

class Library : public testing::Test {
  protected:
    // Loads a file of this content; its handle, which is freed at the end.
    library_handle load(std::string_view content) {
        return keep(LoadLibraryA(folder.write("own/a.lng", content).c_str()));
    }

    library_handle keep(library_handle library) {
        FreeLibrary(std::exchange(kept, library));
        return library;
    }

    ~Library() override {
        common::set_resource_source(0);
        FreeLibrary(kept);
    }

    tests::scratch_folder folder;
    tests::environment_variable named{"ZERDIX_RESOURCES", folder.path("named")};
    tests::environment_variable settings{"ZERDIX_INI", folder.write("ini/zerdix.ini", "")};
    library_handle kept = 0;
};

} // namespace

TEST_F(Library, ReadsWhatATranslatorWrites) {
    const library_handle library = load("\xef\xbb\xbf; comment\r\n# comment\r\n\r\n"
                                        "[strings]\r\n 525 =  Gr\xc3\xbc\xc3\x9f"
                                        "e = \xe2\x82\xac \r\n"
                                        "526=\" a\\n\\\\n \"\n527=\n528 = \"\n529 = a \" b\n"
                                        "[dialog 2300]\ncaption = C\n2307 = &N\n"
                                        "[dialog 2299]\n2307 = &M");
    ASSERT_GE(library, first_good_handle);
    const auto string = [&](std::int32_t number) {
        const std::string* text = library_string(library, number);
        return text != nullptr ? *text : "none";
    };
    EXPECT_EQ(string(525), "Gr\xfc\xdf"
                           "e = \x80");
    EXPECT_EQ(string(526), " a\n\\n ");
    EXPECT_EQ(string(527), "none");
    EXPECT_EQ(string(528) + string(529), "\"a \" b");
    EXPECT_EQ(*library_caption(library, 2300, 0) + *library_caption(library, 2300, 2307) +
                  *library_caption(library, 2299, 2307),
              "C&N&M");
    EXPECT_EQ(library_caption(library, 2299, 0), nullptr);
}

TEST_F(Library, IsRefusedForALineThatCanNotBeRead) {
    using namespace std::string_view_literals;
    const struct {
        std::string_view content;
        std::int32_t line;
    } cases[] = {{"525 = a", 1},
                 {"[strings]\n525 a", 2},
                 {"[strings]\n\nx = a", 3},
                 {"[strings]\n-1 = a", 2},
                 {"[strings]\n0 = a", 2},
                 {"[strings]\n99999999999 = a", 2},
                 {"[strings]\n5 25 = a", 2},
                 {"[strings]\ncaption = a", 2},
                 {"[strings]\n525 = a\n525 = b", 3},
                 {"[strings]\n525 = a\\", 2},
                 {"[strings]\n525 = \\t", 2},
                 {"[strings]\n525 = a\0b"sv, 2},
                 {"[strings\n", 1},
                 {"[dialog 2300\n", 1},
                 {"[dialog]\n", 1},
                 {"[dialog x]\n", 1},
                 {"[other]\n", 1},
                 {"\x7f"
                  "ELF\2\1\1\0\0"sv,
                  1}};
    for (const auto& c : cases) {
        EXPECT_EQ(load(c.content), bad_format) << c.content;
        EXPECT_EQ(find_library_fault(folder.path("own/a.lng").c_str()).line, c.line) << c.content;
    }
}

TEST_F(Library, SurvivesGermanCutAndDamagedAnywhere) {
    std::ifstream file(RESOURCES "/deutsch.lng", std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(file), {}};
    int refused = 0;
    for (std::size_t at = 0; at < whole.size(); at += 29) {
        load(whole.substr(0, at));
        std::string damaged = whole;
        damaged[at] = static_cast<char>(at * 31);
        refused += load(damaged) == bad_format ? 1 : 0;
    }
    EXPECT_GT(refused, 0);
}

TEST_F(Library, IsOnlyARegularFileOfASensibleSize) {
    EXPECT_GE(load(std::string(1024 * 1024, '\n')), first_good_handle);
    EXPECT_EQ(load(std::string(1024 * 1024 + 1, '\n')), bad_format);
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    for (const std::string& name : {std::string(), std::string("."), std::string("none.lng"),
                                    folder.path("own"), folder.path("pipe")})
        EXPECT_EQ(LoadLibraryA(name.c_str()), file_not_found) << name;
    EXPECT_EQ(FreeLibrary(file_not_found), 0);
}

TEST_F(Library, ComesFromTheFirstFolderThatHasIt) {
    for (const char* place : {"ini", "named"}) {
        folder.write(std::string(place) + "/a.lng", std::string("[strings]\n1 = ") + place);
        const library_handle library = keep(LoadLibraryA("a.lng"));
        ASSERT_NE(library_string(library, 1), nullptr) << place;
        EXPECT_EQ(*library_string(library, 1), place);
    }
    const tests::environment_variable home("HOME", folder.path(""));
    EXPECT_GE(keep(LoadLibraryA("~/ini/a.lng")), first_good_handle);
}

TEST_F(Library, ComesBeforeTheBuiltInWords) {
    const std::string notification = string_text(525);
    EXPECT_EQ(notification, "Benachrichtigung");
    EXPECT_STREQ(string_text(511), "Ung\xfcltige Eingabe");
    common::set_resource_source(load("[strings]\n525 = Notice\n512 = %s %n %ld %ld\n"
                                     "[dialog 1400]\n1401 = Go"));
    EXPECT_STREQ(string_text(525), "Notice");
    EXPECT_STREQ(string_text(511), "Ung\xfcltige Eingabe");
    EXPECT_STREQ(string_text(77), "");
    EXPECT_EQ(common::string_text_with(512, -3), "%s %n -3 %ld");
    EXPECT_EQ(common::caption(1400, 1401) + common::caption(1400, 0), "GoSuchen");
    EXPECT_EQ(common::caption(1400, 77), "");
    common::set_resource_source(0);
    EXPECT_EQ(string_text(525), notification);
}
