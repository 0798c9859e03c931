#include "App/Remote/Followers.h"

#include "Platform/Linux/DBus/PrivateBus.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

TEST(Followers, KeepsEachNameOnce) {
    PrivateBus bus;
    const auto caller = bus.connect();
    Followers followers(bus.connect());
    followers.add(caller.baseService());
    followers.add(caller.baseService());
    EXPECT_EQ(followers.names(), QStringList{caller.baseService()});
    followers.remove(caller.baseService());
    EXPECT_TRUE(followers.names().isEmpty());
}

TEST(Followers, DropsWhoeverLeavesTheBusAndKeepsTheOthers) {
    PrivateBus bus;
    Followers followers(bus.connect());
    const auto staying = bus.connect();
    followers.add(staying.baseService());
    {
        const auto leaving = QDBusConnection::connectToBus(bus.address(), u"leaving"_s);
        followers.add(leaving.baseService());
    }
    ASSERT_EQ(followers.names().size(), 2);
    QDBusConnection::disconnectFromBus(u"leaving"_s);
    EXPECT_TRUE(eventually([&] { return followers.names().size() == 1; }));
    EXPECT_EQ(followers.names(), QStringList{staying.baseService()});
}

TEST(Followers, NeverKeepsOneThatHasLeftAlready) {
    PrivateBus bus;
    Followers followers(bus.connect());
    followers.add(u":1.99"_s);
    EXPECT_TRUE(followers.names().isEmpty());
}

} // namespace
} // namespace tolvar::test
