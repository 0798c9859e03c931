#include "Views/Shared/SwipeActionsContainer.h"

#include "Support/HandClock.h"
#include "Support/ToleratedWarning.h"
#include "Views/Shared/ControlTest.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/WindowHand.h"
#include "Views/Theme/Instrument.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

#include <memory>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

/// A row with three keys of 50 points and 10 between them, so that it opens by 180.
class SwipeActionsContainerTest : public ControlTest {
protected:
    static constexpr double openWidth = 180;

    SwipeActionsContainerTest() {
        window.resize(400, 200);
        auto* card = new QWidget;
        button = new QPushButton(u"Begin"_s, card);
        button->setGeometry(10, 10, 80, 40);
        QObject::connect(button, &QPushButton::clicked, [this] { done.append(u"begin"_s); });
        container = new SwipeActionsContainer(
            context(), clock, {.keySize = 50, .radius = 8, .gap = 10}, card, &window);
        container->setGeometry(20, 20, 360, 60);
        container->setActions(actions());
        QObject::connect(container, &SwipeActionsContainer::openChanged, container,
                         [this](bool isOpen) { done.append(isOpen ? u"opened"_s : u"closed"_s); });
        QObject::connect(container, &SwipeActionsContainer::deleteRequested, container,
                         [this] { done.append(u"delete?"_s); });
        other = new QPushButton(u"Other"_s, &window);
        other->setGeometry(20, 150, 80, 30);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    std::vector<SwipeAction> actions(bool canSave = true) {
        return {{.title = u"Start"_s,
                 .symbol = Symbol::play,
                 .tint = Instrument::Palette::label,
                 .action = [this] { done.append(u"start"_s); }},
                {.title = canSave ? u"Save"_s : u"Saved"_s,
                 .symbol = Symbol::bookmark,
                 .tint = Instrument::Palette::label,
                 .isEnabled = canSave,
                 .action = [this] { done.append(u"save"_s); }},
                {.title = u"Delete"_s,
                 .symbol = Symbol::trash,
                 .tint = Instrument::Palette::stop,
                 .isDestructive = true,
                 .action = [this] { done.append(u"delete"_s); }}};
    }

    /// The keys that can be seen, from the left.
    std::vector<KeyButton*> keys() const {
        std::vector<KeyButton*> shown;
        for (auto* key : container->findChildren<KeyButton*>())
            if (key->isVisible())
                shown.push_back(key);
        std::ranges::sort(shown, {}, [](const QWidget* key) { return key->x(); });
        return shown;
    }
    void open() {
        container->setOpen(true);
        settle();
    }
    void drag(const QPointF& way) {
        hand.press(hand.middleOf(*container));
        for (int step = 1; step <= 20; ++step)
            hand.moveTo(hand.at(*container, QRectF(container->rect()).center()) + way * step / 20);
    }
    static void key(QWidget& widget, int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(&widget, &event);
    }
    QMenu* menu() const { return container->findChild<QMenu*>(); }
    QStringList takeDone() { return std::exchange(done, {}); }

    HandClock clock;
    SwipeActionsContainer* container = nullptr;
    QPushButton* button = nullptr;
    QPushButton* other = nullptr;
    WindowHand hand{window};
    QStringList done;
};

TEST_F(SwipeActionsContainerTest, FollowsADragAndStaysOpenWhenMoreThanHalfIsRevealed) {
    drag({-108, 0});
    EXPECT_EQ(container->content().x(), -108);
    hand.moveBy({-1, 0});
    hand.release();
    EXPECT_TRUE(container->isOpen());
    EXPECT_THAT(takeDone(), ElementsAre(u"opened"_s));
    EXPECT_GT(container->content().x(), -openWidth) << "it springs there";
    settle();
    EXPECT_EQ(container->content().x(), -openWidth);
}

TEST_F(SwipeActionsContainerTest, SpringsBackWhenLessThanHalfIsRevealed) {
    drag({-72, 0});
    hand.moveBy({-1, 0});
    hand.release();
    settle();
    EXPECT_EQ(container->content().x(), 0);
    EXPECT_THAT(takeDone(), IsEmpty());
}

TEST_F(SwipeActionsContainerTest, OpensWithAFlick) {
    hand.press(hand.middleOf(*container));
    hand.moveBy({-13, 0});
    hand.moveBy({-5, 0});
    hand.release();
    EXPECT_TRUE(container->isOpen());
}

TEST_F(SwipeActionsContainerTest, DoesNotMoveBeforeTwelvePoints) {
    hand.press(hand.middleOf(*container));
    hand.moveBy({-11, 0});
    EXPECT_EQ(container->content().x(), 0);
    hand.moveBy({-1, 0});
    EXPECT_EQ(container->content().x(), -12);
    hand.release();
}

TEST_F(SwipeActionsContainerTest, NeverMovesInADragThatBeganUpOrDown) {
    hand.press(hand.middleOf(*container));
    hand.moveBy({0, 12});
    hand.moveBy({-100, 0});
    EXPECT_EQ(container->content().x(), 0);
    hand.release();
    EXPECT_FALSE(container->isOpen());
}

TEST_F(SwipeActionsContainerTest, StaysWhereItIsWhileADragGoesMoreUpOrDown) {
    drag({-60, 0});
    hand.moveBy({-20, 100});
    EXPECT_EQ(container->content().x(), -60);
    hand.release();
}

TEST_F(SwipeActionsContainerTest, LetsTheCardBeClickedButNotAtTheEndOfADrag) {
    hand.click(hand.middleOf(*button));
    EXPECT_THAT(takeDone(), ElementsAre(u"begin"_s));
    hand.press(hand.middleOf(*button));
    EXPECT_TRUE(button->isDown());
    hand.moveBy({-20, 0});
    EXPECT_FALSE(button->isDown()) << "the hand has taken hold of the row instead";
    hand.moveBy({20, 0});
    hand.moveBy({-14, 0});
    hand.release();
    EXPECT_THAT(takeDone(), testing::Not(testing::Contains(u"begin"_s)));
    settle();
    container->setOpen(false, SwipeActionsContainer::Motion::atOnce);
    hand.click(hand.middleOf(*button));
    EXPECT_THAT(takeDone(), testing::Contains(u"begin"_s)) << "and the next click counts";
}

TEST_F(SwipeActionsContainerTest, BreaksADragOffWithASecondButton) {
    drag({-150, 0});
    hand.press(hand.middleOf(*container), Qt::RightButton);
    hand.release(Qt::RightButton);
    hand.moveBy({-20, 0});
    settle();
    EXPECT_EQ(container->content().x(), 0);
    hand.release();
    EXPECT_FALSE(container->isOpen());
    EXPECT_THAT(takeDone(), IsEmpty());
}

TEST_F(SwipeActionsContainerTest, BreaksADragOffWhenTheMouseIsLost) {
    drag({-150, 0});
    hand.loseTheMouse();
    hand.moveBy({-20, 0});
    settle();
    EXPECT_EQ(container->content().x(), 0);
    EXPECT_FALSE(container->isOpen());
}

TEST_F(SwipeActionsContainerTest, IsAtRestWhenItIsSeenAgainAfterItWasHiddenInADrag) {
    drag({-150, 0});
    container->hide();
    EXPECT_FALSE(frames.isRunning());
    container->show();
    EXPECT_EQ(container->content().x(), 0);
    EXPECT_FALSE(container->isBusy());
    hand.release();
    EXPECT_THAT(takeDone(), IsEmpty());
}

TEST_F(SwipeActionsContainerTest, GoesOnFromWhereItIsWhenItIsCaughtOnItsWay) {
    container->setOpen(true);
    frames.advance(0.1);
    const int before = container->content().x();
    ASSERT_LT(before, -10);
    ASSERT_GT(before, -openWidth);
    hand.press(hand.middleOf(*container));
    hand.moveBy({12, 0});
    EXPECT_NEAR(container->content().x(), before + 12, 1);
    hand.release();
}

TEST_F(SwipeActionsContainerTest, OpensWithASwipeOfTheTouchpad) {
    const QPointF point = hand.middleOf(*container);
    hand.swipe(point, {-10, 1}, 3);
    EXPECT_TRUE(container->isOpen()) << "its last step was a flick";
    settle();
    EXPECT_EQ(container->content().x(), -openWidth);
    hand.swipe(point, {10, 1}, 3);
    EXPECT_FALSE(container->isOpen());
}

TEST_F(SwipeActionsContainerTest, FollowsTheHandOnATouchpadThatScrollsTheOtherWay) {
    const QPointF point = hand.middleOf(*container);
    hand.scroll(point, {.pixels = {}, .phase = Qt::ScrollBegin, .isNatural = false});
    hand.scroll(point, {.pixels = {30, 0}, .isNatural = false});
    EXPECT_EQ(container->content().x(), -30);
}

TEST_F(SwipeActionsContainerTest, IsNotMovedByAScrollThatBeganBesideIt) {
    const QPointF beside = hand.middleOf(*other);
    hand.scroll(beside, {.pixels = {}, .phase = Qt::ScrollBegin});
    hand.scroll(hand.middleOf(*container), {.pixels = {-30, 0}});
    EXPECT_EQ(container->content().x(), 0);
}

TEST_F(SwipeActionsContainerTest, IsNotMovedByAScrollOverSomethingThatLiesOnIt) {
    QWidget sheet(&window);
    sheet.setGeometry(window.rect());
    sheet.show();
    hand.swipe(hand.middleOf(*container), {-30, 0}, 3);
    hand.press(hand.middleOf(*container));
    hand.moveBy({-100, 0});
    hand.release();
    EXPECT_FALSE(container->isOpen());
}

TEST_F(SwipeActionsContainerTest, EndsASwipeWithoutPhasesByAPause) {
    const QPointF point = hand.middleOf(*container);
    hand.scroll(point, {.pixels = {}, .phase = Qt::NoScrollPhase, .angle = {-15, 0}});
    EXPECT_DOUBLE_EQ(container->offset(), -15.0 / 120 * WheelReader::pointsPerNotch)
        << "an eighth of a notch is not nothing";
    hand.scroll(point, {.pixels = {}, .phase = Qt::NoScrollPhase, .angle = {-120, 0}});
    EXPECT_TRUE(container->isBusy());
    clock.advance(0.15);
    EXPECT_FALSE(container->isBusy());
    EXPECT_TRUE(container->isOpen());
}

TEST_F(SwipeActionsContainerTest, IsOpenedByAWheelWithShift) {
    hand.scroll(hand.middleOf(*container), {.pixels = {},
                                            .phase = Qt::NoScrollPhase,
                                            .isNatural = false,
                                            .angle = {0, 120},
                                            .modifiers = Qt::ShiftModifier});
    clock.advance(0.15);
    EXPECT_TRUE(container->isOpen());
}

TEST_F(SwipeActionsContainerTest, ShowsItsKeysOnlyWhileItIsReallyAside) {
    EXPECT_THAT(keys(), IsEmpty());
    open();
    ASSERT_EQ(keys().size(), 3U);
    container->setOpen(false);
    bool wasBeyond = false;
    for (int frame = 0; frame < 200; ++frame) {
        frames.advance(1 / HandFrames::rate);
        wasBeyond |= container->offset() > 0;
        EXPECT_EQ(!keys().empty(), container->offset() < -0.5);
    }
    EXPECT_TRUE(wasBeyond) << "the spring goes past its place";
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(SwipeActionsContainerTest, StandsItsKeysAtTheTrailingEdge) {
    open();
    const auto shown = keys();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0]->geometry(), QRect(190, 5, 50, 50));
    EXPECT_EQ(shown[1]->geometry(), QRect(250, 5, 50, 50));
    EXPECT_EQ(shown[2]->geometry(), QRect(310, 5, 50, 50));
    EXPECT_EQ(shown[0]->name(), u"Start");
    EXPECT_EQ(shown[2]->name(), u"Delete");
    EXPECT_EQ(container->content().geometry().right(), 179) << "a gap before the first key";
}

