// SPDX-License-Identifier: MIT
// Lines and fields of a cover template's text.

#include <gmock/gmock.h>

#include "cover/cover_line.h"
#include "cover/template_text.h"

namespace zerdix::cover {
namespace {

using ::testing::ElementsAre;
using texts = std::vector<std::string>;

texts lines_of(std::string_view bytes) {
    texts found;
    template_text lines{bytes};
    for (const char* line = lines.next(); line != nullptr; line = lines.next())
        found.emplace_back(line);
    return found;
}

TEST(TemplateText, CommandsStandBehindTheMarkInLinesThatEnd) {
    using std::string_view_literals::operator""sv;
    EXPECT_EQ(lines_of("a\n #DRUCK#\n#DRUCK# b\nc\n\nd\r\ne"), (texts{"c", "", "d\r"}));
    EXPECT_EQ(lines_of("#DRUCK#\na\n#DRUCK#b\nc\n"), (texts{"a", "c"})) << "a second mark";
    EXPECT_EQ(lines_of("#DRUCK#\na\nb\0c\nd\n"sv), texts{"a"}) << "a NUL ends the text";
    for (const auto nothing : {""sv, "#DRUCK#"sv, "a\nb\n"sv, "\n\n"sv, "#druck#\na\n"sv})
        EXPECT_EQ(lines_of(nothing), texts{});
}

texts fields_of(std::string line, std::string* left = nullptr) {
    const cover_fields fields{line.data()};
    if (left != nullptr)
        *left = line.c_str();
    return {fields.first, fields.second, fields.third};
}

TEST(CoverLine, FieldsAreClosedBySemicolons) {
    const std::pair<const char*, texts> cases[] = {
        {"setfaxstring=Fax;100;250;", {"Fax", "100", "250"}},
        {"setfaxstring=Fax;100;250", {"Fax", "100", "250"}},
        {"setdate=1300;120;", {"1300", "120", ""}},
        {"a=b=c;;d;e;", {"b=c", "", "d"}},
        {"a=;", {"", "", ""}},
        {"a=", {"", "", ""}},
        {";1;2;3", {"", "", ""}},
    };
    for (const auto& [line, fields] : cases)
        EXPECT_EQ(fields_of(line), fields) << line;
    const std::string x(10000, 'x');
    EXPECT_EQ(fields_of("a=" + x + ";" + x + ";" + x),
              (texts{x.substr(0, 200), x.substr(0, 80), x.substr(0, 80)}));
    std::string left;
    fields_of("a=b;c", &left);
    EXPECT_EQ(left, "a=b") << "the field is closed in the line itself";
}

TEST(CoverLine, ANullFieldEndsTheWalk) {
    char line[] = "a=1;2;3;";
    char first[8] = "";
    char third[8] = "";
    EXPECT_EQ(ParseCoverLine(line, first, 7, nullptr, 0, third, 7), 1);
    EXPECT_THAT((texts{first, third, line + 4}), ElementsAre("1", "", "2;3;"));

    char kept[8] = "kept";
    char only_one[] = "a=4;";
    EXPECT_EQ(ParseCoverLine(only_one, first, 7, kept, 7, nullptr, 0), 1);
    EXPECT_THAT((texts{first, kept}), ElementsAre("4", "kept"));
}

} // namespace
} // namespace zerdix::cover
