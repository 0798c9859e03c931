#include "Views/Popover/ClosingPress.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

TEST(ClosingPress, TakesTheClickThatItBegan) {
    ClosingPress press;
    press.note({100, 10}, 5.0);
    EXPECT_TRUE(press.takeClick({102, 11}, 5.2));
}

TEST(ClosingPress, TakesOneClickAlone) {
    ClosingPress press;
    press.note({100, 10}, 5.0);
    EXPECT_TRUE(press.takeClick({100, 10}, 5.1));
    EXPECT_FALSE(press.takeClick({100, 10}, 5.2));
}

TEST(ClosingPress, LeavesAClickElsewhereOrMuchLater) {
    ClosingPress press;
    press.note({100, 10}, 5.0);
    EXPECT_FALSE(press.takeClick({300, 10}, 5.1));
    press.note({100, 10}, 5.0);
    EXPECT_FALSE(press.takeClick({100, 10}, 6.5));
}

TEST(ClosingPress, LeavesAllClicksWhileThereWasNone) {
    EXPECT_FALSE(ClosingPress().takeClick({0, 0}, 0));
}

} // namespace
} // namespace tolvar::test
