#include "Platform/Linux/X11/X11AccessibilitySettings.h"

#include "Platform/Linux/X11/FakeSettingsManager.h"
#include "Platform/Linux/X11/PrivateServer.h"
#include "Platform/Linux/X11/TestDesktop.h"
#include "Platform/Linux/X11/XSettingsValue.h"

#include <QAbstractEventDispatcher>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

namespace tolvar::test {
namespace {

using testing::ElementsAre;

QByteArray animations(std::int32_t value) {
    return XSettingsValue()
        .text("Net/ThemeName", "Adwaita")
        .number("Gtk/EnableAnimations", value)
        .bytes();
}
const QByteArray off = animations(0);
const QByteArray on = animations(1);
const QByteArray silent = XSettingsValue().text("Net/ThemeName", "Adwaita").bytes();

class X11AccessibilitySettingsTest : public testing::Test {
protected:
    void start() {
        m_settings = X11AccessibilitySettings::create();
        ASSERT_TRUE(m_settings);
        m_subscription = m_settings->observe([this] { told.push_back(reducesMotion()); });
    }
    bool reducesMotion() const { return m_settings->reducesMotion(); }
    /// Whether this comes to be said.
    bool comesToSay(bool reducesMotion) const {
        return TestDesktop::waitUntil([&] { return m_settings->reducesMotion() == reducesMotion; });
    }
    /// How often the event loop wakes in the course of fifty times of what is done.
    static int wakeUpsBy(const std::function<void()>& something) {
        auto* dispatcher = QAbstractEventDispatcher::instance();
        while (dispatcher->processEvents(QEventLoop::AllEvents))
            continue;
        int count = 0;
        for (int i = 0; i < 50; ++i) {
            something();
            count += dispatcher->processEvents(QEventLoop::AllEvents) ? 1 : 0;
        }
        return count;
    }

