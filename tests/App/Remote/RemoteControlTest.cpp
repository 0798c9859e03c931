#include "App/Remote/RemoteControl.h"

#include "App/Protocol/RemoteNames.h"
#include "App/Remote/ChangeListener.h"
#include "ApplicationInterface.h"
#include "Models/CategoryStore.h"
#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Linux/DBus/PrivateBus.h"
#include "Support/FakeDesk.h"
#include "Support/Texts.h"
#include "TolvarInterface.h"

#include <QCoreApplication>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class OneApplication final : public InstalledApplications {
public:
    std::vector<InstalledApplication> list() const override {
        return {{u"debian-xterm"_s, u"XTerm"_s, {}}};
    }
};

/// Somebody on the bus who talks to the remote control.
struct Caller {
    explicit Caller(const QDBusConnection& connection)
        : bus(connection)
        , control(RemoteNames::service, RemoteNames::objectPath, bus)
        , application(RemoteNames::service, RemoteNames::objectPath, bus) {}

    QDBusConnection bus;
    TolvarInterface control;
    ApplicationInterface application;
};

class RemoteControlTest : public testing::Test {
protected:
    /// The call when its answer is there, and every signal that was sent before it was handled.
    QDBusPendingCall answered(const QDBusPendingCall& call) {
        EXPECT_TRUE(eventually([&] { return call.isFinished(); }));
        QCoreApplication::processEvents();
        return call;
    }
    template<typename Value>
    Value value(const QDBusPendingReply<Value>& call) {
        answered(call);
        EXPECT_FALSE(call.isError()) << call.error().message().toStdString();
        return call.value();
    }
    /// The last part of the error's name; empty when the call succeeded.
    QString error(const QDBusPendingCall& call) {
        const QString name = answered(call).error().name();
        EXPECT_TRUE(name.isEmpty() || name.startsWith(u"app.tolvar.Tolvar1.Error."_s))
            << name.toStdString();
        return name.section(u'.', -1);
    }
    void succeed(const QDBusPendingCall& call) { EXPECT_EQ(error(call), QString()); }

    QVariantMap properties() {
        auto call =
            QDBusMessage::createMethodCall(RemoteNames::service, RemoteNames::objectPath,
                                           u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s);
        call.setArguments({RemoteNames::controlInterface});
        return value(QDBusPendingReply<QVariantMap>(caller.bus.asyncCall(call)));
    }
    StatusReport status() { return statusFromProperties(properties()); }

    void start(double duration = 1500) {
        value(caller.control.Start(u"Read"_s, duration, {u"News"_s}, {u"XTerm"_s},
                                   {u"example.com"_s}));
    }

    PrivateBus bus;
    QDBusConnection connection = bus.connect();
    FakeDesk desk;
    OneApplication installed;
    CategoryStore categories{desk.preferences};
    FocusManager manager{desk.environment()};
    RemoteControl remote{{.focusManager = manager,
                          .categories = categories,
                          .installed = installed,
                          .workspace = desk.workspace,
                          .browsers = desk.browsers,
                          .version = u"1.2.3"_s},
                         connection};
    bool isNamed = connection.registerService(RemoteNames::service);
    Caller caller{bus.connect()};
};

TEST_F(RemoteControlTest, IsReadyWithoutASession) {
    StatusReport ready;
    ready.state = StatusReport::State::ready;
    EXPECT_EQ(status(), ready);
}

TEST_F(RemoteControlTest, TellsItsVersionAndWhetherApplicationsCanBeHidden) {
    const auto all = properties();
    EXPECT_EQ(all.value(u"Version"_s), u"1.2.3"_s);
    EXPECT_EQ(all.value(u"HidingSupport"_s), u"full"_s);
}

