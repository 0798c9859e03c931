#include "Models/FocusManagerFixture.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FocusManagerLifecycle : public FocusManagerFixture {};

TEST_F(FocusManagerLifecycle, BeginsReadyWithNothingRunning) {
    EXPECT_FALSE(manager->currentSession());
    EXPECT_TRUE(manager->savedPresets().empty());
    EXPECT_TRUE(manager->sessionHistory().empty());
    EXPECT_EQ(clock.runningTimers(), 0u);
    EXPECT_FALSE(desk.workspace.isWatched());
    EXPECT_FALSE(desk.browsers.isObserved());
}

TEST_F(FocusManagerLifecycle, StartsWithAHapticThenBlocksThenSaves) {
    manager->startSession(plan());
    EXPECT_EQ(journal.take(), texts({u"haptic levelChange", u"watch applications", u"hide Slack",
                                     u"watch tabs", u"write currentSession"}));
}

TEST_F(FocusManagerLifecycle, StampsAStartedSessionAndKeepsTheRestOfThePlan) {
    auto expected = plan();
    manager->startSession(expected);
    expected.startTime = HandClock::start;
    expected.endTime = HandClock::start + 25 * minute;
    expected.isActive = true;
    EXPECT_EQ(current(), expected);
    EXPECT_EQ(storedSession(), expected);
}

TEST_F(FocusManagerLifecycle, StartsUnpausedWhateverTheCallerBuilt) {
    auto session = plan();
    session.isPaused = true;
    session.pauseCount = 1;
    manager->startSession(session);
    EXPECT_FALSE(current().isPaused);
    EXPECT_EQ(current().pauseCount, 1);
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerLifecycle, BlocksWhatTheCategoriesAndTheSessionName) {
    auto session = plan();
    const auto discord = desk.workspace.launch(u"Discord"_s);
    const auto steam = desk.workspace.launch(u"Steam"_s);
    session.blockCategories = {*BlockCategory::builtIn(u"Gaming"_s),
                               *BlockCategory::builtIn(u"Messaging"_s)};
    desk.browsers.show(u"chrome"_s, {{u"tab1"_s, u"https://twitch.tv/x"_s}});
    journal.take();
    manager->startSession(session);
    EXPECT_EQ(journal.take(),
              texts({u"haptic levelChange", u"watch applications", u"hide Discord", u"hide Slack",
                     u"hide Steam", u"watch tabs", u"write currentSession"}));
    clock.advance(2);
    EXPECT_EQ(journal.take(),
              texts({u"read chrome", u"redirect chrome: tab1", u"alert site twitch.tv"}));
    EXPECT_TRUE(desk.workspace.isHidden(discord) && desk.workspace.isHidden(steam));
}

TEST_F(FocusManagerLifecycle, BlocksNothingForASessionThatNamesNothing) {
    auto session = plan();
    session.blockedApps.clear();
    session.blockedWebsites = {u"   "_s, u"\n"_s};
    manager->startSession(session);
    EXPECT_EQ(journal.take(), texts({u"haptic levelChange", u"write currentSession"}));
    EXPECT_EQ(clock.runningTimers(), 1u) << "the tick alone";
}

TEST_F(FocusManagerLifecycle, BlocksOneHostHoweverItIsSpelled) {
    auto session = plan();
    session.blockedWebsites = {u"  WWW.Example.com "_s, u"www.www.docs.org"_s, u" "_s};
    session.blockCategories = {
        {.id = u"a"_s, .name = u"A"_s, .apps = {}, .websites = {u"example.com"_s}}};
    desk.browsers.show(u"chrome"_s, {{u"tab1"_s, u"https://m.example.com"_s},
                                     {u"tab2"_s, u"https://docs.org"_s},
                                     {u"tab3"_s, u"https://www.docs.org"_s}});
    start(session);
    clock.advance(2);
    EXPECT_EQ(journal.take(),
              texts({u"read chrome", u"redirect chrome: tab1, tab3", u"alert site example.com"}));
}

TEST_F(FocusManagerLifecycle, ReplacesARunningSessionWithoutFilingIt) {
    start();
    clock.advance(minute);
    const auto second = plan();
    manager->startSession(second);
    EXPECT_EQ(current().id, second.id);
    EXPECT_EQ(storedSession()->id, second.id);
    EXPECT_TRUE(manager->sessionHistory().empty());
    EXPECT_EQ(clock.runningTimers(), 3u) << "one tick and one poll per blocker";
}

TEST_F(FocusManagerLifecycle, KeepsTheBlocksOfAReplacedSessionUntilTheEnd) {
    start();
    auto second = plan();
    second.blockedApps.clear();
    manager->startSession(second);
    EXPECT_TRUE(isSlackHidden());
    manager->stopSession();
    EXPECT_FALSE(isSlackHidden());
}

TEST_F(FocusManagerLifecycle, LiftsTheBlocksThenFilesAndClearsInOneWriteWhenStopped) {
    start();
    manager->stopSession();
    EXPECT_EQ(journal.take(), texts({u"unwatch applications", u"unhide Slack", u"unwatch tabs",
                                     u"write -currentSession, sessionHistory"}));
    EXPECT_EQ(clock.runningTimers(), 0u);
    EXPECT_FALSE(manager->currentSession());
    EXPECT_FALSE(storedSession());
}

