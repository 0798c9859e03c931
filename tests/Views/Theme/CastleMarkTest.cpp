#include "Views/Theme/CastleMark.h"

#include "Views/Theme/Ink.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

QImage castle(qreal points, qreal scale) {
    const int side = static_cast<int>(points) + 4;
    return painted({side, side}, scale, [&](QPainter& painter) {
        paintCastleMark(painter, QRectF(2, 2, points, points), Qt::black);
    });
}

bool isClosed(const QPainterPath& path) {
    const auto polygons = path.toSubpathPolygons();
    return std::all_of(polygons.begin(), polygons.end(),
                       [](const QPolygonF& polygon) { return polygon.isClosed(); });
}

class CastleMarkAtEverySize : public testing::TestWithParam<qreal> {};

TEST_P(CastleMarkAtEverySize, IsOneClosedPathInsideItsBox) {
    const QRectF box(3, 5, GetParam(), GetParam());
    const QPainterPath path = castleMark(box);
    EXPECT_TRUE(isClosed(path));
    EXPECT_TRUE(box.contains(path.boundingRect()));
    EXPECT_GT(path.boundingRect().width(), 0.9 * box.width());
    EXPECT_GT(path.boundingRect().height(), 0.85 * box.height());
}

/// The largest difference of coverage between a picture and its mirror image, of 255.
int asymmetry(const QImage& picture) {
    int largest = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb mirrored = picture.pixel(picture.width() - 1 - x, y);
            largest = std::max(largest, std::abs(qAlpha(picture.pixel(x, y)) - qAlpha(mirrored)));
        }
    return largest;
}

TEST_P(CastleMarkAtEverySize, IsItsOwnMirrorImageButForRounding) {
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
        const int side = qRound(GetParam() * scale);
        const QImage picture = painted({side, side}, 1, [&](QPainter& painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.fillPath(castleMarkOnPixels({0, 0, qreal(side), qreal(side)}, scale),
                             Qt::black);
        });
        EXPECT_LE(asymmetry(picture), 16) << "at scale " << scale;
    }
}

TEST_P(CastleMarkAtEverySize, HasAGateInItsMiddleAndBattlementsAbove) {
    const QRectF box(0, 0, GetParam(), GetParam());
    const QPainterPath path = castleMark(box);
    const auto covers = [&](qreal x, qreal y) {
        return path.contains(QPointF(x * GetParam(), y * GetParam()));
    };
    EXPECT_FALSE(covers(0.5, 0.85)) << "the gate";
    EXPECT_TRUE(covers(0.5, 0.5)) << "the wall above it";
    EXPECT_FALSE(covers(0.5, 0.2)) << "the sky above the wall";
    EXPECT_TRUE(covers(0.08, 0.1)) << "the left tower's outer merlon";
    EXPECT_FALSE(covers(0.18, 0.1)) << "the gap between its merlons";
    EXPECT_TRUE(covers(0.28, 0.1)) << "its inner merlon";
}

TEST_P(CastleMarkAtEverySize, IsCrispButForItsArchAtEveryScale) {
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0})
        EXPECT_GT(crispness(castle(GetParam(), scale)), 0.9) << "at scale " << scale;
}

INSTANTIATE_TEST_SUITE_P(Sizes, CastleMarkAtEverySize, testing::Values(15, 22, 24, 32, 40));

TEST(CastleMark, FillsTheMiddleSquareOfALongBox) {
    const QRectF square(20, 0, 40, 40);
    EXPECT_EQ(castleMark(QRectF(0, 0, 80, 40)), castleMark(square));
}

TEST(CastleMark, HasArrowSlitsOnlyWhereThereIsRoomForThem) {
    EXPECT_EQ(castleMark({0, 0, 40, 40}).toSubpathPolygons().size(), 3);
    EXPECT_EQ(castleMark({0, 0, 15, 15}).toSubpathPolygons().size(), 1);
    EXPECT_EQ(castleMarkOnPixels({0, 0, 30, 30}, 2).toSubpathPolygons().size(), 1);
}

TEST(CastleMark, IsDrawnInExactlyTheColourAskedFor) {
    const QColor amber(255, 176, 32);
    const QImage picture = painted({40, 40}, 1, [&](QPainter& painter) {
        paintCastleMark(painter, QRectF(0, 0, 40, 40), amber);
    });
    EXPECT_EQ(picture.pixelColor(20, 20), amber);
}

TEST(CastleMark, IsDrawnSmoothlyWhereItIsWhileItChangesItsSize) {
    const QImage picture = painted({40, 40}, 1, [](QPainter& painter) {
        painter.translate(20, 20);
        painter.scale(0.5, 0.5);
        paintCastleMark(painter, QRectF(-20, -20, 40, 40), Qt::black);
    });
    EXPECT_GT(inkIn(picture, {10, 10, 20, 20}), 150);
    EXPECT_EQ(inkIn(picture), inkIn(picture, {10, 10, 20, 20}));
}

TEST(CastleMark, IsNothingInAnEmptyBox) {
    const QImage picture = painted({40, 40}, 1, [](QPainter& painter) {
        paintCastleMark(painter, QRectF(10, 10, 0, 20), Qt::black);
    });
    EXPECT_EQ(inkIn(picture), 0);
}

} // namespace
} // namespace tolvar::test