TEST_F(RemoteControlTest, StartsASessionWithAllThatWasChosen) {
    EXPECT_THAT(value(caller.control.Start(u"Read"_s, 1500, {u"news"_s}, {u"xterm"_s},
                                           {u"https://www.example.com"_s})),
                IsEmpty());
    ASSERT_TRUE(manager.currentSession().has_value());
    EXPECT_EQ(manager.currentSession()->goal, u"Read"_s);
    const auto report = status();
    EXPECT_EQ(report.state, StatusReport::State::focusing);
    EXPECT_EQ(report.duration, 1500);
    EXPECT_EQ(report.remaining, 1500);
    EXPECT_EQ(report.pausesLeft, 2);
    EXPECT_TRUE(report.blockedApps.contains(u"XTerm"_s));
    EXPECT_TRUE(report.blockedWebsites.contains(u"example.com"_s));
    EXPECT_GT(report.blockedWebsites.size(), 1) << "the category's websites are missing";
}

TEST_F(RemoteControlTest, PassesOnWhatWillNotWorkAsAsked) {
    EXPECT_THAT(value(caller.control.Start(u"Read"_s, 60, {}, {u"Minecraft"_s}, {})),
                ElementsAre(u"no application “Minecraft” is installed; it is blocked all the "
                            u"same"_s));
}

TEST_F(RemoteControlTest, RefusesASecondSessionAndLeavesTheFirstAlone) {
    start();
    EXPECT_EQ(error(caller.control.Start(u"Other"_s, 60, {}, {}, {})), u"SessionRunning"_s);
    EXPECT_EQ(error(caller.control.StartPreset(u"Other"_s, u"None"_s, 0)), u"UnknownPreset"_s);
    EXPECT_EQ(manager.currentSession()->goal, u"Read"_s);
}

TEST_F(RemoteControlTest, RefusesEverythingThatIsWrongWithARequest) {
    auto& control = caller.control;
    EXPECT_EQ(error(control.Start(u" "_s, 60, {}, {}, {})), u"EmptyGoal"_s);
    EXPECT_EQ(error(control.Start(u"Read"_s, 0, {}, {}, {})), u"InvalidDuration"_s);
    EXPECT_EQ(error(control.Start(u"Read"_s, 60, {u"?"_s}, {}, {})), u"UnknownCategory"_s);
    EXPECT_EQ(error(control.Start(u"Read"_s, 60, {}, {u""_s}, {})), u"InvalidApplication"_s);
    EXPECT_EQ(error(control.Start(u"Read"_s, 60, {}, {}, {u"?"_s})), u"InvalidWebsite"_s);
    EXPECT_EQ(error(control.StartPreset(u"Read"_s, u"?"_s, 0)), u"UnknownPreset"_s);
    const auto id = categories.addCategory().id;
    categories.rename(id, u"Twin"_s);
    categories.rename(categories.addCategory().id, u"Twin"_s);
    EXPECT_EQ(error(control.Start(u"Read"_s, 60, {u"Twin"_s}, {}, {})), u"AmbiguousName"_s);
    EXPECT_EQ(manager.currentSession(), std::nullopt);
}

TEST_F(RemoteControlTest, SaysWhatIsWrongInWordsForPeople) {
    const auto call = answered(caller.control.Pause());
    EXPECT_EQ(call.error().message(), u"no session is running"_s);
}

TEST_F(RemoteControlTest, PausesAndResumes) {
    start();
    desk.clock.advance(10);
    succeed(caller.control.Pause());
    desk.clock.advance(20);
    const auto paused = status();
    EXPECT_EQ(paused.state, StatusReport::State::paused);
    EXPECT_EQ(paused.remaining, 1490);
    EXPECT_EQ(paused.elapsed, 10);
    EXPECT_EQ(paused.pauseRemaining, 100);
    EXPECT_EQ(paused.pausesLeft, 1);
    succeed(caller.control.Resume());
    EXPECT_EQ(status().state, StatusReport::State::focusing);
    EXPECT_EQ(status().pauseRemaining, 0);
}

