#include "Services/AppBlockerService.h"

#include "Support/FakeWorkspace.h"
#include "Support/HandClock.h"
#include "Support/RecordingAlert.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class AppBlocker : public testing::Test {
protected:
    static constexpr qint64 ownProcess = 42;
    static inline const QString ownBundle = u"app.tolvar.Tolvar"_s;

    Journal journal;
    HandClock clock;
    FakeWorkspace workspace{journal};
    RecordingAlert alert{journal};
    std::unique_ptr<AppBlockerService> blocker = makeBlocker();

    std::unique_ptr<AppBlockerService> makeBlocker() {
        return std::make_unique<AppBlockerService>(
            AppBlockerService::Environment{.workspace = workspace,
                                           .timers = clock,
                                           .alert = alert,
                                           .bundleIdentifier = ownBundle,
                                           .processIdentifier = ownProcess});
    }

    void killAndRestart() {
        workspace.killProgram();
        blocker.reset();
        workspace.restartProgram();
        blocker = makeBlocker();
        journal.take();
    }
};

TEST_F(AppBlocker, HidesTheFrontmostApplicationTakesItsFocusAndSaysNothing) {
    const auto slack = workspace.launch(u"Slack"_s);
    workspace.activate(slack);
    blocker->blockApp(u"Slack"_s);
    clock.advance(0);
    EXPECT_EQ(journal.take(), texts({u"watch applications", u"hide Slack", u"activate self"}));
    EXPECT_TRUE(workspace.isHidden(slack));
    EXPECT_TRUE(workspace.isSelfActive());
}

TEST_F(AppBlocker, LeavesTheFocusWhereItIsWhenABackgroundApplicationVanishes) {
    const auto slack = workspace.launch(u"Slack"_s);
    workspace.activate(workspace.launch(u"Editor"_s));
    blocker->blockApp(u"Slack"_s);
    EXPECT_EQ(journal.take(), texts({u"watch applications", u"hide Slack"}));
    EXPECT_TRUE(workspace.isHidden(slack));
    EXPECT_FALSE(workspace.isSelfActive());
}

TEST_F(AppBlocker, HidesAnActivatedApplicationAtOnceAndTellsAMomentLater) {
    const auto slack = workspace.launch(u"Slack"_s);
    blocker->blockApp(u"Slack"_s);
    journal.take();
    workspace.activate(slack);
    EXPECT_EQ(journal.take(), texts({u"hide Slack", u"activate self"}));
    clock.advance(0);
    EXPECT_EQ(journal.take(), texts({u"alert app Slack"}));
}

TEST_F(AppBlocker, HidesALaunchedApplicationAndTells) {
    blocker->blockApp(u"Slack"_s);
    const auto slack = workspace.launch(u"Slack"_s);
    clock.advance(0);
    EXPECT_EQ(journal.take(), texts({u"watch applications", u"hide Slack", u"alert app Slack"}));
    EXPECT_TRUE(workspace.isHidden(slack));
}

TEST_F(AppBlocker, HidesEachTimeAnApplicationComesBack) {
    const auto slack = workspace.launch(u"Slack"_s);
    blocker->blockApp(u"Slack"_s);
    for (int attempt = 0; attempt < 5; ++attempt) {
        workspace.activate(slack);
        EXPECT_TRUE(workspace.isHidden(slack));
    }
    blocker->unblockAll();
    EXPECT_FALSE(workspace.isHidden(slack));
}

TEST_F(AppBlocker, ShowsAgainWhatItHidWithoutActivatingIt) {
    const auto slack = workspace.launch(u"Slack"_s, {.windows = 3});
    blocker->blockApp(u"Slack"_s);
    journal.take();
    blocker->unblockAll();
    EXPECT_EQ(journal.take(), texts({u"unwatch applications", u"unhide Slack"}));
    EXPECT_EQ(workspace.shownWindows(slack), 3);
    EXPECT_FALSE(workspace.frontmostApplication());
}

TEST_F(AppBlocker, LeavesHiddenWhatTheUserHadHiddenBefore) {
    const auto slack = workspace.launch(u"Slack"_s);
    workspace.hideByUser(slack);
    blocker->blockApp(u"Slack"_s);
    blocker->unblockAll();
    EXPECT_TRUE(workspace.isHidden(slack));
    EXPECT_EQ(journal.take(), texts({u"watch applications", u"unwatch applications"}));
}

