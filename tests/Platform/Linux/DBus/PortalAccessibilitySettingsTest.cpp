#include "Platform/Linux/DBus/PortalAccessibilitySettings.h"

#include "Platform/Linux/DBus/FakeSettingsPortal.h"
#include "Platform/Linux/DBus/PrivateBus.h"
#include "Support/Texts.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString desktop = u"org.gnome.desktop.interface"_s;
const QString animations = u"enable-animations"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString motion = u"reduced-motion"_s;
constexpr uint noPreference = 0;
constexpr uint reduced = 1;
/// Each of the two settings is asked for once.
constexpr int questionsPerLook = 2;

class PortalAccessibilitySettingsTest : public testing::Test {
protected:
    using Version = FakeSettingsPortal::Version;

    /// What a program that starts now knows of the user's wishes.
    void start() {
        m_settings = std::make_unique<PortalAccessibilitySettings>(connection);
        m_subscription = m_settings->observe([this] { told.push_back(reducesMotion()); });
    }
    bool reducesMotion() const { return m_settings->reducesMotion(); }
    /// Starts, and returns when the portal has answered.
    void startAndLearn(int questions = questionsPerLook) {
        start();
        settleAfter(questions);
    }
    /// Returns when the portal was asked so often in all and its answers were handled.
    void settleAfter(int questions) {
        ASSERT_TRUE(eventually([&] { return portal.questions() >= questions; }));
        settle(portal.uniqueName());
        EXPECT_EQ(portal.questions(), questions);
    }
    /// Returns when everything that `peer` sent so far was handled.
    void settle(const QString& peer) {
        const auto call = connection.asyncCall(ping(peer));
        ASSERT_TRUE(eventually([&] { return call.isFinished(); }));
        QCoreApplication::processEvents();
    }
    /// Returns when everything that the bus sent so far was handled.
    void settle() { settle(u"org.freedesktop.DBus"_s); }

    static QDBusMessage ping(const QString& peer) {
        return QDBusMessage::createMethodCall(peer, u"/"_s, u"org.freedesktop.DBus.Peer"_s,
                                              u"Ping"_s);
    }
    /// A file that shows that the service was started.
    QString trace(const QString& service) const { return m_folder.filePath(service); }
    bool isStarted(const QString& service) const { return QFile::exists(trace(service)); }

    PrivateBus bus;
    QDBusConnection connection = bus.connect();
    FakeSettingsPortal portal{bus.connect()};
    /// What was said after each change that was told of.
    std::vector<bool> told;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<PortalAccessibilitySettings> m_settings;
    Subscription m_subscription;
};

TEST_F(PortalAccessibilitySettingsTest, LearnsFromThePortalThatAnimationsAreOff) {
    portal.put(desktop, animations, false);
    portal.appear();
    start();
    EXPECT_FALSE(reducesMotion()) << "somebody waited for the portal";
    settleAfter(questionsPerLook);
    EXPECT_TRUE(reducesMotion());
    EXPECT_THAT(told, ElementsAre(true));
}

TEST_F(PortalAccessibilitySettingsTest, LearnsFromThePortalThatMotionIsReduced) {
    portal.put(desktop, animations, true);
    portal.put(appearance, motion, reduced);
    portal.appear();
    startAndLearn();
    EXPECT_TRUE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, LetsThingsMoveWhereThePortalSaysSo) {
    portal.put(desktop, animations, true);
    portal.put(appearance, motion, noPreference);
    portal.appear();
    startAndLearn();
    EXPECT_FALSE(reducesMotion());
    EXPECT_THAT(told, ElementsAre());
}

TEST_F(PortalAccessibilitySettingsTest, LetsThingsMoveWhereThePortalKnowsNothing) {
    portal.appear();
    startAndLearn();
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, FollowsChanges) {
    portal.put(desktop, animations, true);
    portal.appear();
    startAndLearn();
    portal.change(desktop, animations, false);
    portal.change(desktop, animations, true);
    portal.change(appearance, motion, reduced);
    portal.change(appearance, motion, noPreference);
    settle(portal.uniqueName());
    EXPECT_THAT(told, ElementsAre(true, false, true, false));
    EXPECT_EQ(portal.questions(), questionsPerLook) << "a change says what there is to know";
}

TEST_F(PortalAccessibilitySettingsTest, TellsNothingWhenOneWishIsAddedToAnother) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    portal.change(appearance, motion, reduced);
    portal.change(desktop, animations, true);
    settle(portal.uniqueName());
    EXPECT_THAT(told, ElementsAre(true));
    EXPECT_TRUE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, IsNotConcernedByOtherSettings) {
    portal.appear();
    startAndLearn();
    portal.change(desktop, u"gtk-enable-primary-paste"_s, false);
    portal.change(u"org.example"_s, animations, false);
    portal.change(desktop, motion, reduced);
    settle(portal.uniqueName());
    EXPECT_THAT(told, ElementsAre());
}

TEST_F(PortalAccessibilitySettingsTest, TakesValuesOfOtherTypesForNoWish) {
    portal.put(desktop, animations, 0);
    portal.put(appearance, motion, 1);
    portal.appear();
    startAndLearn();
    EXPECT_FALSE(reducesMotion());
    portal.change(desktop, animations, u"false"_s);
    portal.change(appearance, motion, true);
    settle(portal.uniqueName());
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, TakesAnUnknownNumberForNoPreference) {
    portal.put(appearance, motion, 2u);
    portal.appear();
    startAndLearn();
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, LosesAWishThatTurnsIntoAnotherType) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    portal.change(desktop, animations, u"no"_s);
    settle(portal.uniqueName());
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, NeedsNoPortal) {
    start();
    settle();
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, AsksAPortalThatAppearsLater) {
    portal.put(desktop, animations, false);
    start();
    settle();
    EXPECT_EQ(portal.questions(), 0);
    portal.appear();
    settleAfter(questionsPerLook);
    EXPECT_TRUE(reducesMotion());
    portal.change(desktop, animations, true);
    settle(portal.uniqueName());
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(PortalAccessibilitySettingsTest, LetsTheLastWordStandWhileThePortalIsGone) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    portal.leave();
    settle();
    EXPECT_TRUE(reducesMotion());
    EXPECT_THAT(told, ElementsAre(true));
}