TEST_F(RemoteControlTest, RefusesToPauseTwiceAtOnceAndAThirdTime) {
    start();
    succeed(caller.control.Pause());
    EXPECT_EQ(error(caller.control.Pause()), u"AlreadyPaused"_s);
    succeed(caller.control.Resume());
    EXPECT_EQ(error(caller.control.Resume()), u"NotPaused"_s);
    succeed(caller.control.Pause());
    succeed(caller.control.Resume());
    EXPECT_EQ(status().pausesLeft, 0);
    EXPECT_EQ(error(caller.control.Pause()), u"NoPausesLeft"_s);
}

TEST_F(RemoteControlTest, ExtendsASessionAlsoWhilePaused) {
    start();
    succeed(caller.control.Extend(300));
    succeed(caller.control.Pause());
    succeed(caller.control.Extend(600));
    EXPECT_EQ(status().duration, 2400);
}

TEST_F(RemoteControlTest, RefusesAnExtensionThatMakesNoSense) {
    start();
    EXPECT_EQ(error(caller.control.Extend(0)), u"InvalidDuration"_s);
    EXPECT_EQ(error(caller.control.Extend(-60)), u"InvalidDuration"_s);
    EXPECT_EQ(error(caller.control.Extend(366.0 * 24 * 3600)), u"InvalidDuration"_s);
    EXPECT_EQ(status().duration, 1500);
}

TEST_F(RemoteControlTest, StopsASession) {
    start();
    succeed(caller.control.Stop());
    EXPECT_EQ(manager.currentSession(), std::nullopt);
    EXPECT_EQ(status().state, StatusReport::State::ready);
}

TEST_F(RemoteControlTest, RefusesEveryOperationThatNeedsASession) {
    EXPECT_EQ(error(caller.control.Pause()), u"NoSession"_s);
    EXPECT_EQ(error(caller.control.Resume()), u"NoSession"_s);
    EXPECT_EQ(error(caller.control.Extend(300)), u"NoSession"_s);
    EXPECT_EQ(error(caller.control.Stop()), u"NoSession"_s);
}

TEST_F(RemoteControlTest, RoundsWhatMovesToMilliseconds) {
    start();
    desk.clock.advance(0.1234567);
    EXPECT_EQ(status().remaining, 1499.877);
    EXPECT_EQ(status().elapsed, 0.123);
}

TEST_F(RemoteControlTest, SignalsExactlyThePropertiesThatChanged) {
    ChangeListener listener(caller.bus);
    start();
    properties();
    auto changes = listener.take();
    ASSERT_EQ(changes.size(), 1);
    EXPECT_THAT(changes[0].keys(),
                ElementsAre(u"BlockedApps"_s, u"BlockedWebsites"_s, u"Duration"_s, u"Goal"_s,
                            u"PausesLeft"_s, u"Status"_s));

    succeed(caller.control.Pause());
    changes = listener.take();
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0], (QVariantMap{{u"Status"_s, u"paused"_s}, {u"PausesLeft"_s, 1}}));

    succeed(caller.control.Extend(300));
    changes = listener.take();
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0], (QVariantMap{{u"Duration"_s, 1800.0}}));

    succeed(caller.control.Stop());
    changes = listener.take();
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0].value(u"Status"_s), u"ready"_s);
    EXPECT_EQ(changes[0].value(u"Goal"_s), u""_s);
}

TEST_F(RemoteControlTest, SignalsNoPropertyWhileTimeOnlyPasses) {
    ChangeListener listener(caller.bus);
    start();
    properties();
    listener.take();
    desk.clock.advance(60);
    properties();
    EXPECT_THAT(listener.take(), IsEmpty());
}

TEST_F(RemoteControlTest, SignalsTheEndOfASessionWhoseTimeIsUp) {
    ChangeListener listener(caller.bus);
    start(5);
    properties();
    listener.take();
    desk.clock.advance(6);
    properties();
    const auto changes = listener.take();
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0].value(u"Status"_s), u"ready"_s);
}

/// The clocks that a follower was told: whole seconds remaining, -1 without a session.
std::vector<int> remainders(const QSignalSpy& told) {
    std::vector<int> seconds;
    for (const auto& arguments : told) {
        const auto report = statusFromProperties(qdbus_cast<QVariantMap>(arguments.first()));
        const bool isReady = report.state == StatusReport::State::ready;
        seconds.push_back(isReady ? -1 : static_cast<int>(report.remaining));
    }
    return seconds;
}