TEST_F(AppBlocker, ShowsOnlyTheWindowThatWasOpenedInAnApplicationTheUserHadHidden) {
    const auto slack = workspace.launch(u"Slack"_s, {.windows = 2});
    workspace.hideByUser(slack);
    blocker->blockApp(u"Slack"_s);
    workspace.openWindow(slack);
    EXPECT_TRUE(workspace.isHidden(slack));
    blocker->unblockAll();
    EXPECT_EQ(workspace.shownWindows(slack), 1);
}

TEST_F(AppBlocker, HidesAWindowThatABlockedApplicationOpensAndTells) {
    const auto slack = workspace.launch(u"Slack"_s);
    blocker->blockApp(u"Slack"_s);
    journal.take();
    workspace.openWindow(slack);
    clock.advance(0);
    EXPECT_EQ(journal.take(), texts({u"hide Slack", u"alert app Slack"}));
    blocker->unblockAll();
    EXPECT_EQ(workspace.shownWindows(slack), 2);
}

TEST_F(AppBlocker, SkipsAnApplicationThatQuitMeanwhile) {
    const auto slack = workspace.launch(u"Slack"_s);
    const auto zoom = workspace.launch(u"Zoom"_s);
    blocker->blockApp(u"Slack"_s);
    blocker->blockApp(u"Zoom"_s);
    workspace.terminate(slack);
    journal.take();
    blocker->unblockAll();
    EXPECT_EQ(journal.take(), texts({u"unwatch applications", u"unhide Zoom"}));
    EXPECT_FALSE(workspace.isHidden(zoom));
}

TEST_F(AppBlocker, HidesEveryInstanceOfTheSameName) {
    const auto first = workspace.launch(u"XTerm"_s);
    const auto second = workspace.launch(u"XTerm"_s);
    blocker->blockApp(u"XTerm"_s);
    EXPECT_TRUE(workspace.isHidden(first));
    EXPECT_TRUE(workspace.isHidden(second));
    blocker->unblockAll();
    EXPECT_FALSE(workspace.isHidden(first));
    EXPECT_FALSE(workspace.isHidden(second));
}

TEST_F(AppBlocker, MatchesNamesExactly) {
    const auto lowerCase = workspace.launch(u"slack"_s);
    const auto longer = workspace.launch(u"Slack Beta"_s);
    const auto byIdentifier = workspace.launch(u"Chat"_s, {.bundleIdentifier = u"Slack"_s});
    blocker->blockApp(u"Slack"_s);
    for (const auto& handle : {lowerCase, longer, byIdentifier}) {
        workspace.activate(handle);
        EXPECT_FALSE(workspace.isHidden(handle)) << handle.key.toStdString();
    }
}

TEST_F(AppBlocker, NeverHidesItsOwnProgram) {
    const auto ownWindows = workspace.launch(u"Tolvar"_s, {.processIdentifier = ownProcess});
    const auto sibling = workspace.launch(u"Tolvar"_s, {.bundleIdentifier = ownBundle});
    const auto stranger = workspace.launch(u"Tolvar"_s);
    blocker->blockApp(u"Tolvar"_s);
    workspace.activate(ownWindows);
    workspace.activate(sibling);
    EXPECT_FALSE(workspace.isHidden(ownWindows));
    EXPECT_FALSE(workspace.isHidden(sibling));
    EXPECT_TRUE(workspace.isHidden(stranger));
}

TEST_F(AppBlocker, HidesAnApplicationWithoutIdentifiersWhenItHasNoneItself) {
    AppBlockerService anonymous(
        {.workspace = workspace, .timers = clock, .alert = alert, .bundleIdentifier = {}});
    const auto slack = workspace.launch(u"Slack"_s, {.processIdentifier = 0});
    anonymous.blockApp(u"Slack"_s);
    EXPECT_TRUE(workspace.isHidden(slack));
}

