// SPDX-License-Identifier: MIT
#include <zerdix/ptrlist.h>

#include <type_traits>

#include <gtest/gtest.h>

static_assert(!std::is_copy_constructible_v<PTRLIST> && !std::is_copy_assignable_v<PTRLIST>);

TEST(PtrList, RefusesWhatLiesBehindItsEnd) {
    int a = 1;
    PTRLIST list(2);
    EXPECT_EQ(list.setPtr(1, &a), 0);
    EXPECT_EQ(list.setPtr(2, &a), 4);
    EXPECT_EQ(list.getSize(), 2u);
    EXPECT_EQ(list[1], &a);
    EXPECT_EQ(list[2], nullptr);
    EXPECT_EQ(list[UINT32_MAX], nullptr);
}

TEST(PtrList, EmptyOnesAreAlike) {
    for (PTRLIST* list : {new PTRLIST, new PTRLIST(0)}) {
        EXPECT_EQ(list->getSize(), 0u);
        EXPECT_EQ((*list)[0], nullptr);
        EXPECT_EQ(list->setPtr(0, list), 4);
        delete list;
    }
}

TEST(PtrList, KeepsItsFrontThroughShrinkingAndGrowing) {
    int values[5] = {};
    PTRLIST list;
    list.setSize(5);
    for (std::uint32_t i = 0; i < 5; ++i)
        list.setPtr(i, &values[i]);
    list.setSize(3);
    EXPECT_EQ(list.getSize(), 3u);
    EXPECT_EQ(list[3], nullptr);
    list.setSize(5);
    EXPECT_EQ(list.getSize(), 5u);
    for (std::uint32_t i = 0; i < 3; ++i)
        EXPECT_EQ(list[i], &values[i]);
    list.setSize(0);
    EXPECT_EQ(list[0], nullptr);
    list.setSize(1);
    EXPECT_EQ(list.setPtr(0, &values[4]), 0);
    EXPECT_EQ(list[0], &values[4]);
}