TEST_F(RemoteControlTest, TellsAFollowerAtOnceAndAtEveryTick) {
    QSignalSpy told(&caller.control, &TolvarInterface::Followed);
    succeed(caller.control.Follow());
    EXPECT_THAT(remainders(told), ElementsAre(-1));
    start(3);
    desk.clock.advance(5);
    properties();
    EXPECT_THAT(remainders(told), testing::IsSupersetOf({3, 2, 1, -1}));
    EXPECT_EQ(remainders(told).back(), -1);
}

TEST_F(RemoteControlTest, TellsNobodyElse) {
    Caller stranger(bus.connect());
    QSignalSpy overheard(&stranger.control, &TolvarInterface::Followed);
    QSignalSpy told(&caller.control, &TolvarInterface::Followed);
    succeed(caller.control.Follow());
    start();
    desk.clock.advance(3);
    answered(stranger.control.Browsers());
    EXPECT_GT(told.size(), 3);
    EXPECT_THAT(overheard, IsEmpty());
}

TEST_F(RemoteControlTest, TellsAFollowerOnceHoweverOftenItAsks) {
    succeed(caller.control.Follow());
    succeed(caller.control.Follow());
    start();
    properties();
    QSignalSpy told(&caller.control, &TolvarInterface::Followed);
    desk.clock.advance(1);
    properties();
    EXPECT_EQ(told.size(), 1);
}

TEST_F(RemoteControlTest, TellsNothingMoreToAFollowerThatHasEnough) {
    QSignalSpy told(&caller.control, &TolvarInterface::Followed);
    succeed(caller.control.Follow());
    succeed(caller.control.Unfollow());
    start();
    desk.clock.advance(3);
    properties();
    EXPECT_EQ(told.size(), 1);
}

TEST_F(RemoteControlTest, TellsTheHistoryNewestFirst) {
    start();
    desk.clock.advance(60);
    succeed(caller.control.Stop());
    value(caller.control.Start(u"Second"_s, 5, {}, {}, {}));
    desk.clock.advance(10);
    const auto history = value(caller.control.History({}, 10));
    ASSERT_EQ(history.size(), 2);
    EXPECT_EQ(history[0].goal, u"Second"_s);
    EXPECT_EQ(history[0].outcome, u"completed"_s);
    EXPECT_EQ(history[0].focusedTime, 5);
    EXPECT_EQ(history[1].goal, u"Read"_s);
    EXPECT_EQ(history[1].outcome, u"endedEarly"_s);
    EXPECT_EQ(history[1].duration, 1500);
    EXPECT_EQ(history[1].focusedTime, 60);
    EXPECT_EQ(history[1].start, HandClock::start.sinceEpoch());
    EXPECT_EQ(history[1].end, HandClock::start.sinceEpoch() + 60);
    EXPECT_TRUE(history[1].blockedApps.contains(u"XTerm"_s));
    EXPECT_TRUE(history[1].blockedWebsites.contains(u"example.com"_s));
    EXPECT_EQ(history[1].id, history[1].id.toUpper());
}

TEST_F(RemoteControlTest, TellsTheHistoryInPages) {
    for (const auto& goal : {u"A"_s, u"B"_s, u"C"_s}) {
        value(caller.control.Start(goal, 60, {}, {}, {}));
        succeed(caller.control.Stop());
    }
    const auto first = value(caller.control.History({}, 2));
    ASSERT_EQ(first.size(), 2);
    EXPECT_EQ(first[0].goal, u"C"_s);
    const auto second = value(caller.control.History(first[1].id, 2));
    ASSERT_EQ(second.size(), 1);
    EXPECT_EQ(second[0].goal, u"A"_s);
    EXPECT_THAT(value(caller.control.History(second[0].id, 2)), IsEmpty());
    EXPECT_THAT(value(caller.control.History({}, 0)), IsEmpty());
}

