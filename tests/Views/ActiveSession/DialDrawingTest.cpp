#include "Views/ActiveSession/DialDrawing.h"

#include "Views/Theme/Instrument.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tolvar::test {
namespace {

constexpr double middle = DialMeasures::pictureSize / 2.0;

/// The colour `radius` points from the middle, `turn` of the way round from twelve o'clock.
QColor at(const QImage& image, double radius, double turn) {
    const double angle = 2 * std::numbers::pi * turn;
    const double scale = image.devicePixelRatio();
    return image.pixelColor(static_cast<int>((middle + radius * std::sin(angle)) * scale),
                            static_cast<int>((middle - radius * std::cos(angle)) * scale));
}

/// What is there of the arc, not counting its shadow: its red.
bool isLit(const QImage& image, double turn) {
    return at(image, DialMeasures::radius, turn).red() > 150;
}

double shadowOf(double progress) {
    const QImage arc = dialArc(progress, 2).toImage();
    // Just before twelve o'clock, behind the round end.
    const double turn = 1 - (DialMeasures::arcWidth / 2 + 2) / arcLength(1);
    return at(arc, DialMeasures::radius, turn).alphaF();
}

TEST(DialArc, CastsAShadowThatGrowsUntilItIsAsLongAsItIsWide) {
    const double asWide = DialMeasures::arcWidth / (2 * std::numbers::pi * DialMeasures::radius);
    EXPECT_EQ(arcShadowStrength(0), 0);
    EXPECT_NEAR(arcShadowStrength(asWide / 2), 0.5, 1e-12);
    EXPECT_NEAR(arcShadowStrength(asWide), 1, 1e-12);
    EXPECT_EQ(arcShadowStrength(1), 1);
    EXPECT_EQ(arcShadowStrength(-0.1), 0);
    EXPECT_GT(shadowOf(0.5), 0.1);
    EXPECT_LT(shadowOf(asWide / 10), shadowOf(asWide) / 2);
}

TEST(DialArc, GrowsClockwiseFromTwelve) {
    const QImage quarter = dialArc(0.25, 1).toImage();
    EXPECT_TRUE(isLit(quarter, 0.01));
    EXPECT_TRUE(isLit(quarter, 0.24));
    EXPECT_FALSE(isLit(quarter, 0.3));
    EXPECT_FALSE(isLit(quarter, 0.95));
}

TEST(DialArc, IsNothingAtTheBeginningAndAllOfTheRingAtTheEnd) {
    QImage none = dialArc(0, 1).toImage().convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(none.pixelColor(static_cast<int>(middle), 15).alpha(), 0);
    for (const double beyond : {1.0, 1.4}) {
        const QImage whole = dialArc(beyond, 1).toImage();
        for (int part = 0; part < 24; ++part)
            EXPECT_TRUE(isLit(whole, part / 24.0)) << part;
    }
}

TEST(DialArc, ComesOutOfTheTrackLittleByLittle) {
    const auto top = [](double length) {
        return at(dialArc(length / arcLength(1), 1).toImage(), DialMeasures::radius, 0).alphaF();
    };
    EXPECT_NEAR(top(shortestArc / 2), 0.5, 0.02);
    EXPECT_NEAR(top(shortestArc), 1, 0.01);
}

TEST(DialArc, HasRoundEndsBeyondItsLength) {
    const QImage quarter = dialArc(0.25, 2).toImage();
    const double end = (DialMeasures::arcWidth / 2 - 1.5) / arcLength(1);
    EXPECT_TRUE(isLit(quarter, 0.25 + end));
    EXPECT_LT(at(quarter, DialMeasures::radius + DialMeasures::arcWidth / 2 - 1, 0.25 + end).red(),
              100)
        << "but not at their corners";
}

TEST(DialArc, CatchesTheLightOnItsUpperEdge) {
    const QImage whole = dialArc(1, 2).toImage();
    const double outer = DialMeasures::radius + DialMeasures::arcWidth / 2;
    EXPECT_GT(at(whole, outer - 0.6, 0).blue(), at(whole, DialMeasures::radius, 0).blue() + 40);
}

TEST(DialArc, ChangesOnlyWhereItsEndMoves) {
    const QImage before = dialArc(0.3, 1).toImage().convertToFormat(QImage::Format_ARGB32);
    const QImage after = dialArc(0.34, 1).toImage().convertToFormat(QImage::Format_ARGB32);
    const QRectF changed = arcChange(0.3, 0.34);
    EXPECT_LT(changed.width() * changed.height(), before.width() * before.height() / 10.0);
    int differing = 0;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x)
            // The same circle, cut into other curves: less than is seen.
            if (std::abs(qAlpha(before.pixel(x, y)) - qAlpha(after.pixel(x, y))) > 12) {
                ++differing;
                ASSERT_TRUE(changed.contains(x + 0.5, y + 0.5)) << x << ", " << y;
            }
    EXPECT_GT(differing, 100);
}

TEST(DialPlate, IsAWellWithATrackAndAHairline) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        const QImage plate = dialPlate(scale).toImage();
        EXPECT_EQ(at(plate, DialMeasures::radius, 0.25), QColor(25, 26, 30)) << scale;
        EXPECT_EQ(at(plate, 101.5, 0.125), QColor(7, 8, 10)) << scale;
        EXPECT_EQ(at(plate, 84.5, 0.125), QColor(7, 8, 10)) << scale;
        EXPECT_EQ(at(plate, 60, 0.25).alpha(), 0) << "nothing within";
    }
    const QColor hairline = at(dialPlate(4).toImage(), 86.75, 0.25);
    EXPECT_NEAR(hairline.red(), (25 + 36) / 2.0, 2);
    EXPECT_NEAR(hairline.blue(), (30 + 55) / 2.0, 2);
}

TEST(DialPlate, HasRoomAroundIt) {
    const QImage plate = dialPlate(1).toImage();
    for (int i = 0; i < plate.width(); ++i)
        ASSERT_EQ(plate.pixelColor(i, 0).alpha() + plate.pixelColor(0, i).alpha(), 0) << i;
}

} // namespace
} // namespace tolvar::test