TEST_F(PortalAccessibilitySettingsTest, AsksAgainWhenThePortalIsBack) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    portal.leave();
    settle();
    portal.change(desktop, animations, true);
    settle(portal.uniqueName());
    EXPECT_TRUE(reducesMotion()) << "one that is no portal any more was heard";
    portal.appear();
    settleAfter(2 * questionsPerLook);
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, FollowsAnotherPortalThatTakesOver) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    FakeSettingsPortal successor(bus.connect());
    successor.put(desktop, animations, true);
    portal.leave();
    successor.appear();
    ASSERT_TRUE(eventually([&] { return !reducesMotion(); }));
    successor.change(desktop, animations, false);
    settle(successor.uniqueName());
    EXPECT_THAT(told, ElementsAre(true, false, true));
}

TEST_F(PortalAccessibilitySettingsTest, ForgetsAWishThatThePortalKnowsNoMoreWhenItIsBack) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    portal.leave();
    portal.remove(desktop, animations);
    portal.appear();
    settleAfter(2 * questionsPerLook);
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, LearnsNothingFromAnswersThatAreErrors) {
    portal.put(desktop, animations, false);
    portal.setError(u"org.freedesktop.DBus.Error.AccessDenied"_s);
    portal.appear();
    startAndLearn();
    EXPECT_FALSE(reducesMotion());
    portal.change(desktop, animations, false);
    settle(portal.uniqueName());
    EXPECT_TRUE(reducesMotion()) << "signals are heard all the same";
}

TEST_F(PortalAccessibilitySettingsTest, LetsTheLastWordStandWhenThePortalComesBackWithErrors) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    portal.leave();
    portal.setError(u"org.freedesktop.DBus.Error.Failed"_s);
    portal.appear();
    settleAfter(2 * questionsPerLook);
    EXPECT_THAT(told, ElementsAre(true));
    EXPECT_TRUE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, LetsTheLastWordStandWhenTheBusDies) {
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn();
    bus.kill();
    ASSERT_TRUE(eventually([&] { return !connection.isConnected(); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, UnderstandsAPortalOfTheFirstVersion) {
    portal.setVersion(Version::one);
    portal.put(desktop, animations, false);
    portal.appear();
    startAndLearn(2 * questionsPerLook);
    EXPECT_TRUE(reducesMotion());
    portal.change(desktop, animations, true);
    settle(portal.uniqueName());
    EXPECT_FALSE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, LearnsOfReducedMotionFromAPortalOfTheFirstVersion) {
    portal.setVersion(Version::one);
    portal.put(appearance, motion, reduced);
    portal.appear();
    startAndLearn(2 * questionsPerLook);
    EXPECT_TRUE(reducesMotion());
}

TEST_F(PortalAccessibilitySettingsTest, FollowsChangesInAProgramThatDoesNothingElseWithTheBus) {
    portal.appear();
    QProcess listener;
    listener.start(QCoreApplication::applicationDirPath() + u"/motion_listener"_s, {bus.address()});
    ASSERT_TRUE(eventually([&] { return portal.questions() == questionsPerLook; }));
    portal.change(desktop, animations, false);
    EXPECT_TRUE(eventually([&] { return listener.canReadLine(); }));
    EXPECT_EQ(listener.readLine(), "reduced\n");
    listener.kill();
    listener.waitForFinished();
}

TEST_F(PortalAccessibilitySettingsTest, NeverStartsAPortal) {
    bus.offerService(portalName, u"/usr/bin/touch "_s + trace(u"portal"_s));
    bus.offerService(u"org.example.Other"_s, u"/usr/bin/touch "_s + trace(u"other"_s));
    start();
    settle();
    // That another service is started shows that the portal would have been.
    connection.asyncCall(ping(u"org.example.Other"_s));
    EXPECT_TRUE(eventually([&] { return isStarted(u"other"_s); }));
    EXPECT_FALSE(isStarted(u"portal"_s));
}

TEST_F(PortalAccessibilitySettingsTest, DoesNotBringBackAPortalThatLeavesBeforeItIsAsked) {
    bus.offerService(portalName, u"/usr/bin/touch "_s + trace(u"portal"_s));
    bus.offerService(u"org.example.Other"_s, u"/usr/bin/touch "_s + trace(u"other"_s));
    portal.appear();
    start();
    // Its number is known by now, but was not yet handled.
    EXPECT_FALSE(connection.interface()->serviceOwner(portalName).value().isEmpty());
    portal.leave();
    ASSERT_TRUE(eventually([&] { return portal.questions() == questionsPerLook; }));
    connection.asyncCall(ping(u"org.example.Other"_s));
    EXPECT_TRUE(eventually([&] { return isStarted(u"other"_s); }));
    EXPECT_FALSE(isStarted(u"portal"_s));
}

TEST(PortalAccessibilitySettings, NeverReducesMotionWithoutABus) {
    PortalAccessibilitySettings settings(QDBusConnection(u"nowhere"_s));
    QCoreApplication::processEvents();
    EXPECT_FALSE(settings.reducesMotion());
}

} // namespace
} // namespace tolvar::test
