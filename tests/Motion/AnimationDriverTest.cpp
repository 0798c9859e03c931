#include "Motion/AnimationDriver.h"

#include "Support/HandFrames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace tolvar {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Notes when it is called, and does what it is told then.
class Mover final : public Animation {
public:
    explicit Mover(AnimationDriver& driver)
        : m_driver(driver) {}
    ~Mover() override { m_driver.remove(*this); }

    void advance(double now) override {
        moments.push_back(now);
        if (const auto act = onAdvance)
            act();
    }
    void reduce() override {
        ++reductions;
        if (const auto act = onReduce)
            act();
    }

    std::vector<double> moments;
    int reductions = 0;
    std::function<void()> onAdvance;
    std::function<void()> onReduce;

private:
    AnimationDriver& m_driver;
};

struct AnimationDriverTest : testing::Test {
    test::HandFrames frames;
    AnimationDriver driver{frames};
};

TEST_F(AnimationDriverTest, AsksForFramesOnlyWhileSomethingMoves) {
    EXPECT_EQ(frames.starts(), 0);
    Mover first(driver);
    Mover second(driver);
    driver.add(first);
    driver.add(second);
    driver.add(first);
    EXPECT_EQ(frames.starts(), 1);
    driver.remove(first);
    EXPECT_TRUE(driver.isAwake());
    EXPECT_EQ(frames.stops(), 0);
    driver.remove(second);
    EXPECT_FALSE(driver.isAwake());
    EXPECT_EQ(frames.stops(), 1);
    driver.add(first);
    EXPECT_EQ(frames.starts(), 2);
}

TEST_F(AnimationDriverTest, AsksForNoMoreFramesWhenItIsDestroyed) {
    auto local = std::make_unique<AnimationDriver>(frames);
    {
        Mover mover(*local);
        local->add(mover);
    }
    EXPECT_EQ(frames.stops(), 1);
    auto mover = std::make_unique<Mover>(*local);
    local->add(*mover);
    mover->onAdvance = [&] {
        mover.reset();
        local.reset();
    };
    frames.advance(0.1);
    EXPECT_FALSE(frames.isRunning());
    EXPECT_EQ(frames.frames(), 1);
}

TEST_F(AnimationDriverTest, CallsEachAnimationOncePerFrameWithTheTimeOfTheFrame) {
    Mover mover(driver);
    const double begin = driver.now();
    driver.add(mover);
    driver.add(mover);
    frames.advance(0.05);
    ASSERT_EQ(mover.moments.size(), 3u);
    EXPECT_NEAR(mover.moments[0] - begin, 1.0 / 60, 1e-9);
    EXPECT_NEAR(mover.moments[2] - begin, 0.05, 1e-9);
}

TEST_F(AnimationDriverTest, StandsStillInTimeWhileNothingMoves) {
    const double before = driver.now();
    frames.advance(500);
    EXPECT_EQ(driver.now(), before);
    Mover mover(driver);
    driver.add(mover);
    EXPECT_EQ(driver.now(), before);
    frames.stall(0.25);
    EXPECT_NEAR(driver.now() - before, 0.25, 1e-9);
}

TEST_F(AnimationDriverTest, TellsTheTimeOfTheFrameThroughoutTheFrame) {
    Mover mover(driver);
    driver.add(mover);
    mover.onAdvance = [&] {
        frames.stall(0.01);
        EXPECT_EQ(driver.now(), mover.moments.back());
    };
    frames.advance(0.1);
    EXPECT_GT(mover.moments.size(), 3u);
}

TEST_F(AnimationDriverTest, NeverGoesBackInTime) {
    Mover mover(driver);
    driver.add(mover);
    double latest = driver.now();
    double media = frames.mediaTime();
    for (const double step : {0.5, -0.1, 0.3, -100.0, 0.2, -0.2, -0.2, 0.1, -1e9, 0.7}) {
        media += step;
        frames.jumpTo(media);
        EXPECT_GE(driver.now(), latest) << step;
        latest = driver.now();
    }
    EXPECT_TRUE(std::is_sorted(mover.moments.begin(), mover.moments.end()));
}

TEST_F(AnimationDriverTest, GoesOnAtItsPaceFromWhereTheClockWasSetBackTo) {
    Mover mover(driver);
    driver.add(mover);
    frames.jumpTo(5);
    const double before = driver.now();
    frames.advance(0.5);
    EXPECT_NEAR(driver.now() - before, 0.5, 1e-9);
}

TEST_F(AnimationDriverTest, CountsNoTimeTwiceWhenFramesAreStampedBeforeWhatWasRead) {
    Mover mover(driver);
    driver.add(mover);
    const double begin = driver.now();
    const double media = frames.mediaTime();
    for (int i = 1; i <= 100; ++i) {
        frames.jumpTo(media + i * 0.016);
        frames.stall(0.02);
        driver.now();
    }
    EXPECT_NEAR(driver.now() - begin, 1.62, 1e-9);
}

TEST_F(AnimationDriverTest, TakesNoNoticeOfMomentsThatAreNoNumbers) {
    Mover mover(driver);
    driver.add(mover);
    frames.advance(0.1);
    const double before = driver.now();
    const double media = frames.mediaTime();
    for (const double bad : {notANumber, infinite, -infinite}) {
        frames.jumpTo(bad);
        EXPECT_EQ(driver.now(), before) << bad;
    }
    frames.jumpTo(media + 0.1);
    EXPECT_NEAR(driver.now() - before, 0.1, 1e-9);
}