TEST_F(AppBlocker, IgnoresApplicationsWithoutAName) {
    const auto nameless = workspace.launch({});
    blocker->blockApp({});
    workspace.activate(nameless);
    clock.advance(4);
    EXPECT_FALSE(workspace.isHidden(nameless));
    EXPECT_EQ(journal.take(), texts({u"watch applications"}));
}

TEST_F(AppBlocker, CatchesEveryTwoSecondsWhatNobodyReported) {
    const auto slack = workspace.launch(u"Slack"_s);
    blocker->blockApp(u"Slack"_s);
    workspace.activateUnnoticed(slack);
    journal.take();
    clock.advance(1.999);
    EXPECT_EQ(journal.take(), Texts());
    clock.advance(0.001);
    EXPECT_EQ(journal.take(), texts({u"hide Slack", u"activate self", u"alert app Slack"}));
    clock.advance(10);
    EXPECT_EQ(journal.take(), Texts());
    workspace.activateUnnoticed(slack);
    clock.advance(2);
    EXPECT_EQ(journal.take(), texts({u"hide Slack", u"activate self", u"alert app Slack"}));
}

TEST_F(AppBlocker, LeavesAFrontmostApplicationThatIsNotBlockedAlone) {
    blocker->blockApp(u"Slack"_s);
    workspace.activate(workspace.launch(u"Editor"_s));
    clock.advance(10);
    EXPECT_EQ(journal.take(), texts({u"watch applications"}));
}

TEST_F(AppBlocker, PollsAndWatchesOnceHoweverManyApplicationsAreBlocked) {
    blocker->blockApp(u"Slack"_s);
    clock.advance(1.5);
    blocker->blockApp(u"Zoom"_s);
    blocker->blockApp(u"Slack"_s);
    EXPECT_EQ(clock.runningTimers(), 1u);
    EXPECT_EQ(journal.take(), texts({u"watch applications"}));
    workspace.activateUnnoticed(workspace.launch(u"Editor"_s));
    const auto zoom = workspace.launch(u"Zoom"_s);
    workspace.activateUnnoticed(zoom);
    clock.advance(0.5);
    EXPECT_TRUE(workspace.isHidden(zoom)) << "the poll was not restarted";
}

TEST_F(AppBlocker, CostsNothingWhenNothingIsBlocked) {
    EXPECT_FALSE(blocker->isMonitoring());
    EXPECT_EQ(clock.runningTimers(), 0u);
    blocker->blockApp(u"Slack"_s);
    EXPECT_TRUE(blocker->isMonitoring());
    blocker->unblockAll();
    EXPECT_FALSE(blocker->isMonitoring());
    EXPECT_TRUE(blocker->blockedApps().empty());
    EXPECT_EQ(clock.runningTimers(), 0u);
    EXPECT_FALSE(workspace.isWatched());
}

TEST_F(AppBlocker, LeavesApplicationsAloneOnceUnblocked) {
    blocker->blockApp(u"Slack"_s);
    blocker->unblockAll();
    const auto slack = workspace.launch(u"Slack"_s);
    workspace.activate(slack);
    clock.advance(10);
    EXPECT_FALSE(workspace.isHidden(slack));
}

TEST_F(AppBlocker, TellsOfEveryApplicationThatCameForwardAtOnce) {
    blocker->blockApp(u"Slack"_s);
    blocker->blockApp(u"Zoom"_s);
    workspace.launch(u"Slack"_s);
    workspace.launch(u"Zoom"_s);
    workspace.launch(u"Slack"_s);
    journal.take();
    clock.advance(0);
    EXPECT_EQ(journal.take(), texts({u"alert app Slack", u"alert app Zoom", u"alert app Slack"}));
    EXPECT_EQ(clock.runningTimers(), 1u);
}

TEST_F(AppBlocker, TellsNothingAnyMoreOnceUnblocked) {
    blocker->blockApp(u"Slack"_s);
    workspace.launch(u"Slack"_s);
    blocker->unblockAll();
    journal.take();
    clock.advance(10);
    EXPECT_EQ(journal.take(), Texts());
}

TEST_F(AppBlocker, TellsNothingAnyMoreOnceDestroyed) {
    blocker->blockApp(u"Slack"_s);
    workspace.launch(u"Slack"_s);
    blocker.reset();
    journal.take();
    clock.advance(10);
    EXPECT_EQ(journal.take(), Texts());
}