TEST_F(RemoteControlTest, RefusesToGoOnBehindASessionThatIsGone) {
    EXPECT_EQ(error(caller.control.History(u"1FF267B3-E7C9-4F9F-9D4D-80418D255C59"_s, 2)),
              u"UnknownSession"_s);
}

TEST_F(RemoteControlTest, TellsPresetsAndStartsFromThem) {
    start();
    succeed(caller.control.Stop());
    manager.savePreset(manager.sessionHistory().front());
    const auto presets = value(caller.control.Presets());
    ASSERT_EQ(presets.size(), 1);
    EXPECT_EQ(presets[0].duration, 1500);
    EXPECT_EQ(presets[0].categories, QStringList{u"News"_s});
    EXPECT_EQ(presets[0].apps, QStringList{u"XTerm"_s});
    EXPECT_EQ(presets[0].websites, QStringList{u"example.com"_s});

    value(caller.control.StartPreset(u"Again"_s, presets[0].name, 90));
    const auto report = status();
    EXPECT_EQ(report.goal, u"Again"_s);
    EXPECT_EQ(report.duration, 90);
    EXPECT_TRUE(report.blockedApps.contains(u"XTerm"_s));
}

TEST_F(RemoteControlTest, TellsCategoriesInTheirOrder) {
    const auto told = value(caller.control.Categories());
    ASSERT_EQ(static_cast<std::size_t>(told.size()), categories.categories().size());
    EXPECT_EQ(told[0].id, categories.categories()[0].id);
    EXPECT_EQ(static_cast<std::size_t>(told[0].websites.size()),
              categories.categories()[0].websites.size());
}

TEST_F(RemoteControlTest, TellsInstalledApplicationsAndReachableBrowsers) {
    const auto applications = value(caller.control.Applications());
    ASSERT_EQ(applications.size(), 1);
    EXPECT_EQ(applications[0], (ApplicationEntry{u"XTerm"_s, u"debian-xterm"_s}));
    EXPECT_THAT(value(caller.control.Browsers()), IsEmpty());
    desk.browsers.show(u"firefox"_s, {});
    EXPECT_THAT(value(caller.control.Browsers()), ElementsAre(u"firefox"_s));
}

TEST_F(RemoteControlTest, IsAskedToQuit) {
    QSignalSpy quit(&remote, &RemoteControl::quitRequested);
    succeed(caller.control.Quit());
    EXPECT_EQ(quit.size(), 1);
}

TEST_F(RemoteControlTest, ComesForwardWhenItIsActivatedOrOpened) {
    QSignalSpy activated(&remote, &RemoteControl::activated);
    succeed(caller.application.Activate({}));
    succeed(caller.application.Open({u"file:///x"_s}, {}));
    EXPECT_EQ(activated.size(), 2);
}

TEST_F(RemoteControlTest, RefusesActionsThatItDoesNotHave) {
    const auto call = answered(caller.application.ActivateAction(u"dance"_s, {}, {}));
    EXPECT_EQ(call.error().type(), QDBusError::InvalidArgs);
}

TEST_F(RemoteControlTest, StaysQuietWhereThereIsNoBus) {
    const RemoteControl alone({.focusManager = manager,
                               .categories = categories,
                               .installed = installed,
                               .workspace = desk.workspace,
                               .browsers = desk.browsers,
                               .version = {}},
                              QDBusConnection(u"nowhere"_s));
    FocusSession session;
    session.goal = u"Read"_s;
    session.duration = 60;
    manager.startSession(session);
    desk.clock.advance(120);
    EXPECT_EQ(alone.status(), u"ready"_s);
}

TEST_F(RemoteControlTest, GoesOnWhenTheBusDies) {
    start();
    succeed(caller.control.Follow());
    bus.kill();
    ASSERT_TRUE(eventually([&] { return !connection.isConnected(); }));
    desk.clock.advance(1600);
    EXPECT_EQ(remote.status(), u"ready"_s);
    EXPECT_EQ(manager.sessionHistory().size(), 1u);
}

} // namespace
} // namespace tolvar::test
