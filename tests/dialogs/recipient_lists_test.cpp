// SPDX-License-Identifier: MIT
// The lists of the send dialog: blocks that come as one scrolls, sides, and the search.

#include "dialogs/application.h"
#include "dialogs/send_dialog_fixture.h"
#include "dialogs/send_select.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
using texts = std::vector<std::string>;

// Rows of "many" as they come block by block: a server that repeats the key, and one on which the
// last entry has gone when the next block is asked for.
TEST_F(SendDialog, TheListGrowsBlockByBlock) {
    server.set_config("PHONEBOOKB", "4");
    server.fill_book("many", 12);
    platform::write_profile_string("Zerdix", "TBookId", "many");
    const auto rows = [](std::size_t expected) { return lists(2331, SizeIs(expected)); };
    const auto remove = [this](const char* name) {
        return [this, name](dialog_view&) {
            server.store().phone_books.remove_entry(test::id("many"), test::id(name));
        };
    };
    const auto fetched = [this](std::size_t times) {
        return [this, times](dialog_view&) {
            EXPECT_THAT(server.calls(), Contains(83).Times(times));
            server.clear_calls();
        };
    };
    const auto choose = [](std::int32_t book) {
        return [book](dialog_view& shown) { shown.user_picks_item(2310, book); };
    };
    const auto scroll = [this](std::int32_t first) {
        return [this, first](dialog_view& shown) {
            user.list(shown, 2331).rows = 2;
            user.scroll(shown, 2331, first);
        };
    };
    send_fax({click(2324), rows(4), select(2331, 2), rows(4), select(2331, 3), rows(7), scroll(1),
              rows(7), remove("e000006"), scroll(5), rows(11), fetched(3), select(2331, 10),
              rows(12), fetched(1), select(2331, 11), rows(12), fetched(1), select(2331, 11),
              scroll(10), fetched(0), click(2324), rows(12),
              [](dialog_view& shown) {
                  auto ids = column(shown, 2331);
                  for (int i = 0; i < 12; ++i)
                      EXPECT_EQ(ids[static_cast<std::size_t>(i)].substr(5),
                                std::to_string(100 + i).substr(1));
                  EXPECT_EQ(column(shown, 2331, 4)[0], told(1357));
              },
              // Each book anew; a block that fails ends its rows until the next change.
              choose(0), rows(4), choose(2), rows(4), [this](dialog_view&) { server.fail(83, 2); },
              choose(0), rows(4), choose(0), fetched(3), select(2331, 3),
              expect_messages({told(1312)}), rows(4), fetched(1), select(2331, 2), select(2331, 3),
              fetched(0), click(2302)});
    EXPECT_THAT(user.log, Contains("wait cursor"));
    EXPECT_EQ(kept("TBookId"), "common") << "whichever way the dialog ends";
}

