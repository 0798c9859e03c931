#include "Platform/Linux/DBus/FreedesktopNotificationCenter.h"

#include "Platform/Linux/DBus/FakeNotificationServer.h"
#include "Platform/Linux/DBus/PrivateBus.h"
#include "Support/Texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

const FreedesktopNotificationCenter::Sender sender = {u"Tolvar"_s, u"app.tolvar.Tolvar"_s};
constexpr std::chrono::milliseconds shortPatience{50};

/// What a callback was told; nothing before it was called.
struct Delivery {
    bool arrived = false;
    std::optional<QString> error;
};

NotificationAuthorization askForAuthorization(FreedesktopNotificationCenter& center) {
    std::optional<NotificationAuthorization> answer;
    center.requestAuthorization([&](const auto& given) { answer = given; });
    EXPECT_FALSE(answer) << "the answer came before the function returned";
    EXPECT_TRUE(eventually([&] { return answer.has_value(); }));
    return answer.value_or(NotificationAuthorization());
}

std::optional<QString> post(FreedesktopNotificationCenter& center, const QString& identifier,
                            const NotificationContent& content = {u"Title"_s, u"Body"_s}) {
    Delivery delivery;
    center.add(identifier, content, [&](const auto& error) { delivery = {true, error}; });
    EXPECT_FALSE(delivery.arrived) << "the answer came before the function returned";
    EXPECT_TRUE(eventually([&] { return delivery.arrived; }));
    return delivery.error;
}

/// Returns when every message that the server sent so far was handled.
void settle(FreedesktopNotificationCenter& center) {
    askForAuthorization(center);
}

class FreedesktopNotificationCenterTest : public testing::Test {
protected:
    PrivateBus bus;
    FakeNotificationServer server{bus.connect()};
    FreedesktopNotificationCenter center{bus.connect(), sender};
};

TEST_F(FreedesktopNotificationCenterTest, IsAuthorizedByAServerThatAnswers) {
    const auto answer = askForAuthorization(center);
    EXPECT_TRUE(answer.granted);
    EXPECT_EQ(answer.error, std::nullopt);
}

TEST_F(FreedesktopNotificationCenterTest, PresentsItselfToTheServer) {
    EXPECT_EQ(post(center, u"A"_s, {u"Focus session complete"_s, u"Read — 25m of focus."_s}),
              std::nullopt);
    ASSERT_EQ(server.notifications().size(), 1u);
    const auto& shown = server.notifications().front();
    EXPECT_EQ(shown.appName, u"Tolvar"_s);
    EXPECT_EQ(shown.appIcon, u"app.tolvar.Tolvar"_s);
    EXPECT_EQ(shown.summary, u"Focus session complete"_s);
    EXPECT_EQ(shown.body, u"Read — 25m of focus."_s);
    EXPECT_EQ(shown.actions, (QStringList{u"default"_s, u"Open Tolvar"_s}));
    EXPECT_EQ(shown.expireTimeout, -1);
    EXPECT_EQ(shown.hints.value(u"desktop-entry"_s), QVariant(u"app.tolvar.Tolvar"_s));
    EXPECT_EQ(shown.hints.value(u"urgency"_s), QVariant::fromValue(uchar(1)));
}

TEST_F(FreedesktopNotificationCenterTest, AsksTheServerToBeSilentWhenThereIsNoSound) {
    post(center, u"A"_s, {u"T"_s, u"B"_s, NotificationSound::none});
    const auto& hints = server.notifications().front().hints;
    EXPECT_EQ(hints.value(u"suppress-sound"_s), QVariant(true));
    EXPECT_FALSE(hints.contains(u"sound-name"_s));
}

TEST_F(FreedesktopNotificationCenterTest, NamesASoundOfTheThemeForTheSystemsOwn) {
    post(center, u"A"_s, {u"T"_s, u"B"_s, NotificationSound::systemDefault});
    const auto& hints = server.notifications().front().hints;
    EXPECT_EQ(hints.value(u"sound-name"_s), QVariant(u"complete"_s));
    EXPECT_FALSE(hints.contains(u"suppress-sound"_s));
}

