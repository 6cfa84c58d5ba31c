// SPDX-License-Identifier: MIT
// The languages that are shipped, each against German.

#include <cctype>
#include <fstream>
#include <iterator>
#include <ostream>
#include <regex>
#include <set>

#include <gtest/gtest.h>
#include <zerdix/timetext.h>
#include <zerdix/zerdix.h>

#include "dialogs/templates.h"
#include "platform/encoding.h"
#include "platform/resource_text.h"

using namespace zerdix;
using forms::control_kind;
using platform::resource_texts;

namespace {

struct language {
    const char* file;
    char letter;
    // What stands twice, and is known to.
    std::map<std::int32_t, std::string> doubled_letters;
};

std::string read(const std::string& name) {
    std::ifstream file(std::string(RESOURCES "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Empty, and a failure told, for a file with a line that can't be read or a number that stands
// twice.
resource_texts load(const std::string& name) {
    auto parsed = platform::parse_resources(read(name));
    EXPECT_TRUE(parsed.texts) << name << ": line " << parsed.bad_line;
    return parsed.texts.value_or(resource_texts{});
}

template <class Map>
auto filled_keys(const Map& texts) {
    std::set<typename Map::key_type> keys;
    for (const auto& [key, text] : texts)
        if (!text.empty())
            keys.insert(key);
    return keys;
}

// Never on the screen, and the combo box to which the label before it belongs.
bool has_no_letter_of_its_own(std::int32_t control) {
    return control == 2320 || control == 2310;
}

std::string doubled_letters(const resource_texts& texts, const forms::dialog_template& form) {
    std::map<char, int> uses;
    for (const auto& control : form.controls) {
        auto caption = texts.captions.find({form.id, control.id});
        if (caption == texts.captions.end())
            caption = texts.captions.find({form.captions_of, control.id});
        if (caption == texts.captions.end() || has_no_letter_of_its_own(control.id))
            continue;
        const std::size_t mark = caption->second.find('&');
        if (mark != std::string::npos)
            ++uses[static_cast<char>(std::tolower(caption->second.at(mark + 1)))];
    }
    std::string doubled;
    for (const auto& [letter, count] : uses)
        if (count > 1)
            doubled += letter;
    return doubled;
}

void PrintTo(const language& one, std::ostream* to) {
    *to << one.file;
}

class Language : public testing::TestWithParam<language> {
  protected:
    resource_texts german = load("deutsch.lng");
    resource_texts texts = load(GetParam().file);
};

} // namespace

TEST_P(Language, HasEveryTextAndCaptionOfTheGermanFileAndNoOther) {
    EXPECT_EQ(filled_keys(texts.strings), filled_keys(german.strings));
    EXPECT_EQ(filled_keys(texts.captions), filled_keys(german.captions));
    EXPECT_LE(std::string(GetParam().file).size(), 20u);
}

TEST_P(Language, KeepsThePlaceOfNumbers) {
    const std::regex conversions("%.?.?");
    for (const auto& [number, text] : german.strings) {
        const auto all = [&](const std::string& in) {
            return std::vector<std::string>(
                std::sregex_token_iterator(in.begin(), in.end(), conversions), {});
        };
        EXPECT_EQ(all(texts.strings[number]), all(text)) << number;
    }
}

TEST_P(Language, HasOnlyCharactersThatCanBeShown) {
    const std::string content = read(GetParam().file);
    EXPECT_EQ(platform::cp1252_to_utf8(platform::utf8_to_cp1252(content)), content);
}

TEST_P(Language, ChoosesEachControlOfADialogWithALetterOfItsOwn) {
    for (const auto& form : dialogs::templates()) {
        const auto known = GetParam().doubled_letters.find(form.captions_of);
        EXPECT_EQ(doubled_letters(texts, form),
                  known != GetParam().doubled_letters.end() ? known->second : "")
            << form.id;
    }
}

TEST_P(Language, TellsATimeThatCanBeTyped) {
    const std::string help = texts.strings[1265];
    std::smatch date, clock;
    ASSERT_TRUE(std::regex_search(help, date, std::regex("[0-9]+(.)[0-9]+\\1[0-9]+")));
    const std::string rest = date.suffix();
    ASSERT_TRUE(std::regex_search(rest, clock, std::regex("[0-9]+.[0-9]+")));
    ZERDIX::clsSetLanguage(GetParam().letter);
    const std::time_t time = str2time_t((date.str() + " " + clock.str()).c_str());
    ASSERT_NE(time, 0) << help;
    std::tm local{};
    localtime_r(&time, &local);
    EXPECT_EQ(local.tm_mday, 31);
    EXPECT_EQ(local.tm_hour, 20);
}

std::string name_of(const testing::TestParamInfo<language>& of) {
    const std::string file = of.param.file;
    return file.substr(0, file.find('.'));
}

INSTANTIATE_TEST_SUITE_P(Shipped, Language,
                         testing::Values(language{"deutsch.lng", 'G', {{2300, "adfntw"}}},
                                         language{"english.lng", 'U', {}},
                                         language{"us.lng", 'A', {}},
                                         language{"francais.lng", 'F', {}}),
                         name_of);

// Frames hold others together, and some texts are set when the dialog opens.
TEST(Captions, StandForTheControlsThatThereAre) {
    const std::set<std::int32_t> set_later = {9606, 9651, 9652};
    const resource_texts german = load("deutsch.lng");
    std::set<std::pair<std::int32_t, std::int32_t>> there;
    for (const auto& form : dialogs::templates()) {
        there.insert({form.id, 0});
        for (const auto& control : form.controls) {
            there.insert({form.id, control.id});
            const bool needed = control.kind != control_kind::frame &&
                                !set_later.contains(control.id) &&
                                std::pair{form.id, control.id} != std::pair{9600, 9605};
            EXPECT_TRUE(!needed || german.captions.contains({form.captions_of, control.id}))
                << form.id << ", " << control.id;
        }
    }
    for (const auto& [key, text] : german.captions)
        EXPECT_TRUE(there.contains(key)) << key.first << ", " << key.second << ": " << text;
}