TEST_F(FocusManagerLifecycle, FilesAStoppedSessionAsEndedEarly) {
    start();
    auto expected = current();
    clock.advance(10 * minute);
    manager->stopSession();
    expected.isActive = false;
    expected.outcome = SessionOutcome::endedEarly;
    expected.focusedTime = 10 * minute;
    expected.endTime = HandClock::start + 10 * minute;
    EXPECT_EQ(manager->sessionHistory(), std::vector{expected});
    EXPECT_EQ(storedHistory(), std::vector{expected});
}

TEST_F(FocusManagerLifecycle, FilesEndedEarlyWithOneSecondLeft) {
    start();
    clock.advance(25 * minute - 1);
    manager->stopSession();
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::endedEarly);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute - 1);
}

TEST_F(FocusManagerLifecycle, FilesCompletedWhenStoppedByHandAfterTheTimeWasUp) {
    start();
    clock.suspend(25 * minute);
    manager->stopSession();
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute);
    EXPECT_TRUE(desk.notifications.shown.empty());
}

TEST_F(FocusManagerLifecycle, AppendsEndedSessionsInTheirOrder) {
    std::vector<QUuid> ids;
    for (int count = 0; count < 3; ++count) {
        start();
        ids.push_back(current().id);
        clock.advance(minute);
        manager->stopSession();
    }
    ASSERT_EQ(manager->sessionHistory().size(), 3u);
    for (std::size_t index = 0; index < ids.size(); ++index)
        EXPECT_EQ(manager->sessionHistory()[index].id, ids[index]);
    EXPECT_EQ(storedHistory(), manager->sessionHistory());
}

TEST_F(FocusManagerLifecycle, ExtendsDurationAndPlannedEndAndNothingElse) {
    start();
    auto expected = current();
    clock.advance(minute);
    manager->extendSession(300);
    EXPECT_EQ(journal.take(), texts({u"write currentSession"}));
    expected.duration = 1800;
    expected.endTime = HandClock::start + 1800;
    EXPECT_EQ(current(), expected);
    EXPECT_EQ(storedSession(), expected);
    EXPECT_EQ(current().remainingTime(clock.now()), 1740);
}

TEST_F(FocusManagerLifecycle, ExtendsWithoutAnUpperBound) {
    start();
    for (int count = 0; count < 100; ++count)
        manager->extendSession(300);
    EXPECT_EQ(current().duration, 25 * minute + 30000);
}

TEST_F(FocusManagerLifecycle, RunsAnExtendedSessionToItsNewEnd) {
    start();
    manager->extendSession(300);
    clock.advance(30 * minute - 1);
    EXPECT_TRUE(manager->currentSession());
    clock.advance(1);
    EXPECT_FALSE(manager->currentSession());
    EXPECT_EQ(lastFiled().duration, 1800);
    EXPECT_EQ(lastFiled().focusedTime, 1800);
}

TEST_F(FocusManagerLifecycle, DoesNothingWithoutASession) {
    int changes = 0;
    QObject::connect(manager.get(), &FocusManager::changed, [&] { ++changes; });
    manager->pauseSession();
    manager->resumeSession();
    manager->extendSession(300);
    manager->stopSession();
    EXPECT_EQ(journal.take(), Texts());
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(manager->sessionHistory().empty());
}

TEST_F(FocusManagerLifecycle, GivesNoHapticWhenThatIsSwitchedOffAndDoesTheSameOtherwise) {
    desk.preferences.setBoolean(AppSettings::hapticsEnabled, false);
    journal.take();
    manager->startSession(plan());
    manager->pauseSession();
    manager->resumeSession();
    manager->stopSession();
    EXPECT_EQ(journal.take(),
              texts({u"watch applications", u"hide Slack", u"watch tabs", u"write currentSession",
                     u"unwatch applications", u"unhide Slack", u"unwatch tabs",
                     u"write currentSession", u"watch applications", u"hide Slack", u"watch tabs",
                     u"write currentSession", u"unwatch applications", u"unhide Slack",
                     u"unwatch tabs", u"write -currentSession, sessionHistory"}));
}

TEST_F(FocusManagerLifecycle, ReadsTheHapticSettingAtEachOperation) {
    start();
    desk.preferences.setBoolean(AppSettings::hapticsEnabled, false);
    journal.take();
    manager->pauseSession();
    EXPECT_FALSE(journal.take().front().startsWith(u"haptic"_s));
    desk.preferences.setBoolean(AppSettings::hapticsEnabled, true);
    journal.take();
    manager->resumeSession();
    EXPECT_EQ(journal.take().front(), u"haptic levelChange"_s);
}

TEST_F(FocusManagerLifecycle, NeverHidesItsOwnProgram) {
    const auto self =
        desk.workspace.launch(u"Tolvar"_s, {.processIdentifier = FakeDesk::processIdentifier});
    const auto sibling =
        desk.workspace.launch(u"Tolvar"_s, {.bundleIdentifier = desk.bundle.identifier});
    auto session = plan();
    session.blockedApps = {u"Tolvar"_s};
    start(session);
    desk.workspace.activate(self);
    EXPECT_FALSE(desk.workspace.isHidden(self) || desk.workspace.isHidden(sibling));
}

TEST_F(FocusManagerLifecycle, ShowsWhatIsHiddenWhenTheProgramQuitsAndSavesNothing) {
    start();
    manager.reset();
    EXPECT_EQ(journal.take(), texts({u"unwatch tabs", u"unwatch applications", u"unhide Slack"}));
    EXPECT_EQ(clock.runningTimers(), 0u);
    EXPECT_TRUE(storedSession());
}

} // namespace
} // namespace tolvar::test
