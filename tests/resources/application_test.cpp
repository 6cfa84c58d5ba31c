// SPDX-License-Identifier: MIT
// What the application object makes of the settings file.

#include <array>

#include <gmock/gmock.h>
#include <zerdix/zerdix.h>

#include "common/show_message.h"
#include "common/string_table.h"
#include "dialogs/application.h"
#include "forms/tree_list.h"
#include "platform/scratch.h"
#include "support/scripted_presenter.h"

using namespace zerdix;
using dialogs::chosen_templates;
using dialogs::CZerdixApp;
using namespace testing;

namespace {

constexpr const char* no_library = "Kann Resource-DLL nicht laden!";

class Application : public testing::Test {
  protected:
    void set(const std::string& lines) {
        folder.write("zerdix.ini", "[Zerdix]\nLogDir=" + folder.path("") + "\n" + lines + "\n");
    }

    tests::scratch_folder folder;
    tests::environment_variable ini{"ZERDIX_INI", folder.path("zerdix.ini")};
    tests::environment_variable resources{"ZERDIX_RESOURCES", RESOURCES};
    tests::recorded_boxes boxes;
};

} // namespace

TEST_F(Application, ChoosesTheLanguageAndItsWords) {
    const struct {
        std::string line;
        char letter;
        const char* notification;
        const char* name;
    } cases[] = {
        {"Deutsch,zerdix.hlp,deutsch.lng", 'G', "Benachrichtigung", "zerDIX"},
        {"English,zerdix.hlp,english.lng", 'U', "Notification", "zerDIX"},
        {"Francais," + std::string(3000, 'h') + ",francais.lng", 'F', "Notification", "zerDIX"},
        {"deutsch,zerdix.hlp,english.lng", 'S', "Notification", "zerDIX"},
        {"US,zerdix.hlp,us.lng", 'A', "Notification", "Tarvin"}};
    for (const auto& c : cases) {
        ZERDIX::clsSetLanguage('S');
        set("Language32=" + c.line);
        const CZerdixApp application;
        EXPECT_EQ(ZERDIX::clsGetLanguage(), c.letter) << c.line;
        EXPECT_STREQ(common::string_text(525), c.notification) << c.line;
        EXPECT_STREQ(common::application_name(), c.name) << c.line;
        EXPECT_NE(dialogs::hResourceLib, 0u);
    }
    EXPECT_THAT(boxes.shown, IsEmpty());
    EXPECT_EQ(dialogs::hResourceLib, 0u);
    EXPECT_STREQ(common::string_text(525), "Benachrichtigung");
}

TEST_F(Application, SaysThatThereIsNoResourceLibraryAndGoesOnInGerman) {
    const struct {
        const char* line;
        char letter;
    } cases[] = {{"", 'S'},
                 {"Language32=Deutsch", 'G'},
                 {"Language32=English,zerdix.hlp,none.lng", 'U'},
                 {"Language32=Francais,zerdix.hlp,damaged.lng", 'F'},
                 {"Language32=Francais,zerdix.hlp,name-of-20-characters.lng", 'F'}};
    folder.write("damaged.lng", "[strings]\n525");
    folder.write("name-of-20-characters.lng", "[strings]\n");
    for (const auto& c : cases) {
        ZERDIX::clsSetLanguage('S');
        set(c.line);
        const CZerdixApp application;
        EXPECT_EQ(ZERDIX::clsGetLanguage(), c.letter) << c.line;
        EXPECT_THAT(boxes.shown, ElementsAre(Pair(no_library, "zerDIX"))) << c.line;
        EXPECT_EQ(dialogs::hResourceLib, 0u);
        EXPECT_TRUE(forms::tree_lists_registered());
        boxes.shown.clear();
    }
}

TEST_F(Application, TakesTheTemplatesOfTheSizeThatIsSet) {
    using ids = std::array<std::int32_t, 3>;
    constexpr ids normal = {1000, 2000, 2300}, large = {1050, 1999, 2299};
    const std::pair<const char*, ids> cases[] = {
        {"", normal}, {"DialogSize=3", normal}, {"DialogSize=22", normal}, {"DialogSize=2", large}};
    for (const auto& [line, expected] : cases) {
        set(line);
        const CZerdixApp application;
        const auto& chosen = chosen_templates;
        EXPECT_EQ((ids{chosen.documents, chosen.phone_book, chosen.send}), expected) << line;
    }
}

TEST_F(Application, ReadsTheListFont) {
    const struct {
        const char* lines;
        std::int32_t height;
        const char* face;
        std::int32_t weight;
    } cases[] = {{"", -13, "Courier", 400},
                 {"Height=0\nWeight=0\nFacename=", 20, "Times New Roman", 400},
                 {"Height=x\nWeight=bold\nFacename=Arial", 20, "Arial", 400},
                 {"Height=-123456789\nWeight=700", -1234567, "Courier", 700},
                 {"Facename=M\xc3\xbcller\nTHeight=5\nTFacename=x", -13, "M\xfcller", 400}};
    for (const auto& c : cases) {
        set(c.lines);
        CZerdixApp application;
        const auto* font = application.listFont();
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(font->height, c.height) << c.lines;
        EXPECT_EQ(font->face, c.face) << c.lines;
        EXPECT_EQ(font->weight, c.weight) << c.lines;
    }
}

TEST_F(Application, SaysThatTheTextFontCanNotBeMadeAndNothingOfTheListFont) {
    const tests::no_fonts none;
    set("Language32=Deutsch,zerdix.hlp,deutsch.lng");
    CZerdixApp application;
    EXPECT_EQ(application.listFont(), nullptr);
    EXPECT_TRUE(application.OnCommand(dialogs::choose_list_font));
    EXPECT_THAT(boxes.shown, IsEmpty());
    EXPECT_TRUE(application.OnCommand(dialogs::choose_text_font));
    EXPECT_THAT(boxes.shown, ElementsAre(Pair("Error CreateFontIndirect()", "zerDIX")));
    EXPECT_FALSE(application.OnCommand(30021));
}

TEST_F(Application, TakesTheFontThatTheUserChoosesUntilTheProgramEnds) {
    set("Language32=Deutsch,zerdix.hlp,deutsch.lng\nHeight=-20");
    const std::string before = folder.read("zerdix.ini");
    CZerdixApp application;
    test::scripted_presenter user;
    const forms::font_description* font = application.listFont();
    application.OnCommand(dialogs::choose_list_font); // cancelled
    EXPECT_EQ(font->height, -20);
    user.fonts = {{.height = 9, .weight = 700, .face = "Arial"}, {}};
    application.OnCommand(dialogs::choose_list_font);
    application.OnCommand(dialogs::choose_text_font);
    EXPECT_THAT(user.fonts, IsEmpty());
    EXPECT_EQ(application.listFont(), font);
    EXPECT_EQ(font->height, 9);
    EXPECT_EQ(font->face, "Arial");
    EXPECT_THAT(user.messages, IsEmpty());
    EXPECT_EQ(folder.read("zerdix.ini"), before);
}
