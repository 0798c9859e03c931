#include "Views/ActiveSession/ActiveSessionView.h"

#include "Models/FocusManagerFixture.h"
#include "Motion/AnimationDriver.h"
#include "Support/HandFrames.h"
#include "Views/ActiveSession/DialDrawing.h"
#include "Views/ActiveSession/ExtendFloater.h"
#include "Views/ActiveSession/GoalSection.h"
#include "Views/ActiveSession/PauseKey.h"
#include "Views/ActiveSession/TimerDial.h"
#include "Views/Theme/Feedback.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class ActiveSessionViewTest : public FocusManagerFixture {
protected:
    ActiveSessionViewTest() { start(); }

    /// The screen, in a window of its own.
    ActiveSessionView& show() {
        view = std::make_unique<ActiveSessionView>(ControlContext{driver, feedback}, *manager);
        view->resize(view->sizeHint());
        view->show();
        QApplication::setActiveWindow(view.get());
        frames.advance(5);
        journal.take();
        return *view;
    }

    PauseKey& pauseKey() const { return *view->findChild<PauseKey*>(); }
    /// The key of this name.
    KeyButton& key(const QString& name) const {
        for (KeyButton* found : view->findChildren<KeyButton*>())
            if (found->name() == name)
                return *found;
        throw std::runtime_error("no key " + name.toStdString());
    }
    TimerDial& dial() const { return *view->findChild<TimerDial*>(); }
    void click(const QString& name) const { QTest::mouseClick(&key(name), Qt::LeftButton); }
    static QString nameOf(QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
    }
    template<typename Part>
    QString said() const {
        return nameOf(*view->findChild<Part*>());
    }

    HandFrames frames;
    AnimationDriver driver{frames};
    Feedback feedback{desk.preferences, desk.haptics, desk.sound};
    std::unique_ptr<ActiveSessionView> view;
};

TEST_F(ActiveSessionViewTest, SaysWhatTheSessionIs) {
    show();
    EXPECT_EQ(said<GoalCaption>(), u"You're focusing on"_s);
    EXPECT_EQ(said<GoalText>(), u"Write report"_s);
    EXPECT_EQ(said<TimerDial>(), u"25:00, of 25 minutes"_s);
    clock.advance(1);
    EXPECT_EQ(said<TimerDial>(), u"24:59, of 25 minutes"_s);
}

TEST_F(ActiveSessionViewTest, FollowsAPause) {
    show();
    click(u"Pause, 2 left"_s);
    EXPECT_TRUE(current().isPaused);
    EXPECT_EQ(said<GoalCaption>(), u"You were focusing on"_s);
    EXPECT_EQ(said<TimerDial>(), u"25:00, Paused for 2:00"_s);
    clock.advance(3);
    EXPECT_EQ(said<TimerDial>(), u"25:00, Paused for 1:57"_s);
    click(u"Resume"_s);
    EXPECT_FALSE(current().isPaused);
    EXPECT_EQ(said<GoalCaption>(), u"You're focusing on"_s);
    EXPECT_EQ(pauseKey().name(), u"Pause, 1 left"_s);
}

TEST_F(ActiveSessionViewTest, HasNoMorePausesAfterTwo) {
    show();
    click(u"Pause, 2 left"_s);
    click(u"Resume"_s);
    click(u"Pause, 1 left"_s);
    EXPECT_TRUE(key(u"Resume"_s).isEnabled());
    clock.advance(FocusSession::maximumPause);
    EXPECT_FALSE(current().isPaused) << "a pause ends by itself";
    EXPECT_FALSE(key(u"No pauses left"_s).isEnabled());
    EXPECT_EQ(pauseKey().face().lamps, 0);
}

TEST_F(ActiveSessionViewTest, PausesWithNoHapticOfItsOwn) {
    show();
    click(u"Pause, 2 left"_s);
    const auto lines = journal.take();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), u"haptic levelChange"_s), 1)
        << "the manager's alone";
}

TEST_F(ActiveSessionViewTest, ExtendsByFiveMinutesAtEachPress) {
    show();
    click(u"Add 5 minutes"_s);
    frames.advance(0.2);
    const double high = view->findChild<ExtendFloater*>()->frame().y;
    click(u"Add 5 minutes"_s);
    frames.advance(1 / HandFrames::rate);
    EXPECT_EQ(current().duration, 35 * minute);
    EXPECT_EQ(view->extendCount(), 2);
    EXPECT_LT(high, -5);
    EXPECT_GT(view->findChild<ExtendFloater*>()->frame().y, high) << "it flies twice";
    EXPECT_EQ(said<TimerDial>(), u"35:00, of 35 minutes"_s);
}

TEST_F(ActiveSessionViewTest, TapsBeforeItExtends) {
    show();
    click(u"Add 5 minutes"_s);
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic generic"_s, u"play keyDown"_s, u"play keyUp"_s,
                                            u"haptic levelChange"_s, testing::_));
    desk.preferences.setBoolean(AppSettings::hapticsEnabled, false);
    journal.take();
    click(u"Add 5 minutes"_s);
    EXPECT_THAT(journal.take(), Not(Contains(u"haptic levelChange"_s)));
}

TEST_F(ActiveSessionViewTest, StopsWithoutAsking) {
    show();
    journal.take();
    click(u"Stop"_s);
    const auto lines = journal.take();
    ASSERT_GT(lines.size(), 4U);
    EXPECT_EQ(lines[3], u"haptic levelChange"_s) << "before the session is stopped";
    EXPECT_EQ(manager->currentSession(), std::nullopt);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::endedEarly);
}

