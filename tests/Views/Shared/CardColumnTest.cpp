#include "Views/Shared/CardColumn.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

/// Ten cards of 60 points, 10 apart, 20 below the top and 30 above the bottom.
class CardColumnTest : public testing::Test {
protected:
    CardColumnTest() {
        for (int i = 0; i < 10; ++i)
            ids.push_back(QUuid::createUuid());
        column.setIds(ids);
    }

    std::vector<QUuid> ids;
    CardColumn column{{.cardHeight = 60, .spacing = 10, .top = 20, .bottom = 30}};
};

using Range = CardColumn::Range;

TEST_F(CardColumnTest, IsAsHighAsItsCardsAndTheSpaceAroundThem) {
    EXPECT_EQ(column.height(), 20 + 10 * 60 + 9 * 10 + 30);
    EXPECT_EQ(column.topOf(0), 20);
    EXPECT_EQ(column.topOf(9), 20 + 9 * 70);
    column.setIds({});
    EXPECT_EQ(column.height(), 50);
}

TEST_F(CardColumnTest, KnowsWhichRowsShowSomething) {
    EXPECT_EQ(column.between(0, 20), (Range{0, 0}));
    EXPECT_EQ(column.between(0, 21), (Range{0, 1}));
    EXPECT_EQ(column.between(79, 90), (Range{0, 1}));
    EXPECT_EQ(column.between(80, 91), (Range{1, 2}));
    EXPECT_EQ(column.between(-500, 5000), (Range{0, 10}));
    EXPECT_EQ(column.between(5000, 6000), (Range{10, 10}));
}

TEST_F(CardColumnTest, HasNoRowBetweenRows) {
    EXPECT_EQ(column.rowAt(19), -1);
    EXPECT_EQ(column.rowAt(20), 0);
    EXPECT_EQ(column.rowAt(79), 0);
    EXPECT_EQ(column.rowAt(80), -1);
    EXPECT_EQ(column.rowAt(90), 1);
    EXPECT_EQ(column.rowAt(20 + 10 * 70), -1);
}

TEST_F(CardColumnTest, FindsRowsByTheirIdsAndCountsEachOnce) {
    EXPECT_EQ(column.rowOf(ids[7]), 7);
    EXPECT_EQ(column.rowOf(QUuid::createUuid()), -1);
    column.setIds({ids[2], ids[1], ids[2]});
    EXPECT_EQ(column.count(), 2);
    EXPECT_EQ(column.rowOf(ids[2]), 0);
    EXPECT_EQ(column.rowOf(ids[7]), -1);
}

TEST_F(CardColumnTest, ScrollsAsLittleAsIsNecessary) {
    EXPECT_EQ(column.scrollShowing(2, 0, 400), 0);
    EXPECT_EQ(column.scrollShowing(0, 300, 400), 0);
    EXPECT_EQ(column.scrollShowing(2, 300, 400), 140) << "with the space above it";
    EXPECT_EQ(column.scrollShowing(9, 0, 400), column.height() - 400);
    EXPECT_EQ(column.scrollShowing(3, 0, 40), 210) << "too high for the view, its top is shown";
}

} // namespace
} // namespace tolvar::test