    PrivateServer server;
    FakeSettingsManager manager;
    /// What was said after each change that was told of.
    std::vector<bool> told;

private:
    std::unique_ptr<X11AccessibilitySettings> m_settings;
    Subscription m_subscription;
};

TEST_F(X11AccessibilitySettingsTest, KnowsAtOnceThatAnimationsAreOff) {
    manager.publish(off);
    manager.appear();
    start();
    EXPECT_TRUE(reducesMotion());
}

TEST_F(X11AccessibilitySettingsTest, LetsThingsMoveWhereTheManagerSaysSoOrNothing) {
    manager.publish(on);
    manager.appear();
    start();
    EXPECT_FALSE(reducesMotion());
    manager.publish(silent);
    start();
    EXPECT_FALSE(reducesMotion());
}

TEST_F(X11AccessibilitySettingsTest, LetsThingsMoveWithoutAManager) {
    start();
    EXPECT_FALSE(reducesMotion());
}

TEST_F(X11AccessibilitySettingsTest, FollowsChanges) {
    manager.publish(on);
    manager.appear();
    start();
    manager.publish(off);
    EXPECT_TRUE(comesToSay(true));
    manager.publish(on);
    EXPECT_TRUE(comesToSay(false));
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(X11AccessibilitySettingsTest, TellsNothingWhenOtherSettingsChange) {
    manager.publish(off);
    manager.appear();
    start();
    manager.publish(XSettingsValue().number("Gtk/EnableAnimations", 0).bytes());
    TestDesktop::staysTrue([] { return true; });
    manager.publish(on);
    EXPECT_TRUE(comesToSay(false));
    EXPECT_THAT(told, ElementsAre(false));
}

TEST_F(X11AccessibilitySettingsTest, LosesTheWishWhenTheSettingIsRemovedOrDamaged) {
    manager.publish(off);
    manager.appear();
    start();
    manager.publish(silent);
    EXPECT_TRUE(comesToSay(false));
    manager.publish(off);
    EXPECT_TRUE(comesToSay(true));
    manager.publish(off.chopped(2));
    EXPECT_TRUE(comesToSay(false));
}

TEST_F(X11AccessibilitySettingsTest, MeetsAManagerThatAppearsLater) {
    start();
    manager.publish(off);
    manager.appear();
    EXPECT_TRUE(comesToSay(true));
    manager.publish(on);
    EXPECT_TRUE(comesToSay(false));
}

TEST_F(X11AccessibilitySettingsTest, HearsAManagerThatSpeaksOnlyAfterItHasAppeared) {
    start();
    manager.appear();
    TestDesktop::staysTrue([] { return true; });
    manager.publish(off);
    EXPECT_TRUE(comesToSay(true));
}

TEST_F(X11AccessibilitySettingsTest, LetsTheLastWordStandUntilTheNextManagerSpeaks) {
    manager.publish(off);
    manager.appear();
    start();
    manager.leave();
    EXPECT_TRUE(TestDesktop::staysTrue([&] { return reducesMotion(); }));
    FakeSettingsManager successor;
    successor.appear();
    EXPECT_TRUE(TestDesktop::staysTrue([&] { return reducesMotion(); }));
    successor.publish(on);
    EXPECT_TRUE(comesToSay(false));
    EXPECT_THAT(told, ElementsAre(false));
}

TEST_F(X11AccessibilitySettingsTest, FollowsAManagerThatTakesThePlaceOfAnother) {
    manager.publish(off);
    manager.appear();
    start();
    FakeSettingsManager successor;
    successor.publish(on);
    successor.appear();
    EXPECT_TRUE(comesToSay(false));
    EXPECT_EQ(wakeUpsBy([&] { manager.publish(off); }), 0);
    EXPECT_FALSE(reducesMotion());
    successor.publish(off);
    EXPECT_TRUE(comesToSay(true));
}

TEST_F(X11AccessibilitySettingsTest, FollowsAManagerWhoseWindowHasTheNumberOfTheLastOne) {
    auto first = std::make_unique<FakeSettingsManager>();
    const auto window = first->window();
    first->publish(off);
    first->appear();
    start();
    first.reset();
    TestDesktop::staysTrue([] { return true; });
    FakeSettingsManager second;
    ASSERT_EQ(second.window(), window);
    second.publish(on);
    second.appear();
    EXPECT_TRUE(comesToSay(false));
    second.publish(off);
    EXPECT_TRUE(comesToSay(true));
}

TEST_F(X11AccessibilitySettingsTest, EndsUpWithTheLastOfManyChanges) {
    manager.publish(on);
    manager.appear();
    start();
    for (int round = 0; round < 50; ++round) {
        std::thread user([&] {
            for (int i = 0; i < 5; ++i) {
                manager.publish(off);
                manager.publish(on);
            }
            manager.publish(round % 2 == 0 ? off : on);
        });
        TestDesktop::staysTrue([] { return true; }, std::chrono::milliseconds(2));
        user.join();
        ASSERT_TRUE(comesToSay(round % 2 == 0)) << "round " << round;
    }
}

TEST_F(X11AccessibilitySettingsTest, IsWokenByNothingButTheSettings) {
    manager.publish(on);
    manager.appear();
    start();
    EXPECT_EQ(wakeUpsBy([&] { manager.chat(); }), 0);
    EXPECT_GE(wakeUpsBy([&] { manager.publish(on); }), 40);
}

TEST_F(X11AccessibilitySettingsTest, LetsTheLastWordStandWhenTheServerIsGone) {
    manager.publish(off);
    manager.appear();
    start();
    server.end();
    EXPECT_TRUE(TestDesktop::staysTrue([&] { return reducesMotion(); }));
    EXPECT_EQ(wakeUpsBy([] {}), 0);
}

TEST(X11AccessibilitySettings, AreNoneWithoutAServer) {
    const QByteArray former = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":63999");
    EXPECT_EQ(X11AccessibilitySettings::create(), nullptr);
    qputenv("DISPLAY", former);
}

} // namespace
} // namespace tolvar::test