TEST_F(FreedesktopNotificationCenterTest, EscapesTheBodyOnlyForAServerThatReadsMarkup) {
    const NotificationContent content = {u"T"_s, u"Fix <b> & \"co\""_s};
    post(center, u"A"_s, content);
    server.setCapabilities({u"body"_s, u"body-markup"_s});
    post(center, u"B"_s, content);
    EXPECT_EQ(server.notifications()[0].body, u"Fix <b> & \"co\""_s);
    EXPECT_EQ(server.notifications()[1].body, u"Fix &lt;b&gt; &amp; &quot;co&quot;"_s);
}

TEST_F(FreedesktopNotificationCenterTest, ReplacesANotificationWithTheSameIdentifier) {
    server.setNextNumber(7);
    post(center, u"A"_s);
    post(center, u"B"_s);
    post(center, u"A"_s);
    ASSERT_EQ(server.notifications().size(), 3u);
    EXPECT_EQ(server.notifications()[1].replacesId, 0u);
    EXPECT_EQ(server.notifications()[2].replacesId, 7u);
}

TEST_F(FreedesktopNotificationCenterTest, ReplacesAlsoANotificationThatIsStillOnItsWay) {
    server.setNextNumber(7);
    int delivered = 0;
    for (int i = 0; i < 3; ++i)
        center.add(u"A"_s, {u"T"_s, u"B"_s}, [&](const auto&) { ++delivered; });
    ASSERT_TRUE(eventually([&] { return delivered == 3; }));
    EXPECT_EQ(server.notifications()[0].replacesId, 0u);
    EXPECT_EQ(server.notifications()[1].replacesId, 7u);
    EXPECT_EQ(server.notifications()[2].replacesId, 7u);
}

TEST_F(FreedesktopNotificationCenterTest, ForgetsANotificationThatWasClosed) {
    post(center, u"A"_s);
    Q_EMIT server.NotificationClosed(1, 2);
    settle(center);
    post(center, u"A"_s);
    EXPECT_EQ(server.notifications()[1].replacesId, 0u);
}

TEST_F(FreedesktopNotificationCenterTest, NeverReplacesByANumberOfAnEarlierServer) {
    post(center, u"A"_s);
    server.leave();
    FakeNotificationServer another(bus.connect());
    settle(center);
    post(center, u"A"_s);
    ASSERT_EQ(another.notifications().size(), 1u);
    EXPECT_EQ(another.notifications()[0].replacesId, 0u);
}

TEST_F(FreedesktopNotificationCenterTest, TellsWhichNotificationWasClicked) {
    std::vector<QString> opened;
    const auto subscription =
        center.observeOpened([&](const QString& identifier) { opened.push_back(identifier); });
    post(center, u"A"_s);
    post(center, u"B"_s);
    Q_EMIT server.ActionInvoked(2, u"default"_s);
    ASSERT_TRUE(eventually([&] { return !opened.empty(); }));
    EXPECT_EQ(opened, texts({u"B"}));
}

TEST_F(FreedesktopNotificationCenterTest, IgnoresOtherActionsAndOtherProgramsNotifications) {
    std::vector<QString> opened;
    const auto subscription =
        center.observeOpened([&](const QString& identifier) { opened.push_back(identifier); });
    post(center, u"A"_s);
    Q_EMIT server.ActionInvoked(1, u"settings"_s);
    Q_EMIT server.ActionInvoked(99, u"default"_s);
    settle(center);
    EXPECT_TRUE(opened.empty());
}

TEST_F(FreedesktopNotificationCenterTest, TellsNobodyWhoNoLongerListens) {
    int opened = 0;
    auto subscription = center.observeOpened([&](const QString&) { ++opened; });
    const auto other = center.observeOpened([&](const QString&) { ++opened; });
    post(center, u"A"_s);
    subscription.reset();
    Q_EMIT server.ActionInvoked(1, u"default"_s);
    settle(center);
    EXPECT_EQ(opened, 1);
}

TEST_F(FreedesktopNotificationCenterTest, ReportsAMissingServer) {
    server.leave();
    const auto answer = askForAuthorization(center);
    EXPECT_FALSE(answer.granted);
    ASSERT_TRUE(answer.error.has_value());
    EXPECT_THAT(answer.error->toStdString(), HasSubstr("org.freedesktop.Notifications"));
    EXPECT_NE(post(center, u"A"_s), std::nullopt);
}

TEST_F(FreedesktopNotificationCenterTest, FindsAServerThatComesLater) {
    server.leave();
    EXPECT_NE(post(center, u"A"_s), std::nullopt);
    const FakeNotificationServer late(bus.connect());
    EXPECT_EQ(post(center, u"A"_s), std::nullopt);
    EXPECT_EQ(late.notifications().size(), 1u);
}