TEST_F(SwipeActionsContainerTest, IsMirroredWhereTextRunsFromRightToLeft) {
    container->setLayoutDirection(Qt::RightToLeft);
    drag({100, 0});
    EXPECT_EQ(container->content().x(), 100);
    hand.release();
    settle();
    EXPECT_EQ(container->content().x(), openWidth);
    const auto shown = keys();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0]->geometry(), QRect(0, 5, 50, 50));
    EXPECT_EQ(shown[0]->name(), u"Delete");
}

TEST_F(SwipeActionsContainerTest, DoesWhatItsKeysSay) {
    open();
    for (QWidget* key : keys())
        hand.click(hand.middleOf(*key));
    EXPECT_THAT(takeDone(), ElementsAre(u"start"_s, u"save"_s, u"delete"_s));
}

TEST_F(SwipeActionsContainerTest, HasADisabledKeyForADisabledAction) {
    container->setActions(actions(false));
    open();
    EXPECT_FALSE(keys()[1]->isEnabled());
    hand.click(hand.middleOf(*keys()[1]));
    container->perform(1);
    EXPECT_THAT(takeDone(), IsEmpty());
}

TEST_F(SwipeActionsContainerTest, ClosesWithAClickOnTheCardWhichGetsNothingOfIt) {
    open();
    hand.click(hand.at(*container, {40, 30}));
    EXPECT_FALSE(container->isOpen());
    EXPECT_THAT(takeDone(), ElementsAre(u"closed"_s));
    settle();
    hand.click(hand.middleOf(*button));
    EXPECT_THAT(takeDone(), ElementsAre(u"begin"_s)) << "closed, it gets its clicks again";
}

