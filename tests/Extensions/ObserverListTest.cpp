#include "Extensions/ObserverList.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

struct Observer {
    std::function<void(int)> counted = {};
    std::function<void()> ended = {};
};

TEST(ObserverList, CallsEveryoneUntilTheSubscriptionIsDropped) {
    ObserverList<Observer> list;
    int sum = 0;
    auto first = list.add({.counted = [&](int count) { sum += count; }});
    const auto second = list.add({.counted = [&](int count) { sum += 10 * count; }});
    list.call(&Observer::counted, 1);
    EXPECT_EQ(sum, 11);
    first.reset();
    list.call(&Observer::counted, 1);
    EXPECT_EQ(sum, 21);
}

TEST(ObserverList, LeavesOutFunctionsThatAreEmpty) {
    ObserverList<Observer> list;
    const auto subscription = list.add({});
    list.call(&Observer::ended);
}

TEST(ObserverList, CallsNobodyWhoLeavesMeanwhileOrComesMeanwhile) {
    ObserverList<Observer> list;
    QStringList told;
    Subscription second;
    Subscription third;
    const auto first = list.add({.ended = [&] {
        told += u"first"_s;
        second.reset();
        third = list.add({.ended = [&] { told += u"third"_s; }});
    }});
    second = list.add({.ended = [&] { told += u"second"_s; }});
    list.call(&Observer::ended);
    EXPECT_EQ(told, QStringList(u"first"_s));
}

TEST(ObserverList, MayGoWhileItCallsAndBeforeItsSubscriptions) {
    auto list = std::make_unique<ObserverList<Observer>>();
    int calls = 0;
    const auto first = list->add({.ended = [&] {
        ++calls;
        list.reset();
    }});
    const auto second = list->add({.ended = [&] { ++calls; }});
    list->call(&Observer::ended);
    EXPECT_EQ(calls, 2);
}

TEST(ObserverList, IsTheSameListWhenCopied) {
    ObserverList<Observer> list;
    const auto copy = list;
    int calls = 0;
    const auto subscription = list.add({.ended = [&] { ++calls; }});
    copy.call(&Observer::ended);
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace tolvar