TEST_F(FreedesktopNotificationCenterTest, ReportsAServerThatDiesBeforeItAnswers) {
    server.setAnswers(FakeNotificationServer::Answers::never);
    Delivery delivery;
    center.add(u"A"_s, {u"T"_s, u"B"_s}, [&](const auto& error) { delivery = {true, error}; });
    ASSERT_TRUE(eventually([&] { return server.calls() == 1; }));
    bus.kill();
    ASSERT_TRUE(eventually([&] { return delivery.arrived; }));
    EXPECT_NE(delivery.error, std::nullopt);
}

TEST_F(FreedesktopNotificationCenterTest, ReportsABusThatIsGone) {
    ASSERT_EQ(post(center, u"A"_s), std::nullopt);
    bus.kill();
    EXPECT_NE(askForAuthorization(center).error, std::nullopt);
    EXPECT_NE(post(center, u"A"_s), std::nullopt);
}

TEST_F(FreedesktopNotificationCenterTest, ReportsAServerThatHangs) {
    server.setAnswers(FakeNotificationServer::Answers::never);
    FreedesktopNotificationCenter impatient(bus.connect(), sender, shortPatience);
    EXPECT_NE(askForAuthorization(impatient).error, std::nullopt);
    EXPECT_NE(post(impatient, u"A"_s), std::nullopt);
}

TEST_F(FreedesktopNotificationCenterTest, PostsTheNextOneAfterOneThatFailed) {
    server.setAnswers(FakeNotificationServer::Answers::never);
    FreedesktopNotificationCenter impatient(bus.connect(), sender, shortPatience);
    Delivery second;
    impatient.add(u"A"_s, {u"T"_s, u"1"_s}, [&](const auto& error) {
        EXPECT_NE(error, std::nullopt);
        server.setAnswers(FakeNotificationServer::Answers::yes);
        impatient.add(u"A"_s, {u"T"_s, u"2"_s}, [&](const auto& e) { second = {true, e}; });
    });
    ASSERT_TRUE(eventually([&] { return second.arrived; }));
    EXPECT_EQ(second.error, std::nullopt);
    ASSERT_EQ(server.notifications().size(), 1u);
    EXPECT_EQ(server.notifications()[0].body, u"2"_s);
}

TEST_F(FreedesktopNotificationCenterTest, CallsNobodyBackOnceItIsGone) {
    auto shortLived = std::make_unique<FreedesktopNotificationCenter>(bus.connect(), sender);
    auto subscription = shortLived->observeOpened([](const QString&) { FAIL(); });
    shortLived->requestAuthorization([](const auto&) { FAIL(); });
    shortLived->add(u"A"_s, {u"T"_s, u"B"_s}, [](const auto&) { FAIL(); });
    shortLived.reset();
    settle(center);
    subscription.reset();
}

TEST(FreedesktopNotificationCenter, IsDeniedWithoutAnErrorWhereTheBusForbidsTheServer) {
    PrivateBus bus(u"org.freedesktop.Notifications"_s);
    const FakeNotificationServer server(bus.connect());
    FreedesktopNotificationCenter center(bus.connect(), sender);
    std::optional<NotificationAuthorization> answer;
    center.requestAuthorization([&](const auto& given) { answer = given; });
    ASSERT_TRUE(eventually([&] { return answer.has_value(); }));
    EXPECT_FALSE(answer->granted);
    EXPECT_EQ(answer->error, std::nullopt);
}

TEST(FreedesktopNotificationCenter, ReportsThatThereIsNoBus) {
    FreedesktopNotificationCenter center(QDBusConnection(u"nowhere"_s), sender);
    std::optional<NotificationAuthorization> answer;
    std::optional<QString> error;
    center.requestAuthorization([&](const auto& given) { answer = given; });
    center.add(u"A"_s, {u"T"_s, u"B"_s}, [&](const auto& given) { error = given; });
    EXPECT_FALSE(answer || error) << "an answer came before the function returned";
    ASSERT_TRUE(eventually([&] { return answer && error; }));
    EXPECT_FALSE(answer->granted);
    EXPECT_TRUE(answer->error.has_value());
}

} // namespace
} // namespace tolvar::test