TEST_F(ActiveSessionViewTest, IsEmptyWithoutASession) {
    show();
    click(u"Stop"_s);
    for (const QWidget* part : view->findChildren<QWidget*>())
        EXPECT_FALSE(part->isVisible());
    frames.advance(5);
    EXPECT_FALSE(frames.isRunning());
    start();
    EXPECT_TRUE(dial().isVisible());
}

TEST_F(ActiveSessionViewTest, MayBeDestroyedByWhatItsKeysDo) {
    show();
    QObject::connect(manager.get(), &FocusManager::currentSessionChanged, view.get(),
                     [this] { view.reset(); });
    for (auto* stop : {&key(u"Stop"_s)})
        stop->click();
    EXPECT_EQ(view, nullptr);
}

TEST_F(ActiveSessionViewTest, IsWalkedThroughInTheOrderOfItsKeys) {
    show();
    pauseKey().setFocus(Qt::TabFocusReason);
    std::vector<QString> names;
    for (int i = 0; i < 3; ++i) {
        names.push_back(static_cast<KeyButton*>(view->focusWidget())->name());
        QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(names, ElementsAre(u"Pause, 2 left"_s, u"Add 5 minutes"_s, u"Stop"_s));
    EXPECT_EQ(view->focusWidget(), &pauseKey());
}

TEST_F(ActiveSessionViewTest, IsWorkedByTheKeyboard) {
    show();
    pauseKey().setFocus();
    QTest::keyClick(&pauseKey(), Qt::Key_Space);
    EXPECT_TRUE(current().isPaused);
    QTest::keyClick(&pauseKey(), Qt::Key_Return);
    EXPECT_FALSE(current().isPaused);
}

TEST_F(ActiveSessionViewTest, GivesTheFocusOnWhenNoPausesAreLeft) {
    auto session = plan();
    session.pauseCount = 1;
    start(session);
    show();
    pauseKey().setFocus();
    QTest::keyClick(&pauseKey(), Qt::Key_Space);
    EXPECT_EQ(view->focusWidget(), &pauseKey());
    QTest::keyClick(&pauseKey(), Qt::Key_Space);
    EXPECT_EQ(view->focusWidget(), &key(u"Add 5 minutes"_s));
}

TEST_F(ActiveSessionViewTest, LaysItsPartsOutInAColumn) {
    show();
    const auto* caption = view->findChild<GoalCaption*>();
    const auto* goal = view->findChild<GoalText*>();
    EXPECT_EQ(caption->y(), 34);
    EXPECT_EQ(goal->x(), 30);
    EXPECT_EQ(goal->width(), 340);
    const QRect square =
        dial().geometry().adjusted(DialMeasures::overhang, DialMeasures::overhang,
                                   -DialMeasures::overhang, -DialMeasures::overhang);
    EXPECT_EQ(square.size(), QSize(200, 200));
    EXPECT_EQ(square.x(), 100);
    EXPECT_EQ(square.top(), goal->geometry().bottom() + 1 + 30);
}

TEST_F(ActiveSessionViewTest, LaysItsKeysOutInARow) {
    show();
    int left = 20;
    for (const QString& name : {u"Pause, 2 left"_s, u"Add 5 minutes"_s, u"Stop"_s}) {
        EXPECT_EQ(key(name).geometry(), QRect(left, 502 - 24 - 43, 114, 43)) << name.toStdString();
        left += 114 + 9;
    }
}

TEST_F(ActiveSessionViewTest, MovesItsDialDownForALongGoal) {
    const int high = show().findChild<TimerDial*>()->y();
    auto session = plan();
    session.goal = u"again and "_s.repeated(40);
    start(session);
    show();
    const int low = dial().y();
    EXPECT_GT(low, high);
    EXPECT_LT(dial().geometry().bottom(), pauseKey().y()) << "three lines leave room";
    EXPECT_EQ(said<GoalText>(), session.goal) << "said in full";
}

TEST_F(ActiveSessionViewTest, KeepsItsHeightWithoutAGoal) {
    const int withGoal = show().findChild<TimerDial*>()->y();
    auto session = plan();
    session.goal.clear();
    start(session);
    EXPECT_EQ(show().findChild<TimerDial*>()->y(), withGoal);
}

TEST_F(ActiveSessionViewTest, ShowsOnlyItsTextsAndKeysToAssistiveTechnology) {
    show();
    auto* screen = QAccessible::queryAccessibleInterface(view.get());
    std::vector<QString> seen;
    for (int i = 0; i < screen->childCount(); ++i)
        seen.push_back(screen->child(i)->text(QAccessible::Name));
    EXPECT_THAT(seen,
                ElementsAre(u"You're focusing on"_s, u"Write report"_s, u"25:00, of 25 minutes"_s,
                            u"Pause, 2 left"_s, u"Add 5 minutes"_s, u"Stop"_s));
}

TEST_F(ActiveSessionViewTest, IsMirroredForLanguagesFromRightToLeft) {
    show();
    view->setLayoutDirection(Qt::RightToLeft);
    view->resize(view->width() + 1, view->height());
    EXPECT_GT(pauseKey().x(), key(u"Stop"_s).x());
}

TEST_F(ActiveSessionViewTest, TakesNoFramesWhileNothingMoves) {
    show();
    clock.advance(1);
    EXPECT_TRUE(frames.isRunning()) << "a digit rolls";
    frames.advance(2);
    EXPECT_FALSE(frames.isRunning());
    view->hide();
    clock.advance(1);
    EXPECT_FALSE(frames.isRunning()) << "but not where nobody sees it";
}

} // namespace
} // namespace tolvar::test
