#include "Views/Theme/PixelGrid.h"

#include "Views/Theme/Ink.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

constexpr QSize points(20, 20);

TEST(PixelGrid, IsWhatTheDeviceMakesOfAPainterThatOnlyMoves) {
    painted(points, 1.5, [](QPainter& painter) {
        painter.translate(2, 4);
        const auto transform = pixelTransform(painter);
        ASSERT_TRUE(transform);
        EXPECT_EQ(transform->map(QPointF(1, 1)), QPointF(4.5, 7.5));
    });
}

TEST(PixelGrid, IsNoHelpToAPainterThatTurnsOrChangesSizes) {
    painted(points, 2, [](QPainter& painter) {
        painter.scale(0.975, 0.975);
        EXPECT_FALSE(pixelTransform(painter));
        painter.resetTransform();
        painter.scale(1, -1);
        EXPECT_FALSE(pixelTransform(painter));
        painter.resetTransform();
        painter.rotate(90);
        EXPECT_FALSE(pixelTransform(painter));
    });
}

TEST(PixelGrid, LetsAPainterDrawInPixelsForAWhile) {
    const QImage picture = painted(points, 1.25, [](QPainter& painter) {
        painter.translate(3.3, 0);
        const QTransform before = painter.worldTransform();
        {
            const PixelPainting pixels(painter, *pixelTransform(painter));
            painter.fillRect(QRect(4, 5, 2, 1), Qt::black);
        }
        EXPECT_EQ(painter.worldTransform(), before);
    });
    EXPECT_EQ(inkIn(picture), 2);
    EXPECT_EQ(inkIn(picture, {4, 5, 2, 1}), 2);
}

} // namespace
} // namespace tolvar::test
