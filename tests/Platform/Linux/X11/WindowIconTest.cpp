#include "Platform/Linux/X11/WindowIcon.h"

#include <gmock/gmock.h>

namespace tolvar::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const ArgbPicture small{2, 1, {0xFF112233, 0x80445566}};
const ArgbPicture large{1, 3, {1, 2, 3}};

TEST(WindowIcons, AreAllSizesInTheirOrder) {
    EXPECT_THAT(windowIcons({2, 1, 0xFF112233, 0x80445566, 1, 3, 1, 2, 3}),
                ElementsAre(small, large));
}

TEST(WindowIcons, AreNoneInAnEmptyValue) {
    EXPECT_THAT(windowIcons({}), IsEmpty());
    EXPECT_THAT(windowIcons({2}), IsEmpty());
    EXPECT_THAT(windowIcons({2, 1}), IsEmpty());
}

TEST(WindowIcons, EndWithTheLastWholeOne) {
    EXPECT_THAT(windowIcons({2, 1, 0xFF112233, 0x80445566, 1, 3, 1, 2}), ElementsAre(small));
    EXPECT_THAT(windowIcons({2, 1, 0xFF112233, 0x80445566, 1}), ElementsAre(small));
}

TEST(WindowIcons, LeaveOutThoseWithoutPixels) {
    EXPECT_THAT(windowIcons({0, 5, 2, 1, 0xFF112233, 0x80445566}), ElementsAre(small));
    EXPECT_THAT(windowIcons({0, 0, 0, 0}), IsEmpty());
}

TEST(WindowIcons, AreNotWhatCannotBeAPicture) {
    EXPECT_THAT(windowIcons({0xFFFFFFFF, 0xFFFFFFFF, 1, 2, 3}), IsEmpty());
    EXPECT_THAT(windowIcons({65536, 65536, 1, 2, 3}), IsEmpty());
    EXPECT_THAT(windowIcons({2000, 1, 1, 2, 3}), IsEmpty());
}

} // namespace
} // namespace tolvar::test