TEST_F(AnimationDriverTest, StretchesTimeBySlowFactorFromTheMomentItIsSet) {
    Mover mover(driver);
    driver.add(mover);
    const double begin = driver.now();
    frames.stall(1);
    driver.setSettings({false, 5});
    frames.advance(1);
    EXPECT_NEAR(driver.now() - begin, 1.2, 1e-9);
    driver.setSettings({});
    frames.advance(1);
    EXPECT_NEAR(driver.now() - begin, 2.2, 1e-9);
}

TEST_F(AnimationDriverTest, BringsTheSlowFactorIntoItsRange) {
    const auto used = [&](double factor) {
        driver.setSettings({false, factor});
        return driver.settings().slowFactor;
    };
    EXPECT_EQ(used(5), 5);
    EXPECT_EQ(used(0.1), 1);
    EXPECT_EQ(used(-3), 1);
    EXPECT_EQ(used(1e9), 1000);
    EXPECT_EQ(used(notANumber), 1);
    EXPECT_EQ(used(infinite), 1);
    EXPECT_EQ(AnimationDriver(frames, {true, 0}).settings(), (MotionSettings{true, 1}));
}

TEST_F(AnimationDriverTest, CallsNothingAnyMoreThatWasRemovedInTheSameFrame) {
    Mover first(driver);
    Mover second(driver);
    Mover third(driver);
    for (auto* mover : {&first, &second, &third})
        driver.add(*mover);
    second.onAdvance = [&] {
        driver.remove(first);
        driver.remove(second);
        driver.remove(third);
    };
    frames.advance(0.1);
    EXPECT_EQ(first.moments.size(), 1u);
    EXPECT_EQ(second.moments.size(), 1u);
    EXPECT_EQ(third.moments.size(), 0u);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(AnimationDriverTest, CallsWhatIsAddedInAFrameFromTheNextFrameOn) {
    Mover first(driver);
    std::vector<std::unique_ptr<Mover>> more;
    driver.add(first);
    first.onAdvance = [&] {
        // Enough of them to move the driver's list in memory.
        for (int i = 0; i < 100; ++i) {
            more.push_back(std::make_unique<Mover>(driver));
            driver.add(*more.back());
        }
        first.onAdvance = nullptr;
    };
    frames.advance(1.0 / 60);
    EXPECT_TRUE(more.back()->moments.empty());
    frames.advance(1.0 / 60);
    EXPECT_EQ(more.back()->moments.size(), 1u);
    EXPECT_EQ(first.moments.size(), 2u);
}

TEST_F(AnimationDriverTest, KeepsMovingWhatIsRemovedAndAddedAgainInAFrame) {
    Mover mover(driver);
    driver.add(mover);
    mover.onAdvance = [&] {
        driver.remove(mover);
        driver.add(mover);
    };
    frames.advance(3.0 / 60);
    EXPECT_EQ(mover.moments.size(), 3u);
    EXPECT_EQ(frames.starts(), 1);
    EXPECT_EQ(frames.stops(), 0);
}

TEST_F(AnimationDriverTest, SurvivesAnimationsThatDestroyThemselvesAndOthers) {
    std::vector<std::unique_ptr<Mover>> movers;
    for (int i = 0; i < 5; ++i) {
        movers.push_back(std::make_unique<Mover>(driver));
        driver.add(*movers.back());
    }
    movers[1]->onAdvance = [&] {
        movers[4].reset();
        movers[0].reset();
        movers[1].reset();
    };
    frames.advance(2.0 / 60);
    EXPECT_EQ(movers[2]->moments.size(), 2u);
    movers.clear();
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(AnimationDriverTest, ReducesWhatMovesBeforeItTellsSo) {
    Mover mover(driver);
    driver.add(mover);
    std::vector<MotionSettings> told;
    QObject::connect(&driver, &AnimationDriver::settingsChanged, &driver,
                     [&](const MotionSettings& settings) {
                         EXPECT_EQ(mover.reductions, 1);
                         told.push_back(settings);
                     });
    driver.setSettings({true, 1});
    driver.setSettings({true, 1});
    driver.setSettings({false, 1});
    driver.setSettings({false, 3});
    EXPECT_EQ(told, (std::vector<MotionSettings>{{true, 1}, {false, 1}, {false, 3}}));
    EXPECT_EQ(mover.reductions, 1);
}

TEST_F(AnimationDriverTest, SurvivesDestructionAndChangesOfMindWhileItReduces) {
    auto first = std::make_unique<Mover>(driver);
    Mover second(driver);
    Mover third(driver);
    for (auto* mover : {first.get(), &second, &third})
        driver.add(*mover);
    first->onReduce = [&] {
        driver.remove(second);
        driver.setSettings({false, 1});
        first.reset();
    };
    driver.setSettings({true, 1});
    EXPECT_EQ(second.reductions, 0);
    EXPECT_EQ(third.reductions, 1);
    EXPECT_TRUE(frames.isRunning());
    driver.remove(third);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(AnimationDriverTest, MayBeDestroyedWhileItReduces) {
    auto local = std::make_unique<AnimationDriver>(frames);
    auto mover = std::make_unique<Mover>(*local);
    local->add(*mover);
    mover->onReduce = [&] {
        mover.reset();
        local.reset();
    };
    local->setSettings({true, 1});
    EXPECT_EQ(local, nullptr);
    EXPECT_FALSE(frames.isRunning());
}

} // namespace
} // namespace tolvar
