#include "Platform/Common/CombinedAccessibilitySettings.h"

#include "Platform/Null/NullAccessibilitySettings.h"
#include "Support/FakeAccessibilitySettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using testing::ElementsAre;

class CombinedAccessibilitySettingsTest : public testing::Test {
protected:
    /// Two sources that say this at first.
    CombinedAccessibilitySettings combine(bool first, bool second) {
        auto one = std::make_unique<FakeAccessibilitySettings>(first);
        auto other = std::make_unique<FakeAccessibilitySettings>(second);
        m_first = one.get();
        m_second = other.get();
        CombinedAccessibilitySettings::Sources sources;
        sources.push_back(std::move(one));
        sources.push_back(std::move(other));
        return CombinedAccessibilitySettings(std::move(sources));
    }
    /// Notes what `settings` says after each change.
    Subscription record(CombinedAccessibilitySettings& settings) {
        return settings.observe([&] { m_told.push_back(settings.reducesMotion()); });
    }

    FakeAccessibilitySettings* m_first = nullptr;
    FakeAccessibilitySettings* m_second = nullptr;
    std::vector<bool> m_told;
};

TEST_F(CombinedAccessibilitySettingsTest, ReducesMotionIfEitherSourceSaysSo) {
    EXPECT_FALSE(combine(false, false).reducesMotion());
    EXPECT_TRUE(combine(true, false).reducesMotion());
    EXPECT_TRUE(combine(false, true).reducesMotion());
    EXPECT_TRUE(combine(true, true).reducesMotion());
}

TEST_F(CombinedAccessibilitySettingsTest, NeverReducesMotionWithoutASourceThatKnows) {
    EXPECT_FALSE(CombinedAccessibilitySettings({}).reducesMotion());
    CombinedAccessibilitySettings::Sources unknowing;
    unknowing.push_back(std::make_unique<NullAccessibilitySettings>());
    CombinedAccessibilitySettings settings(std::move(unknowing));
    EXPECT_FALSE(settings.reducesMotion());
}

TEST_F(CombinedAccessibilitySettingsTest, TellsOfAChangeOfEitherSource) {
    auto settings = combine(false, false);
    const auto subscription = record(settings);
    m_first->setReducesMotion(true);
    m_first->setReducesMotion(false);
    m_second->setReducesMotion(true);
    EXPECT_THAT(m_told, ElementsAre(true, false, true));
}

TEST_F(CombinedAccessibilitySettingsTest, TellsNothingWhileTheWholeStaysAsItIs) {
    auto settings = combine(true, false);
    const auto subscription = record(settings);
    m_second->setReducesMotion(true);
    m_first->setReducesMotion(false);
    EXPECT_THAT(m_told, ElementsAre());
    EXPECT_TRUE(settings.reducesMotion());
    m_second->setReducesMotion(false);
    EXPECT_THAT(m_told, ElementsAre(false));
}

TEST_F(CombinedAccessibilitySettingsTest, TellsNobodyWhoDroppedTheSubscription) {
    auto settings = combine(false, false);
    auto subscription = record(settings);
    subscription.reset();
    m_first->setReducesMotion(true);
    EXPECT_THAT(m_told, ElementsAre());
    EXPECT_TRUE(settings.reducesMotion());
}

} // namespace
} // namespace tolvar::test
