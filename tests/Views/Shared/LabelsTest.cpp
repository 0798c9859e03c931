#include "Views/Shared/Labels.h"

#include "Views/Shared/ControlTest.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

using LabelsTest = ControlTest;

TEST_F(LabelsTest, TellAScreenReaderWhatAnEmptyListSays) {
    auto& state = shown(new EmptyState(Symbol::clock, u"No sessions yet"_s, u"Start one."_s));
    auto* face = accessible(state);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::StaticText);
    EXPECT_EQ(face->text(QAccessible::Name), u"No sessions yet");
    EXPECT_EQ(face->text(QAccessible::Description), u"Start one.");
}

TEST_F(LabelsTest, AreTextToAScreenReader) {
    auto* face = accessible(shown(new SectionLabel(u"What do you want to get done?"_s)));
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::StaticText);
    EXPECT_EQ(face->text(QAccessible::Name), u"What do you want to get done?");
}

} // namespace
} // namespace tolvar::test
