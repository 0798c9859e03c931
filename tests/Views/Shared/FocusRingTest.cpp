#include "Views/Shared/FocusRing.h"

#include "Views/Shared/ControlTest.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/InstrumentSlider.h"
#include "Views/Shared/KeyButton.h"

#include <QScrollArea>
#include <QScrollBar>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FocusRingTest : public ControlTest {
protected:
    FocusRingTest() {
        window.show();
        QApplication::setActiveWindow(&window);
    }

    /// The rim that the ring stands around, in the window.
    QRect rim() const {
        const int around = static_cast<int>(FocusRing::outset) + 2;
        return ring->geometry().adjusted(around, around, -around, -around);
    }
    KeyButton& addKey() {
        return shown(new KeyButton(context(), KeyStyle::standard(), u"Start"_s));
    }

    FocusRing* ring = new FocusRing(window);
};

TEST_F(FocusRingTest, StandsAroundWhatWasReachedByTheKeyboard) {
    auto& key = addKey();
    EXPECT_FALSE(ring->isVisible());
    key.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(ring->isVisible());
    EXPECT_EQ(rim(), key.geometry());
}

TEST_F(FocusRingTest, DoesNotShowForThoseWhoCameByTheMouse) {
    auto& key = addKey();
    key.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(ring->isVisible());
}

TEST_F(FocusRingTest, GoesWhenTheMouseIsPressed) {
    auto& key = addKey();
    key.setFocus(Qt::TabFocusReason);
    press(key);
    EXPECT_FALSE(ring->isVisible());
}

TEST_F(FocusRingTest, ComesBackWithTheWindow) {
    auto& key = addKey();
    key.setFocus(Qt::TabFocusReason);
    key.clearFocus();
    EXPECT_FALSE(ring->isVisible());
    key.setFocus(Qt::ActiveWindowFocusReason);
    EXPECT_TRUE(ring->isVisible());
}

TEST_F(FocusRingTest, MovesWithTheControlAndWithWhatThatStandsIn) {
    QWidget& pane = shown(new QWidget);
    pane.resize(300, 100);
    auto* key = new KeyButton(context(), KeyStyle::standard(), u"Start"_s, &pane);
    key->resize(key->sizeHint());
    key->show();
    key->setFocus(Qt::TabFocusReason);
    key->move(10, 5);
    EXPECT_EQ(rim(), QRect(key->mapTo(&window, QPoint(0, 0)), key->size()));
    pane.move(40, 60);
    EXPECT_EQ(rim(), QRect(key->mapTo(&window, QPoint(0, 0)), key->size()));
}

TEST_F(FocusRingTest, IsNotDrawnBeyondThePageThatItsControlScrollsOn) {
    auto& area = shown(new QScrollArea);
    area.setFrameShape(QFrame::NoFrame);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* page = new QWidget;
    page->resize(200, 400);
    auto* key = new KeyButton(context(), KeyStyle::standard(), u"Start"_s, page);
    key->setGeometry(20, 40, 100, 40);
    area.setWidget(page);
    area.setGeometry(50, 60, 200, 100);
    key->setFocus(Qt::TabFocusReason);
    const QRect above(50, 0, 200, 60);
    area.verticalScrollBar()->setValue(0);
    const QImage clear = picture(window).copy(above);
    area.verticalScrollBar()->setValue(60);
    ASSERT_TRUE(ring->isVisible());
    ASSERT_TRUE(ring->geometry().intersects(above));
    EXPECT_EQ(picture(window).copy(above), clear);
}

TEST_F(FocusRingTest, FollowsTheKnobOfASlider) {
    auto& slider = shown(new InstrumentSlider(context(), u"Volume"_s, {}));
    slider.setFocus(Qt::TabFocusReason);
    const QRect before = rim();
    key(slider, QEvent::KeyPress, Qt::Key_End);
    picture(slider);
    EXPECT_GT(rim().left(), before.left());
    EXPECT_EQ(rim().size(), before.size());
}

TEST_F(FocusRingTest, LeavesAFieldToItsOwnRim) {
    auto& field = shown(new InstrumentField(context(), u"What is your goal?"_s, {}));
    field.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(ring->isVisible());
}

TEST_F(FocusRingTest, GoesWithAControlThatIsHiddenOrDestroyed) {
    auto& key = addKey();
    key.setFocus(Qt::TabFocusReason);
    key.hide();
    EXPECT_FALSE(ring->isVisible());
    auto* other = &addKey();
    other->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(ring->isVisible());
    delete other;
    EXPECT_FALSE(ring->isVisible());
}

} // namespace
} // namespace tolvar::test
