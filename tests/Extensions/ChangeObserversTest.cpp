#include "Extensions/ChangeObservers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tolvar {
namespace {

using testing::ElementsAre;

class ChangeObserversTest : public testing::Test {
protected:
    std::function<void()> append(int number) {
        return [this, number] { called.push_back(number); };
    }

    ChangeObservers observers;
    std::vector<int> called;
};

TEST_F(ChangeObserversTest, AreCalledInTheOrderOfTheirComing) {
    const auto first = observers.add(append(1));
    const auto second = observers.add(append(2));
    EXPECT_THAT(called, ElementsAre());
    observers.tell();
    EXPECT_THAT(called, ElementsAre(1, 2));
}

TEST_F(ChangeObserversTest, AreNotCalledAfterTheirSubscriptionWasDropped) {
    auto first = observers.add(append(1));
    const auto second = observers.add(append(2));
    first.reset();
    observers.tell();
    EXPECT_THAT(called, ElementsAre(2));
}

TEST_F(ChangeObserversTest, MayDropTheSubscriptionOfOneWhoIsStillToBeCalled) {
    Subscription second;
    const auto first = observers.add([&] { second.reset(); });
    second = observers.add(append(2));
    observers.tell();
    EXPECT_THAT(called, ElementsAre());
}

TEST_F(ChangeObserversTest, MayDropTheirOwnSubscription) {
    Subscription first;
    first = observers.add([&] {
        called.push_back(1);
        first.reset();
    });
    observers.tell();
    observers.tell();
    EXPECT_THAT(called, ElementsAre(1));
}

TEST_F(ChangeObserversTest, CallWhoComesMeanwhileTheNextTime) {
    std::vector<Subscription> later;
    const auto first = observers.add([&] { later.push_back(observers.add(append(2))); });
    observers.tell();
    EXPECT_THAT(called, ElementsAre());
    observers.tell();
    EXPECT_THAT(called, ElementsAre(2));
}

TEST_F(ChangeObserversTest, MayDestroyWhatTheyObserve) {
    auto observed = std::make_unique<ChangeObservers>();
    const auto first = observed->add([&] { observed.reset(); });
    const auto second = observed->add(append(2));
    observed->tell();
    EXPECT_FALSE(observed);
    EXPECT_THAT(called, ElementsAre(2));
}

} // namespace
} // namespace tolvar