// When the dialog is built, before the first block, and before the first block of the next book.
TEST_F(SendDialog, ABlockSizeThatCouldNotBeHadIsAskedForAgain) {
    server.fill_book("many", 12);
    for (const int nth : {1, 2})
        server.fail(74, nth);
    EXPECT_EQ(send_fax({click(2324), expect_messages({told(1312)}), lists(2331, IsEmpty()),
                        [](dialog_view& shown) {
                            const auto& books = shown.find(2310)->items;
                            const auto many = std::find(books.begin(), books.end(), "many");
                            shown.user_picks_item(2310,
                                                  static_cast<std::int32_t>(many - books.begin()));
                        },
                        lists(2331, SizeIs(12)), click(2302)}),
              4);
    EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(SendDialog, TheSearchLoadsTheRestAndGoesRound) {
    server.set_config("PHONEBOOKB", "10");
    server.fill_book("many", 31);
    platform::write_profile_string("Zerdix", "TBookId", "many");
    const auto hit = [this](std::int32_t row) {
        return [this, row](dialog_view& find) {
            auto& list = *user.open(form)->find(2331)->list;
            EXPECT_EQ(list.row_count(), 31);
            EXPECT_EQ(list.selected_row(), row);
            forms::row_rectangle place;
            EXPECT_TRUE(list.view->in_view(row, place));
            EXPECT_TRUE(user.is_enabled(find.window()));
        };
    };
    const auto missed = [this](std::int32_t id) {
        return [this, id](dialog_view&) {
            EXPECT_THAT(user.messages, ElementsAre(told(1465)));
            user.messages.clear();
            EXPECT_FALSE(user.is_enabled(user.open(form)->window()));
            EXPECT_EQ(user.open(form)->find(id)->list->selected_row(), -1);
        };
    };
    user.script(1400, {type(1403, "e0000?0\\+ e"), click(1401), hit(0), click(1401), hit(10),
                       click(1401), hit(20), click(1401), hit(30), click(1401), hit(0),
                       type(1403, "Telex"), click(1401), missed(2331), click(1402)});
    user.script(1400, {type(1403, "kunden"), click(1401),
                       [this](dialog_view&) {
                           EXPECT_EQ(user.open(form)->find(2304)->list->selected_row(), 1);
                       },
                       type(1403, "nobody"), click(1401), missed(2304), click(1402)});
    EXPECT_EQ(
        send_fax({click(2324), click(2322),
                  [this](dialog_view& shown) { EXPECT_TRUE(user.is_enabled(shown.window())); },
                  click(2326), click(2322), click(2302)}),
        4);
    EXPECT_EQ(user.left_over(), 0u);
}

TEST_F(SendDialog, SidesBooksAndNewEntries) {
    server.fail(79);
    server.fail(104);
    user.script(1900, {type(1908, "neu+1"), type(1915, "4711"), click(1901)});
    const step asks_once = [this](dialog_view&) {
        EXPECT_THAT(server.calls(), Contains(104).Times(1))
            << "a click on the side that is there already asks for nothing";
        server.clear_calls();
    };
    const step common_is_first = [](dialog_view& shown) {
        EXPECT_EQ(shown.find(2310)->items.size(), 3u);
        EXPECT_EQ(shown.find(2310)->selected_item, 0);
    };
    const step new_entry_is_last = [this](dialog_view& shown) {
        EXPECT_EQ(shown.find(2331)->list->rows.back(),
                  (texts{"neu+1", "", "", "4711", "Extern", "Fax"}));
        user.list(shown, 2331).drag(1, 222);
    };
    const steps failing{click(2324), expect_messages({told(1293)}), click(2326),
                        expect_messages({told(1296)})};
    const steps books{click(2324),
                      shows({2310, 2331, 2329, 2305}),
                      shows({2304, 2330}, false),
                      enables({2303, 2322}),
                      common_is_first,
                      click(2303),
                      new_entry_is_last,
                      reads(2348, "")};
    const steps groups{click(2326), lists(2304, Contains("kunden")), shows({2304, 2330}),
                       shows({2310, 2331, 2329, 2305}, false), enables({2303}, false)};
    EXPECT_EQ(send_fax(failing +
                       steps{click(2326), expect_messages({}), asks_once, lists(2304, IsEmpty())} +
                       books + groups + steps{closes()}),
              4);
    EXPECT_EQ(kept("SendTeleSel1"), "222");
    EXPECT_EQ(kept("SendTeleSel0"), kept("SendTeleSel5"));
    EXPECT_EQ(kept("SendTGroupSel3"), "150");
    EXPECT_EQ(kept("TBookId"), "common");
}

// A list that is given its font again notes the widths that the user drew.
TEST_F(SendDialog, TheFontThatTheUserChoosesShowsInBothLists) {
    dialogs::CZerdixApp application;
    user.fonts = {{.height = 9, .weight = 700, .face = "Arial"}, {}};
    const auto draw = [this](dialog_view& shown) {
        for (const std::int32_t id : {2331, 2304})
            user.list(shown, id).drag(1, 222);
    };
    const auto choose = [](std::size_t line) {
        return
            [line](dialog_view& shown) { shown.on_command(shown.form()->list_menu[line].command); };
    };
    const auto expect_shown = [](dialog_view& shown) {
        for (const std::int32_t id : {2331, 2304}) {
            const auto& list = *shown.find(id)->list;
            EXPECT_EQ(list.columns[1].width, 222) << id;
            EXPECT_EQ(list.font, list.title_font);
            ASSERT_NE(list.font, nullptr);
            EXPECT_EQ(list.font->face, "Arial");
        }
    };
    EXPECT_EQ(send_fax({draw, choose(0), expect_shown, choose(1), expect_shown, click(2302)}), 4);
    EXPECT_THAT(user.fonts, IsEmpty());
}

// Whatever reaches the dialog while a handler waits for the server.
TEST_F(SendDialog, OneHandlerAtATimeWorksOnTheLists) {
    server.set_config("PHONEBOOKB", "4");
    server.fill_book("many", 12);
    platform::write_profile_string("Zerdix", "TBookId", "many");
    int under_way = 0, searches = 0;
    const auto meddle = [&] {
        dialog_view* shown = user.open(form);
        if (shown == nullptr || shown->find(2331)->list->row_count() == 0)
            return;
        ASSERT_EQ(under_way++, 0) << "a remote call within another";
        shown->user_scrolls(2331);
        shown->user_selects_row(2331, shown->find(2331)->list->row_count() - 1);
        shown->user_clicks(2303);
        shown->user_clicks(2326);
        shown->user_picks_item(2310, 0);
        if (user.open(1400) != nullptr && ++searches == 1)
            user.post_command(shown->window(), 30021);
        --under_way;
    };
    user.script(1400, {type(1403, "e00000? "), click(1401),
                       [this](dialog_view&) {
                           const auto& list = *user.open(form)->find(2331)->list;
                           EXPECT_EQ(list.selected_row(), 1) << "the posted search came second";
                           EXPECT_EQ(list.row_count(), 12);
                       },
                       click(1402)});
    EXPECT_EQ(
        send_fax({click(2324), [&](dialog_view&) { user.at_remote_call = meddle; }, select(2331, 3),
                  click(2322), [&](dialog_view&) { user.at_remote_call = nullptr; },
                  shows({2310, 2331}), click(2302)}),
        4);
    EXPECT_EQ(kept("TBookId"), "many");
    EXPECT_GT(searches, 1);
    EXPECT_EQ(user.left_over(), 0u);
}

} // namespace
} // namespace zerdix::testing