TEST_F(SwipeActionsContainerTest, RevealsNothingWithoutActions) {
    container->setActions({});
    drag({-100, 0});
    EXPECT_EQ(container->content().x(), -25);
    EXPECT_THAT(keys(), IsEmpty());
    hand.release();
    EXPECT_FALSE(container->isOpen());
    container->openMenu({});
    EXPECT_FALSE(menu());
}

TEST_F(SwipeActionsContainerTest, OffersItsActionsInAMenu) {
    const ToleratedWarning offscreen(u"This plugin does not support"_s);
    container->setActions(actions(false));
    container->setCommonActions({{.title = u"Clear R&D…"_s}});
    container->setFocus();
    for (const auto& [code, modifiers] :
         {std::pair{Qt::Key_Menu, Qt::NoModifier}, {Qt::Key_F10, Qt::ShiftModifier}}) {
        key(*container, code, modifiers);
        ASSERT_TRUE(menu());
        QStringList lines;
        for (const QAction* line : menu()->actions())
            lines.append(line->isSeparator() ? u"-"_s : line->text());
        EXPECT_THAT(lines,
                    ElementsAre(u"Start"_s, u"Saved"_s, u"Delete"_s, u"-"_s, u"Clear R&&D…"_s));
        EXPECT_FALSE(menu()->actions()[1]->isEnabled());
        EXPECT_FALSE(menu()->actions()[0]->icon().isNull());
        EXPECT_EQ(menu()->activeAction(), menu()->actions()[0]);
        EXPECT_TRUE(container->isBusy());
        menu()->actions()[0]->trigger();
        EXPECT_THAT(takeDone(), ElementsAre(u"start"_s));
        menu()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(SwipeActionsContainerTest, DoesNotBeginItsMenuOnWhatDestroys) {
    const ToleratedWarning offscreen(u"This plugin does not support"_s);
    container->setActions({{.title = u"Delete"_s, .isDestructive = true}});
    container->setFocus();
    key(*container, Qt::Key_Menu);
    ASSERT_TRUE(menu());
    EXPECT_FALSE(menu()->activeAction());
}

TEST_F(SwipeActionsContainerTest, ChoosesNothingInItsMenuByTheButtonThatOpenedIt) {
    const ToleratedWarning offscreen(u"This plugin does not support"_s);
    container->openMenu({});
    ASSERT_TRUE(menu());
    const QPoint onDelete = menu()->actionGeometry(menu()->actions()[2]).center();
    const auto send = [&](QEvent::Type type, const QPoint& point, Qt::MouseButton changed,
                          Qt::MouseButton held) {
        QMouseEvent event(type, point, menu()->mapToGlobal(point), changed, held, Qt::NoModifier);
        QApplication::sendEvent(menu(), &event);
    };
    for (int step = 20; step >= 0; --step)
        send(QEvent::MouseMove, onDelete - QPoint(step, 0), Qt::NoButton, Qt::RightButton);
    send(QEvent::MouseButtonRelease, onDelete, Qt::RightButton, Qt::NoButton);
    EXPECT_THAT(takeDone(), IsEmpty());
    ASSERT_TRUE(menu() && menu()->isVisible());
    send(QEvent::MouseButtonPress, onDelete, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, onDelete, Qt::LeftButton, Qt::NoButton);
    EXPECT_THAT(takeDone(), ElementsAre(u"delete"_s));
}

TEST_F(SwipeActionsContainerTest, ClosesItsMenuWhenItHidesOrWhatItOffersChanges) {
    const ToleratedWarning offscreen(u"This plugin does not support"_s);
    container->openMenu({});
    const QPointer<QMenu> first = menu();
    ASSERT_TRUE(first);
    container->setActions(actions());
    EXPECT_TRUE(first->isVisible()) << "nothing of it has changed";
    container->setActions(actions(false));
    EXPECT_TRUE(!first || !first->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    container->openMenu({});
    const QPointer<QMenu> second = menu();
    ASSERT_TRUE(second);
    container->hide();
    EXPECT_TRUE(!second || !second->isVisible());
}

TEST_F(SwipeActionsContainerTest, AsksForItsDeletionByTheDeleteKeyAlone) {
    container->setFocus();
    key(*container, Qt::Key_Delete);
    EXPECT_THAT(takeDone(), ElementsAre(u"delete?"_s));
    key(*container, Qt::Key_Delete, Qt::KeypadModifier);
    EXPECT_THAT(takeDone(), ElementsAre(u"delete?"_s));
    for (const auto modifier :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        key(*container, Qt::Key_Delete, modifier);
    EXPECT_THAT(takeDone(), IsEmpty());
}

TEST_F(SwipeActionsContainerTest, IsClosedByEscapeWhichElseGoesOn) {
    QKeyEvent closed(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    closed.setAccepted(true);
    QApplication::sendEvent(container, &closed);
    EXPECT_FALSE(closed.isAccepted());
    open();
    key(*container, Qt::Key_Escape);
    EXPECT_FALSE(container->isOpen());
    EXPECT_THAT(takeDone(), ElementsAre(u"closed"_s));
}

TEST_F(SwipeActionsContainerTest, TakesTheKeyboardFromAKeyThatGoesAway) {
    open();
    keys()[2]->setFocus();
    container->setOpen(false);
    settle();
    EXPECT_TRUE(container->hasFocus()) << "closed";
    open();
    keys()[1]->setFocus();
    container->setActions(actions(false));
    EXPECT_TRUE(container->hasFocus()) << "disabled";
    keys()[2]->setFocus();
    container->setActions({actions()[0]});
    EXPECT_TRUE(container->hasFocus()) << "removed";
}

TEST_F(SwipeActionsContainerTest, LeavesTheKeyboardOnAKeyThatStays) {
    open();
    keys()[2]->setFocus();
    container->setActions(actions(false));
    EXPECT_EQ(QApplication::focusWidget(), keys()[2]);
    EXPECT_EQ(keys()[2]->name(), u"Delete");
}

TEST_F(SwipeActionsContainerTest, TakesTabOnlyWhereItIsAskedTo) {
    container->setTakesTab(false);
    EXPECT_FALSE(container->focusPolicy() & Qt::TabFocus & ~Qt::ClickFocus);
    EXPECT_FALSE(button->focusPolicy() & Qt::TabFocus);
    container->setTakesTab(true);
    EXPECT_EQ(button->focusPolicy(), QPushButton().focusPolicy());
    EXPECT_THAT(container->tabStops(), ElementsAre(container, button));
    open();
    EXPECT_EQ(container->tabStops().size(), 5U);
}

TEST_F(SwipeActionsContainerTest, JumpsWhenMotionIsReduced) {
    driver.setSettings({.isReduced = true});
    container->setOpen(true);
    EXPECT_EQ(container->content().x(), -openWidth);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(SwipeActionsContainerTest, NeedsNoFramesAtRest) {
    open();
    EXPECT_FALSE(frames.isRunning());
    EXPECT_EQ(clock.runningTimers(), 0U);
}

TEST_F(SwipeActionsContainerTest, IsAnItemWithItsActionsToAssistiveTechnology) {
    container->setAccessibleName(u"Write report"_s);
    container->setActions(actions(false));
    auto* face = accessible(*container);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::ListItem);
    EXPECT_EQ(face->text(QAccessible::Name), u"Write report");
    auto* actionsOfFace = face->actionInterface();
    ASSERT_TRUE(actionsOfFace);
    EXPECT_THAT(actionsOfFace->actionNames(),
                ElementsAre(u"Start"_s, u"Delete"_s, QAccessibleActionInterface::showMenuAction(),
                            QAccessibleActionInterface::setFocusAction()));
    actionsOfFace->doAction(u"Delete"_s);
    EXPECT_THAT(takeDone(), ElementsAre(u"delete"_s));
    EXPECT_EQ(face->childCount(), 1);
    open();
    EXPECT_EQ(face->childCount(), 4);
    EXPECT_EQ(face->child(3)->text(QAccessible::Name), u"Delete");
    EXPECT_EQ(face->indexOfChild(face->child(3)), 3);
}

} // namespace
} // namespace tolvar::test
