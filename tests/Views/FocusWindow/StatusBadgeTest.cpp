#include "Views/FocusWindow/StatusBadge.h"

#include "Views/Shared/ControlTest.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class StatusBadgeTest : public ControlTest {
protected:
    StatusBadge& badge = shown(new StatusBadge(driver, SessionStatus::ready));
};

TEST_F(StatusBadgeTest, SaysTheStatusToAScreenReader) {
    auto* face = accessible(badge);
    EXPECT_EQ(face->role(), QAccessible::StaticText);
    EXPECT_EQ(face->text(QAccessible::Name), u"Ready");
    badge.setStatus(SessionStatus::focusing);
    EXPECT_EQ(face->text(QAccessible::Name), u"Focusing");
    badge.setStatus(SessionStatus::paused);
    EXPECT_EQ(face->text(QAccessible::Name), u"Paused");
}

TEST_F(StatusBadgeTest, KeepsItsPlaceWhateverItSays) {
    const QSize before = badge.size();
    badge.setStatus(SessionStatus::focusing);
    EXPECT_EQ(badge.size(), before);
    EXPECT_EQ(badge.sizeHint(), before);
}

TEST_F(StatusBadgeTest, StandsStillWhileReady) {
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(StatusBadgeTest, BreathesWhileFocusingAndSeen) {
    badge.setStatus(SessionStatus::focusing);
    settle();
    EXPECT_TRUE(driver.isAwake());
    window.hide();
    EXPECT_FALSE(driver.isAwake());
    window.show();
    EXPECT_TRUE(driver.isAwake());
    badge.setStatus(SessionStatus::paused);
    settle();
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(StatusBadgeTest, DoesNotBreatheUnderReducedMotion) {
    driver.setSettings({.isReduced = true});
    badge.setStatus(SessionStatus::focusing);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(StatusBadgeTest, PushesTheFormerWordOut) {
    const QImage ready = picture(badge);
    badge.setStatus(SessionStatus::paused);
    EXPECT_EQ(picture(badge), ready) << "nothing has moved yet";
    frames.advance(0.1);
    const QImage between = picture(badge);
    settle();
    const QImage paused = picture(badge);
    EXPECT_NE(between, ready);
    EXPECT_NE(between, paused);
    StatusBadge other(driver, SessionStatus::paused);
    EXPECT_EQ(picture(other), paused);
}

} // namespace
} // namespace tolvar::test
