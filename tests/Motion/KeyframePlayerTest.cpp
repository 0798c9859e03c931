#include "Motion/KeyframePlayer.h"

#include "Support/HandFrames.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tolvar {
namespace {

constexpr double exact = 1e-9;

KeyframeTrack ramp(double start, double end, double duration) {
    return KeyframeTrack(start, {LinearKeyframe{end, duration}});
}

struct KeyframePlayerTest : testing::Test {
    test::HandFrames frames;
    AnimationDriver driver{frames};
    int changes = 0;
    KeyframePlayer player{driver, {ramp(1, 2, 0.5)}, [this] { ++changes; }};
};

TEST_F(KeyframePlayerTest, RestsAtTheStartOfItsTrack) {
    EXPECT_EQ(player.value(), 1);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(KeyframePlayerTest, PlaysEachTimeItsCounterIncreasesButNotAtTheFirst) {
    player.setCounter(5);
    EXPECT_FALSE(player.isPlaying());
    player.setCounter(5);
    EXPECT_FALSE(player.isPlaying());
    player.setCounter(3);
    EXPECT_FALSE(player.isPlaying());
    player.setCounter(4);
    EXPECT_TRUE(player.isPlaying());
    frames.advance(0.25);
    EXPECT_NEAR(player.value(), 1.5, exact);
}

TEST_F(KeyframePlayerTest, PlaysFromTheStartAgainWhenTheCounterIncreasesMeanwhile) {
    player.setCounter(0);
    player.setCounter(1);
    frames.advance(0.4);
    player.setCounter(2);
    EXPECT_EQ(player.value(), 1);
    frames.advance(0.4);
    EXPECT_NEAR(player.value(), 1.8, exact);
    frames.advance(0.11);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(frames.starts(), 1);
}

TEST_F(KeyframePlayerTest, TellsOfEachFrameAndOfItsEndAndThenSleeps) {
    player.play();
    frames.advance(0.49);
    EXPECT_EQ(changes, frames.frames());
    EXPECT_TRUE(player.isPlaying());
    frames.advance(0.02);
    EXPECT_EQ(changes, frames.frames());
    EXPECT_EQ(player.value(), 1);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(KeyframePlayerTest, HoldsTheEndOfATrackUntilTheLongestIsOver) {
    KeyframePlayer several(driver, {ramp(0, -40, 1), ramp(0.8, 1, 0.5)});
    several.play();
    frames.advance(0.9);
    EXPECT_NEAR(several.value(0), -36, exact);
    EXPECT_EQ(several.value(1), 1);
    frames.advance(0.11);
    EXPECT_EQ(several.value(0), 0);
    EXPECT_EQ(several.value(1), 0.8);
}

TEST_F(KeyframePlayerTest, PlaysOtherTracksWhenItIsGivenThem) {
    player.play();
    frames.advance(0.4);
    player.play({ramp(1, 0.5, 1)});
    EXPECT_EQ(player.value(), 1);
    frames.advance(0.5);
    EXPECT_NEAR(player.value(), 0.75, exact);
}

TEST_F(KeyframePlayerTest, EndsAtOnceWhenItIsFinished) {
    player.play();
    frames.advance(0.2);
    changes = 0;
    player.finish();
    player.finish();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(player.value(), 1);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(KeyframePlayerTest, IsOverAfterAHugeStepOfTheClock) {
    player.play();
    frames.jumpTo(1e12);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(KeyframePlayerTest, DoesNotPlayWithReducedMotion) {
    driver.setSettings({true, 1});
    player.setCounter(0);
    player.setCounter(1);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(frames.starts(), 0);
    driver.setSettings({false, 1});
    player.setCounter(1);
    EXPECT_FALSE(player.isPlaying());
}

TEST_F(KeyframePlayerTest, EndsWhenReducedMotionIsSwitchedOn) {
    player.play();
    frames.advance(0.2);
    driver.setSettings({true, 1});
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(player.value(), 1);
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(KeyframePlayerTest, DoesNotPlayWhatTakesNoTime) {
    KeyframePlayer empty(driver, {});
    empty.play();
    KeyframePlayer jump(driver, {KeyframeTrack(0, {MoveKeyframe{1}})});
    jump.play();
    EXPECT_FALSE(empty.isPlaying() || jump.isPlaying());
    EXPECT_FALSE(driver.isAwake());
    player.play();
    player.play({});
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(KeyframePlayerTest, MayBeDestroyedByItsOwnCallbackInAnyFrame) {
    for (const double moment : {0.1, 0.6}) {
        std::unique_ptr<KeyframePlayer> doomed;
        doomed = std::make_unique<KeyframePlayer>(driver, KeyframePlayer::Tracks{ramp(0, 1, 0.5)},
                                                  [&doomed] { doomed.reset(); });
        doomed->play();
        frames.jumpTo(frames.mediaTime() + moment);
        EXPECT_EQ(doomed, nullptr);
        EXPECT_FALSE(driver.isAwake());
    }
}

} // namespace
} // namespace tolvar