TEST_F(AppBlocker, LetsAnAlertEndTheBlocking) {
    blocker->blockApp(u"Slack"_s);
    workspace.launch(u"Slack"_s);
    workspace.launch(u"Slack"_s);
    alert.presented = [this] { blocker->unblockAll(); };
    journal.take();
    clock.advance(0);
    EXPECT_EQ(journal.take(), texts({u"alert app Slack", u"unwatch applications", u"unhide Slack",
                                     u"unhide Slack"}));
}

TEST_F(AppBlocker, DoesNotTakeTheReturnOfAnApplicationForAnActivation) {
    const auto slack = workspace.launch(u"Slack"_s);
    workspace.reportUnhidingAsActivation();
    blocker->blockApp(u"Slack"_s);
    blocker->unblockAll();
    clock.advance(10);
    EXPECT_FALSE(workspace.isHidden(slack));
    EXPECT_EQ(journal.take(), texts({u"watch applications", u"hide Slack", u"unwatch applications",
                                     u"unhide Slack"}));
}

TEST_F(AppBlocker, ShowsEverythingWhenItIsDestroyed) {
    const auto slack = workspace.launch(u"Slack"_s);
    blocker->blockApp(u"Slack"_s);
    blocker.reset();
    EXPECT_FALSE(workspace.isHidden(slack));
    EXPECT_FALSE(workspace.isWatched());
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(AppBlocker, ShowsAtTheEndWhatAKilledRunHadHidden) {
    const auto slack = workspace.launch(u"Slack"_s);
    blocker->blockApp(u"Slack"_s);
    killAndRestart();
    EXPECT_TRUE(workspace.isHidden(slack));
    blocker->blockApp(u"Slack"_s);
    EXPECT_EQ(journal.take(), texts({u"watch applications"})) << "it is hidden already";
    blocker->unblockAll();
    EXPECT_FALSE(workspace.isHidden(slack));
}

TEST_F(AppBlocker, ShowsWhatAKilledRunHadHiddenWithoutEverBlockingItself) {
    const auto slack = workspace.launch(u"Slack"_s);
    blocker->blockApp(u"Slack"_s);
    killAndRestart();
    blocker->unblockAll();
    EXPECT_EQ(journal.take(), texts({u"unhide Slack"}));
    EXPECT_FALSE(workspace.isHidden(slack));
}

TEST_F(AppBlocker, RestoresOfAKilledRunOnlyWhatIsNotBlockedNow) {
    const auto slack = workspace.launch(u"Slack"_s);
    const auto zoom = workspace.launch(u"Zoom"_s);
    const auto gone = workspace.launch(u"Gone"_s);
    for (const auto& name : {u"Slack"_s, u"Zoom"_s, u"Gone"_s})
        blocker->blockApp(name);
    killAndRestart();
    workspace.terminate(gone);
    blocker->blockApp(u"Zoom"_s);
    journal.take();
    blocker->restoreUnblockedApps();
    EXPECT_EQ(journal.take(), texts({u"unhide Slack"}));
    EXPECT_TRUE(workspace.isHidden(zoom));
    blocker->unblockAll();
    EXPECT_EQ(journal.take(), texts({u"unwatch applications", u"unhide Zoom"}));
}

class InstalledList final : public InstalledApplications {
public:
    std::vector<InstalledApplication> list() const override {
        return {{u"org.arc"_s, u"arc"_s, {}},
                {u"us.zoom.Zoom"_s, u"Zoom"_s, {}},
                {u"app.tolvar.Tolvar"_s, u"Tolvar"_s, {}},
                {u"org.mozilla.firefox"_s, u"Firefox"_s, {}},
                {u"firefox-esr"_s, u"Firefox"_s, {}}};
    }
};

TEST(InstalledApplicationNames, AreSortedByScalarsWithDuplicatesAndWithoutOurOwn) {
    EXPECT_EQ(getInstalledApplications(InstalledList(), u"Tolvar"_s),
              texts({u"Firefox", u"Firefox", u"Zoom", u"arc"}));
}

} // namespace
} // namespace tolvar::test
