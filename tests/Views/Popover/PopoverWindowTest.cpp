#include "Views/Popover/PopoverWindow.h"

#include "Platform/Interfaces/PointerPresses.h"
#include "Support/RecordingPanelWindows.h"
#include "Support/ToleratedWarning.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScreen>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

/// A pointer that presses where it is told to.
class FakePresses final : public PointerPresses {
public:
    Subscription observe(Pressed pressed) override {
        m_pressed = std::move(pressed);
        return Subscription([this] { m_pressed = nullptr; });
    }
    bool isObserved() const { return static_cast<bool>(m_pressed); }
    void press(const QPoint& position) { m_pressed(position); }

private:
    Pressed m_pressed;
};

class PopoverWindowTest : public testing::Test {
protected:
    static constexpr QSize usual{300, 400};
    static constexpr int lowest = 200;
    /// Below the middle of a screen, and outside of the popover in any case.
    static constexpr QRect anchor{400, 20, 20, 20};
    static constexpr QPoint elsewhere{5, 790};

    PopoverWindowTest() {
        page->setFixedWidth(usual.width());
        page->setMinimumHeight(lowest);
        auto* column = new QVBoxLayout(page);
        column->addWidget(line);
        column->addSpacing(usual.height());
    }
    void compose(const QString& text) {
        QInputMethodEvent event(text, {});
        QApplication::sendEvent(line, &event);
    }

    Journal journal;
    RecordingPanelWindows panels{journal};
    FakePresses presses;
    QWidget* page = new QWidget;
    QLineEdit* line = new QLineEdit;
    PopoverWindow window{{panels, presses, [] { return 0.0; }}, page};
};

TEST_F(PopoverWindowTest, IsClosedByAPressElsewhere) {
    window.open(anchor);
    ASSERT_TRUE(window.isVisible());
    presses.press(elsewhere);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(presses.isObserved());
}

TEST_F(PopoverWindowTest, StaysForAPressWithinItOrOnItsAnchor) {
    window.open(anchor);
    presses.press(window.geometry().center());
    presses.press(anchor.center());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(PopoverWindowTest, StaysForAPressOnWhatAnInputMethodOffers) {
    window.open(anchor);
    compose(QStringLiteral("ㄍ"));
    presses.press(elsewhere);
    EXPECT_TRUE(window.isVisible());
    compose({});
    presses.press(elsewhere);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PopoverWindowTest, ForgetsWhatWasComposedWhenItWasClosed) {
    window.open(anchor);
    compose(QStringLiteral("ㄍ"));
    window.hide();
    window.open(anchor);
    presses.press(elsewhere);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PopoverWindowTest, IsNoHigherThanThePanelsLeaveRoomFor) {
    const ToleratedWarning noSizeHints(QStringLiteral("propagateSizeHints"));
    const int screen = QApplication::primaryScreen()->geometry().height();
    window.open(anchor);
    const int usualHeight = window.card().height();
    EXPECT_GT(usualHeight, lowest);
    window.hide();
    panels.freeHeight = usualHeight - 50;
    ASSERT_LT(panels.freeHeight, screen);
    window.open(anchor);
    EXPECT_LT(window.card().height(), panels.freeHeight);
    EXPECT_GE(window.card().height(), panels.freeHeight - 10);
    window.hide();
    panels.freeHeight = lowest / 2;
    window.open(anchor);
    EXPECT_GE(window.card().height(), lowest);
    window.hide();
    panels.freeHeight = screen;
    window.open(anchor);
    EXPECT_EQ(window.card().height(), usualHeight);
}

TEST_F(PopoverWindowTest, GoesBackToWhereItIsToStandButNotForEver) {
    window.open(anchor);
    const QPoint place = window.pos();
    const auto push = [&] {
        window.move(place + QPoint(2, 22));
        QApplication::processEvents();
        return window.pos();
    };
    EXPECT_EQ(push(), place);
    EXPECT_EQ(push(), place);
    EXPECT_EQ(push(), place);
    EXPECT_EQ(push(), place + QPoint(2, 22));
}

} // namespace
} // namespace tolvar::test
