#include "Views/Paint/Paint.h"

#include "Views/Theme/Instrument.h"

#include <QImage>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

/// A picture of so many points, at a scale.
QImage drawn(double scale, const QSize& points, const std::function<void(QPainter&)>& draw) {
    QImage image((QSizeF(points) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Instrument::Palette::panel);
    QPainter painter(&image);
    draw(painter);
    return image;
}

class PaintAtScale : public testing::TestWithParam<double> {
protected:
    /// The colours down the middle of a bevel that stands at an odd place.
    std::vector<QColor> column(const Bevel& bevel) const {
        const QRectF rect(10.3, 10.4, 40, 30);
        const QImage image = drawn(GetParam(), {60, 50}, [&](QPainter& painter) {
            Paint::bevel(painter, rect, 7, bevel);
        });
        std::vector<QColor> colors;
        for (int y = 0; y < image.height(); ++y)
            if (const QColor color = image.pixelColor(image.width() / 2, y);
                color != Instrument::Palette::panel)
                colors.push_back(color);
        return colors;
    }
};

TEST_P(PaintAtScale, EdgesOfABevelAreWholePixelsOfTheirOwnColour) {
    const Bevel& bevel = Bevel::modeIndicator;
    const auto colors = column(bevel);
    const auto top = static_cast<std::size_t>(std::max(1.0, std::round(GetParam())));
    const auto bottom = static_cast<std::size_t>(std::max(1.0, std::round(2 * GetParam())));
    ASSERT_GT(colors.size(), top + bottom);
    for (std::size_t i = 0; i < top; ++i)
        EXPECT_EQ(colors[i], bevel.top) << "row " << i;
    EXPECT_NE(colors[top], bevel.top);
    for (std::size_t i = 0; i < bottom; ++i)
        EXPECT_EQ(colors[colors.size() - 1 - i], bevel.bottom) << "row " << i << " from below";
    EXPECT_NE(colors[colors.size() - 1 - bottom], bevel.bottom);
}

TEST_P(PaintAtScale, AFaceRunsFromItsTopToItsBottomColour) {
    const auto colors = column(Bevel::primary);
    const auto top = static_cast<std::size_t>(std::round(GetParam()));
    EXPECT_NEAR(colors[top].red(), Bevel::primary.face.front().color.red(), 4);
    EXPECT_NEAR(colors[top].blue(), Bevel::primary.face.front().color.blue(), 4);
    EXPECT_NEAR(colors[colors.size() / 2].green(), Bevel::primary.face[1].color.green(), 8);
}

TEST_P(PaintAtScale, ARuleIsOneLineOfWholePixels) {
    const QImage image = drawn(GetParam(), {20, 20}, [](QPainter& painter) {
        Paint::ruleBelow(painter, QRectF(0, 0, 20, 10.3), Qt::white);
    });
    int lines = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QColor color = image.pixelColor(3, y);
        EXPECT_TRUE(color == Instrument::Palette::panel || color == Qt::white) << "row " << y;
        lines += color == Qt::white ? 1 : 0;
    }
    EXPECT_EQ(lines, std::max(1.0, std::round(GetParam())));
}

TEST_P(PaintAtScale, TheFocusRingStandsOutsideOfTheRim) {
    const QRectF rim(10, 10, 30, 20);
    const QImage image = drawn(GetParam(), {50, 40},
                               [&](QPainter& painter) { Paint::focusRing(painter, rim, 6, 2); });
    const int middle = image.height() / 2;
    EXPECT_EQ(image.pixelColor(static_cast<int>(10 * GetParam()), middle),
              Instrument::Palette::panel);
    int lit = 0;
    for (int x = 0; x < static_cast<int>(std::floor(8 * GetParam())) + 2; ++x)
        lit += image.pixelColor(x, middle) == Instrument::Palette::amber ? 1 : 0;
    EXPECT_EQ(lit, std::max(1.0, std::round(GetParam())));
}

TEST_P(PaintAtScale, CapitalsStandInTheMiddleOfTheirPlace) {
    const QRectF place(5, 12.5, 30, 17);
    const QImage image = drawn(GetParam(), {40, 43}, [&](QPainter& painter) {
        Paint::text(painter, place, u"H"_s, Instrument::font(16), Qt::white);
    });
    int top = image.height();
    int bottom = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) > 120) {
                top = std::min(top, y);
                bottom = std::max(bottom, y + 1);
            }
    EXPECT_NEAR((top + bottom) / 2.0, place.center().y() * GetParam(), 1);
}

INSTANTIATE_TEST_SUITE_P(Scales, PaintAtScale, testing::Values(1.0, 1.25, 1.5, 2.0));

TEST(Paint, CutsALineThatDoesNotFit) {
    const QFont font = Instrument::font(12);
    const QString line = u"A very long goal that nobody could ever reach in time"_s;
    const QImage image = drawn(1, {120, 20}, [&](QPainter& painter) {
        Paint::text(painter, QRectF(0, 0, 80, 20), line, font, Qt::white);
    });
    for (int y = 0; y < 20; ++y)
        for (int x = 82; x < 120; ++x)
            ASSERT_EQ(image.pixelColor(x, y), Instrument::Palette::panel) << x << ", " << y;
}

TEST(Paint, LeavesNoMarkOnThePainter) {
    QImage image(50, 50, QImage::Format_RGB32);
    QPainter painter(&image);
    const QPen pen = painter.pen();
    Paint::bevel(painter, {5, 5, 30, 20}, 6, Bevel::key);
    Paint::hover(painter, {5, 5, 30, 20}, 6, Bevel::key, 1);
    Paint::focusRing(painter, {5, 5, 30, 20}, 6, 2);
    Paint::light(painter, {20, 20}, 6, Qt::red, 0.7, 5);
    Paint::text(painter, {0, 0, 40, 20}, u"x"_s, Instrument::font(12), Qt::white);
    EXPECT_EQ(painter.pen(), pen);
    EXPECT_EQ(painter.brush(), QBrush());
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

TEST(Paint, LightIsStrongestAtTheLampAndFallsOff) {
    const QImage image = drawn(2, {40, 40}, [](QPainter& painter) {
        Paint::light(painter, {20, 20}, 8, Instrument::Palette::amber, 0.7, 6);
    });
    EXPECT_EQ(image.pixelColor(40, 40), Instrument::Palette::amber);
    int last = 256;
    for (int x = 49; x < 62; ++x) {
        EXPECT_LE(image.pixelColor(x, 40).red(), last) << "at " << x;
        last = image.pixelColor(x, 40).red();
    }
    EXPECT_EQ(image.pixelColor(62, 40), Instrument::Palette::panel);
}

} // namespace
} // namespace tolvar::test
