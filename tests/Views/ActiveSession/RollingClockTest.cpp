#include "Views/ActiveSession/RollingClock.h"

#include "Motion/AnimationDriver.h"
#include "Support/HandFrames.h"
#include "Views/Paint/ClockText.h"
#include "Views/Theme/Instrument.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Direction = RollingClock::Direction;

class RollingClockTest : public testing::Test {
protected:
    static constexpr QPointF center{100, 40};
    static constexpr double room = 150;

    QImage picture() const {
        QImage image(200, 80, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        clock.paint(painter, center, Qt::white);
        return image;
    }
    static QImage pictureOf(const QString& text) {
        RollingClockTest fresh;
        fresh.clock.show(text);
        return fresh.picture();
    }
    /// Columns in which two pictures differ: the first and the last, seen from the middle.
    static std::pair<int, int> difference(const QImage& one, const QImage& other) {
        std::pair<int, int> columns{1000, -1000};
        for (int x = 0; x < one.width(); ++x)
            for (int y = 0; y < one.height(); ++y)
                if (one.pixel(x, y) != other.pixel(x, y))
                    columns = {std::min(columns.first, x - 100), std::max(columns.second, x - 100)};
        return columns;
    }
    /// The middle of the light between two columns, as a height; and how much light there is.
    static std::pair<double, double> light(const QImage& image, int left, int right) {
        double sum = 0;
        double weighted = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = left; x < right; ++x) {
                sum += qGray(image.pixel(x, y));
                weighted += qGray(image.pixel(x, y)) * (y + 0.5);
            }
        return {weighted / sum, sum};
    }

    void TestBody() override {}

    HandFrames frames;
    AnimationDriver driver{frames};
    QFont font = Instrument::font(42, QFont::Medium, -0.84);
    QRectF changed;
    RollingClock clock{driver, font, room, [this](const QRectF& area) { changed |= area; }};
};

TEST_F(RollingClockTest, StandsAtOnceWhenItIsShown) {
    clock.show(u"25:00"_s);
    EXPECT_FALSE(frames.isRunning());
    EXPECT_FALSE(clock.isRolling());
    EXPECT_EQ(clock.text(), u"25:00"_s);
}

TEST_F(RollingClockTest, MovesNoDigitWhenAnotherChanges) {
    clock.show(u"11:10"_s);
    const QImage narrow = picture();
    const auto [left, right] = difference(narrow, pictureOf(u"11:18"_s));
    const double cell = Paint::clockCell(u'8', font);
    EXPECT_GE(left, std::floor(Paint::clockWidth(u"11:10"_s, font) / 2 - cell) - 1);
    EXPECT_LT(left, right);
}

TEST_F(RollingClockTest, RollsOnlyWhatChanges) {
    clock.show(u"12:24"_s);
    const QImage before = picture();
    changed = {};
    clock.roll(u"12:23"_s, Direction::down);
    frames.advance(0.1);
    const double half = Paint::clockWidth(u"12:24"_s, font) / 2;
    const double cell = Paint::clockCell(u'4', font);
    EXPECT_NEAR(changed.width(), cell, 0.01) << "one cell is drawn anew";
    EXPECT_NEAR(changed.left(), half - cell + font.letterSpacing(), 0.01);
    const auto [left, right] = difference(before, picture());
    EXPECT_GE(left, std::floor(changed.left()) - 1);
    EXPECT_LE(right, std::ceil(changed.right()) + 1);
    frames.advance(5);
    EXPECT_FALSE(frames.isRunning());
    EXPECT_EQ(picture(), pictureOf(u"12:23"_s));
}

TEST_F(RollingClockTest, KnowsWhatChangesAlsoWhenItIsShrunk) {
    clock.show(u"10:59:59"_s);
    const QImage before = picture();
    changed = {};
    clock.roll(u"10:59:58"_s, Direction::down);
    frames.advance(5);
    const auto [left, right] = difference(before, picture());
    EXPECT_GE(left, std::floor(changed.left()) - 1);
    EXPECT_LE(right, std::ceil(changed.right()));
    EXPECT_LT(changed.width(), 30);
}

TEST_F(RollingClockTest, LetsDigitsFallWhileItCountsDown) {
    for (const auto direction : {Direction::down, Direction::up}) {
        clock.show(u"00:08"_s);
        clock.roll(u"00:00"_s, direction);
        frames.advance(0.04);
        const double early = light(picture(), 134, 160).first;
        const double middle = light(pictureOf(u"00:08"_s), 134, 160).first;
        if (direction == Direction::down)
            EXPECT_GT(early, middle + 1) << "the old one falls first";
        else
            EXPECT_LT(early, middle - 1);
        clock.finish();
    }
}

TEST_F(RollingClockTest, FadesOneIntoTheOther) {
    clock.show(u"00:08"_s);
    const double full = light(picture(), 134, 160).second;
    clock.roll(u"00:00"_s, Direction::down);
    double least = full;
    for (int frame = 0; frame < 30; ++frame) {
        frames.advance(1 / HandFrames::rate);
        least = std::min(least, light(picture(), 134, 160).second);
    }
    EXPECT_LT(least, full * 0.9);
    EXPECT_GT(least, full * 0.3) << "never without a digit";
}

TEST_F(RollingClockTest, GoesOnFromWhereItIsWhenItIsChangedInMidRoll) {
    clock.show(u"00:08"_s);
    clock.roll(u"00:07"_s, Direction::down);
    frames.advance(0.08);
    const QImage before = picture();
    clock.roll(u"05:07"_s, Direction::up);
    clock.roll(u"05:06"_s, Direction::down);
    EXPECT_EQ(picture(), before) << "nothing jumps";
    frames.advance(5);
    EXPECT_EQ(picture(), pictureOf(u"05:06"_s));
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(RollingClockTest, MakesRoomForTheHour) {
    clock.show(u"59:59"_s);
    const QImage before = picture();
    clock.roll(u"1:00:00"_s, Direction::up);
    EXPECT_EQ(picture(), before) << "nothing jumps";
    frames.advance(5);
    EXPECT_EQ(picture(), pictureOf(u"1:00:00"_s));
    clock.roll(u"59:59"_s, Direction::down);
    frames.advance(5);
    EXPECT_EQ(picture(), before);
}

TEST_F(RollingClockTest, ShrinksToItsRoomButNotBelowSeventyPercent) {
    const auto widthOf = [](const QString& text) {
        const auto [left, right] = difference(pictureOf(text), pictureOf({}));
        return right - left + 1;
    };
    EXPECT_LE(widthOf(u"10:00:00"_s), room);
    EXPECT_GT(widthOf(u"10:00:00"_s), room - 8);
    EXPECT_GT(widthOf(u"100000:00:00"_s), room);
}

TEST_F(RollingClockTest, HasItsColonInTheMiddleOfTheDigits) {
    const QImage image = pictureOf(u"00:00"_s);
    EXPECT_NEAR(light(image, 96, 104).first, light(image, 60, 80).first, 0.6);
}

TEST_F(RollingClockTest, JustChangesWithReducedMotion) {
    driver.setSettings({.isReduced = true});
    clock.show(u"59:59"_s);
    clock.roll(u"1:00:00"_s, Direction::up);
    EXPECT_FALSE(frames.isRunning());
    EXPECT_EQ(picture(), pictureOf(u"1:00:00"_s));
}

} // namespace
} // namespace tolvar::test
