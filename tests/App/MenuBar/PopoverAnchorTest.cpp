#include "App/MenuBar/PopoverAnchor.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

constexpr QPoint pointer(1800, 14);

TEST(PopoverAnchor, IsTheCastleWhereItIsKnown) {
    const QRect castle(1700, 4, 15, 15);
    EXPECT_EQ(popoverAnchor(castle, QPoint(3, 3), pointer), castle);
}

TEST(PopoverAnchor, IsWhereTheHostSaysThatIsNearThePointer) {
    EXPECT_EQ(popoverAnchor({}, QPoint(1780, 0), pointer), QRect(1780, 0, 1, 1));
}

TEST(PopoverAnchor, IsThePointerWhereTheHostIsSilentOrWrong) {
    const QRect underPointer(pointer, QSize(1, 1));
    EXPECT_EQ(popoverAnchor({}, {}, pointer), underPointer);
    EXPECT_EQ(popoverAnchor({}, QPoint(0, 0), pointer), underPointer);
    EXPECT_EQ(popoverAnchor({}, QPoint(1800, 1066), pointer), underPointer);
}

} // namespace
} // namespace tolvar
