#include "Support/HandFrames.h"

#include <gtest/gtest.h>

#include <vector>

namespace tolvar::test {
namespace {

TEST(HandFrames, MakesSixtyFramesASecondAndOneAtTheEnd) {
    HandFrames frames;
    std::vector<double> moments;
    const double begin = frames.mediaTime();
    frames.start([&](double mediaTime) { moments.push_back(mediaTime - begin); });
    frames.advance(0.04);
    ASSERT_EQ(moments.size(), 3u);
    EXPECT_NEAR(moments[0], 1.0 / 60, 1e-9);
    EXPECT_NEAR(moments[1], 2.0 / 60, 1e-9);
    EXPECT_NEAR(moments[2], 0.04, 1e-9);
}

TEST(HandFrames, LetsTimePassWithoutFramesWhileNobodyAsksForThem) {
    HandFrames frames;
    const double begin = frames.mediaTime();
    frames.advance(2);
    EXPECT_NEAR(frames.mediaTime() - begin, 2, 1e-9);
    EXPECT_EQ(frames.frames(), 0);
}

TEST(HandFrames, StopsWithinAFrame) {
    HandFrames frames;
    frames.start([&](double) { frames.stop(); });
    frames.advance(1);
    EXPECT_EQ(frames.frames(), 1);
    EXPECT_EQ(frames.starts(), 1);
    EXPECT_EQ(frames.stops(), 1);
}

} // namespace
} // namespace tolvar::test
