#include "Motion/TimerFrameSource.h"

#include <QEventLoop>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace tolvar {
namespace {

/// The media times of so many frames, made by the event loop.
std::vector<double> framesOf(TimerFrameSource& source, std::size_t count) {
    std::vector<double> moments;
    QEventLoop loop;
    source.start([&](double mediaTime) {
        moments.push_back(mediaTime);
        if (moments.size() == count) {
            source.stop();
            loop.quit();
        }
    });
    EXPECT_TRUE(moments.empty());
    loop.exec();
    return moments;
}

TEST(TimerFrameSource, MakesFramesOfRisingMediaTimeNoFasterThanItsRate) {
    TimerFrameSource source(240);
    const double begin = source.mediaTime();
    const auto moments = framesOf(source, 12);
    EXPECT_TRUE(std::is_sorted(moments.begin(), moments.end()));
    // A millisecond is what the timers of the event loop are exact to.
    EXPECT_GE(moments.back() - begin, 12 / 240.0 - 0.002);
    EXPECT_GE(source.mediaTime(), moments.back());
}

TEST(TimerFrameSource, MakesFramesAgainAfterItWasStopped) {
    TimerFrameSource source(240);
    const double first = framesOf(source, 2).back();
    EXPECT_GT(framesOf(source, 2).front(), first);
}

TEST(TimerFrameSource, MakesNoFrameOnceItIsStopped) {
    TimerFrameSource stopped(240);
    int made = 0;
    stopped.start([&](double) { ++made; });
    stopped.stop();
    TimerFrameSource running(240);
    framesOf(running, 5);
    EXPECT_EQ(made, 0);
}

TEST(TimerFrameSource, MayBeDestroyedByItsOwnFrame) {
    auto source = std::make_unique<TimerFrameSource>(240);
    QEventLoop loop;
    source->start([&](double) {
        source.reset();
        loop.quit();
    });
    loop.exec();
    EXPECT_EQ(source, nullptr);
}

TEST(TimerFrameSource, MayBeStartedAnewByItsOwnFrame) {
    TimerFrameSource source(240);
    QEventLoop loop;
    std::string said;
    // The captured text is read after its owner was replaced.
    const std::string farewell = "replaced, and long enough to be kept apart";
    source.start([&, farewell](double) {
        source.stop();
        source.start([&](double) { loop.quit(); });
        said = farewell;
    });
    loop.exec();
    EXPECT_EQ(said, farewell);
}

TEST(TimerFrameSource, BringsItsRateIntoTheRange) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    TimerFrameSource source(144);
    EXPECT_EQ(source.rate(), 144);
    source.setRate(1e9);
    EXPECT_EQ(source.rate(), TimerFrameSource::fastestRate);
    source.setRate(-5);
    EXPECT_EQ(source.rate(), TimerFrameSource::slowestRate);
    for (const double bad : {infinite, -infinite, std::numeric_limits<double>::quiet_NaN()}) {
        source.setRate(bad);
        EXPECT_EQ(source.rate(), TimerFrameSource::defaultRate);
    }
}

} // namespace
} // namespace tolvar
