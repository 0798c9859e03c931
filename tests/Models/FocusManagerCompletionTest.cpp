#include "Models/FocusManagerFixture.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// What the program printed while `action` ran.
template<typename Action>
std::string printedBy(const Action& action) {
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}

class FocusManagerCompletion : public FocusManagerFixture {
protected:
    void complete(const FocusSession& session = plan()) {
        start(session);
        clock.advance(session.duration);
        ASSERT_FALSE(manager->currentSession());
    }

    NotificationContent notified() const { return desk.notifications.shown.begin()->second; }
};

TEST_F(FocusManagerCompletion, FilesThenSoundsThenNotifiesAtTheTickThatFindsNoTimeLeft) {
    start();
    clock.advance(25 * minute - 1);
    journal.take();
    clock.advance(1);
    EXPECT_EQ(journal.take(), texts({u"unwatch applications", u"unhide Slack", u"unwatch tabs",
                                     u"write -currentSession, sessionHistory", u"play sessionEnd",
                                     u"notify Write report \u2014 25m of focus."}));
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
    EXPECT_EQ(lastFiled().focusedTime, 25 * minute);
    EXPECT_EQ(lastFiled().endTime, HandClock::start + 25 * minute);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(FocusManagerCompletion, HappensOnce) {
    complete();
    journal.take();
    clock.advance(600);
    EXPECT_EQ(journal.take(), Texts());
    EXPECT_EQ(manager->sessionHistory().size(), 1u);
}

TEST_F(FocusManagerCompletion, HappensAtTheFirstTickOfASessionWithoutLength) {
    auto session = plan();
    session.duration = 0;
    start(session);
    EXPECT_TRUE(manager->currentSession());
    clock.advance(1);
    EXPECT_EQ(lastFiled().outcome, SessionOutcome::completed);
}

TEST_F(FocusManagerCompletion, NotifiesUnderTheSessionsIdentifierInCapitals) {
    auto session = plan();
    session.id = QUuid::fromString(u"{0a1b2c3d-4e5f-4a6b-8c7d-9e0f1a2b3c4d}"_s);
    complete(session);
    ASSERT_EQ(desk.notifications.shown.size(), 1u);
    EXPECT_EQ(desk.notifications.shown.begin()->first, u"0A1B2C3D-4E5F-4A6B-8C7D-9E0F1A2B3C4D"_s);
    EXPECT_EQ(notified().title, u"Focus session complete"_s);
}

TEST_F(FocusManagerCompletion, NamesThePlannedLengthWithItsExtensions) {
    auto session = plan();
    session.goal = u"Read"_s;
    start(session);
    manager->extendSession(300);
    clock.advance(30 * minute);
    EXPECT_EQ(notified().body, u"Read \u2014 30m of focus."_s);
}

TEST_F(FocusManagerCompletion, SaysHowLongItWasWithoutAGoal) {
    auto session = plan();
    session.goal.clear();
    session.duration = 90 * minute;
    complete(session);
    EXPECT_EQ(notified().body, u"You focused for 1h 30m."_s);
}

TEST_F(FocusManagerCompletion, TakesAGoalOfBlanksForAGoal) {
    auto session = plan();
    session.goal = u"  "_s;
    complete(session);
    EXPECT_EQ(notified().body, u"   \u2014 25m of focus."_s);
}

TEST_F(FocusManagerCompletion, NotifiesWithTheSystemSoundWhereTheChimeIsMissing) {
    complete();
    EXPECT_EQ(notified().sound, NotificationSound::systemDefault);
}

TEST_F(FocusManagerCompletion, NotifiesSilentlyWhereTheProgramHasItsOwnChime) {
    desk.sound.loaded = {InterfaceSound::Sound::sessionEnd};
    complete();
    EXPECT_EQ(notified().sound, NotificationSound::none);
}

TEST_F(FocusManagerCompletion, NotifiesSilentlyWhenTheChimeIsSwitchedOff) {
    desk.preferences.setBoolean(AppSettings::sessionEndChimeEnabled, false);
    complete();
    EXPECT_EQ(notified().sound, NotificationSound::none);
    EXPECT_TRUE(journal.take().back().startsWith(u"notify"_s)) << "and asks for its chime still";
}

TEST_F(FocusManagerCompletion, PostsNothingForASessionEndedByHand) {
    start();
    clock.advance(10 * minute);
    manager->stopSession();
    clock.advance(30 * minute);
    EXPECT_TRUE(desk.notifications.shown.empty());
}

TEST_F(FocusManagerCompletion, AsksForPermissionOnceAtTheStartBeforeAnythingElse) {
    auto running = plan();
    running.isActive = true;
    running.startTime = clock.now();
    store(running);
    quitAndReturn();
    EXPECT_EQ(journal.take(),
              texts({u"ask for permission", u"watch applications", u"hide Slack", u"watch tabs"}));
}

TEST_F(FocusManagerCompletion, NeitherAsksNorNotifiesWithoutABundleIdentifier) {
    desk.bundle.identifier.clear();
    quitAndReturn();
    EXPECT_EQ(journal.take(), Texts());
    complete();
    EXPECT_EQ(journal.take().back(), u"play sessionEnd"_s);
    EXPECT_TRUE(desk.notifications.shown.empty());
}

TEST_F(FocusManagerCompletion, PrintsWhatTheRequestForPermissionAnswers) {
    const auto& answered = desk.notifications.authorizationRequests.front();
    EXPECT_EQ(printedBy([&] { answered({.granted = true, .error = {}}); }), "");
    EXPECT_EQ(printedBy([&] { answered({.granted = false, .error = {}}); }),
              "Notification permission denied\n");
    EXPECT_EQ(printedBy([&] { answered({.granted = false, .error = u"no bus \u2014 sorry"_s}); }),
              "Notification permission error: no bus \u2014 sorry\n");
    EXPECT_EQ(printedBy([&] { answered({.granted = true, .error = u"odd"_s}); }),
              "Notification permission error: odd\n");
}

TEST_F(FocusManagerCompletion, PrintsWhyANotificationWasNotDelivered) {
    complete();
    const auto& delivered = desk.notifications.deliveries.front();
    EXPECT_EQ(printedBy([&] { delivered(std::nullopt); }), "");
    EXPECT_EQ(printedBy([&] { delivered(u"gone"_s); }),
              "Failed to deliver completion notification: gone\n");
}

TEST_F(FocusManagerCompletion, NotifiesAlsoAfterPermissionWasDenied) {
    printedBy(
        [&] { desk.notifications.authorizationRequests.front()({.granted = false, .error = {}}); });
    complete();
    EXPECT_EQ(desk.notifications.shown.size(), 1u);
}

TEST_F(FocusManagerCompletion, TakesAnswersThatComeAfterItsEnd) {
    complete();
    manager.reset();
    const auto printed = printedBy([&] {
        desk.notifications.authorizationRequests.front()({.granted = false, .error = {}});
        desk.notifications.deliveries.front()(u"too late"_s);
    });
    EXPECT_EQ(printed, "Notification permission denied\n"
                       "Failed to deliver completion notification: too late\n");
}

} // namespace
} // namespace tolvar::test
