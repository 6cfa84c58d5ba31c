// SPDX-License-Identifier: MIT
// The list with columns: its cells, and the widths that are kept.

#include <gmock/gmock.h>

#include "dialogs/kept_setting.h"
#include "dialogs/sft_list.h"
#include "platform/scratch.h"
#include "support/scripted_presenter.h"

namespace zerdix::dialogs {
namespace {

using ::testing::ElementsAre;

constexpr std::int32_t titles[] = {1432, 1433, 1434, 1435};

class SftList : public ::testing::Test {
  protected:
    SftList() {
        control.view = &view;
        list.attach(&control);
    }

    std::vector<std::int32_t> widths() const {
        std::vector<std::int32_t> all;
        for (const auto& column : control.columns)
            all.push_back(column.width);
        return all;
    }

    tests::scratch_folder folder;
    tests::environment_variable ini{
        "ZERDIX_INI",
        folder.write("zerdix.ini", "[Zerdix]\nKey0=100\nKey1=0\nKey2=wide\nKey4=7\n")};
    forms::tree_list control;
    test::scripted_list view{control};
    CSftList list;
};

TEST_F(SftList, ColumnsShareTheWidthUntilTheirOwnIsKept) {
    view.width = 403;
    list.setupColumns({.titles = titles, .second = 1, .own_font = false});
    EXPECT_THAT(widths(), ElementsAre(100, 100, 100, 100));
    EXPECT_THAT(control.titles, ElementsAre("Gruppen-ID", "Kommentar", "Besitzer", "Gruppe"));
    EXPECT_EQ(control.columns[3].second, 1);
    list.saveColumns();
    EXPECT_EQ(kept_text("0", "none", 9), "none");

    view.width = 800;
    list.setupColumns({.titles = titles, .columnKey = "Key"});
    EXPECT_THAT(widths(), ElementsAre(100, 200, 200, 200));
    view.drag(3, 33);
    list.saveColumns();
    const auto kept = [](int i) { return kept_text("Key" + std::to_string(i), "", 9); };
    EXPECT_EQ(kept(0) + ' ' + kept(1) + ' ' + kept(2) + ' ' + kept(3) + ' ' + kept(4),
              "100 200 200 33 7");
    list.setupColumns({.titles = titles, .columnKey = "Key"});
    EXPECT_THAT(widths(), ElementsAre(100, 200, 200, 33));
}

TEST_F(SftList, CellsAreReadWithinTheirRoom) {
    list.setupColumns({.titles = titles});
    EXPECT_EQ(list.addRow({"one", "two", "", "four"}), 0);
    EXPECT_EQ(list.addRow({"x", std::string(79, 'a'), std::string(80, 'b')}), 1);
    char buffer[4] = "old";
    EXPECT_EQ(list.getCell(0, 3, buffer, 3), 0);
    EXPECT_STREQ(buffer, "old");
    EXPECT_EQ(list.getCell(0, 1, buffer, 3), 3);
    EXPECT_STREQ(buffer, "two");
    for (const auto& [row, column] : {std::pair{2, 0}, {-1, 0}, {0, 4}, {0, -1}})
        EXPECT_EQ(list.cell(row, column), "") << row << ' ' << column;
    EXPECT_STREQ(list.rowText(0), "one two  four ");
    EXPECT_EQ(list.rowText(1), "x " + std::string(79, 'a') + "   ");
    list.setCell(0, 2, "three");
    EXPECT_STREQ(list.rowText(0), "one two three four ");

    // A row ends where the shared buffer does.
    list.setupColumns({.titles = std::vector<std::int32_t>(8, 1432)});
    for (std::int32_t column = 0; column < 8; ++column)
        list.setCell(0, column, std::string(79, 'a'));
    EXPECT_EQ(std::string_view(list.rowText(0)).size(), 6u * 80);
}

TEST_F(SftList, UnselectsOneOrAll) {
    list.setupColumns({.titles = titles});
    for (const char* text : {"a", "b", "c"})
        list.addRow({text});
    list.selectRow(1);
    EXPECT_EQ(list.selectedRow(), 1);
    list.unselectAll();
    EXPECT_EQ(list.selectedRow(), -1);
    control.several = true;
    control.selected = {0, 2};
    list.unselectAll();
    EXPECT_TRUE(control.selected.empty());
    list.showRow(2);
    EXPECT_TRUE(list.isInView(2));
    view.rows = 1;
    EXPECT_FALSE(list.isInView(2));
    EXPECT_FALSE(list.isInView(-1));
}

} // namespace
} // namespace zerdix::dialogs
