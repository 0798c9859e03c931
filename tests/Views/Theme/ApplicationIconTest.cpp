#include "Views/Theme/Ink.h"

#include <QColor>
#include <QFile>
#include <QSvgRenderer>

#include <gtest/gtest.h>

namespace tolvar::test {

using namespace Qt::StringLiterals;

namespace {

const QString data = QStringLiteral(TOLVAR_DATA);

QString iconFile(int size) {
    return data + u"/icons/hicolor/%1x%1/apps/app.tolvar.Tolvar.png"_s.arg(size);
}

/// What the picture of a size was rendered from.
QString drawingFile(int size) {
    const QString own = data + u"/icons/sources/%1.svg"_s.arg(size);
    return QFile::exists(own) ? own
                              : data + u"/icons/hicolor/scalable/apps/app.tolvar.Tolvar.svg"_s;
}

QImage rendered(const QString& drawing, int size) {
    QSvgRenderer renderer(drawing);
    return painted({size, size}, 1,
                   [&](QPainter& painter) { renderer.render(&painter, QRectF(0, 0, size, size)); });
}

double meanDifference(const QImage& left, const QImage& right) {
    double sum = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QRgb one = left.pixel(x, y);
            const QRgb other = right.pixel(x, y);
            sum += std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
                   std::abs(qBlue(one) - qBlue(other)) + std::abs(qAlpha(one) - qAlpha(other));
        }
    return sum / 4 / (left.width() * left.height());
}

bool isAmber(QRgb pixel) {
    const QColor color(pixel);
    return qAlpha(pixel) == 255 && color.hsvSaturation() > 160 && color.value() > 200 &&
           color.hsvHue() > 30 && color.hsvHue() < 50;
}

class ApplicationIcon : public testing::TestWithParam<int> {};

TEST_P(ApplicationIcon, IsThereInItsSizeAndUpToDateWithItsDrawing) {
    const QImage icon =
        QImage(iconFile(GetParam())).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    ASSERT_EQ(icon.size(), QSize(GetParam(), GetParam()));
    EXPECT_LT(meanDifference(icon, rendered(drawingFile(GetParam()), GetParam())), 4)
        << "run data/icons/render";
}

TEST_P(ApplicationIcon, IsAnAmberCastleOnADarkPlateWithRoundCorners) {
    const QImage icon(iconFile(GetParam()));
    ASSERT_FALSE(icon.isNull());
    const int side = GetParam();
    for (const QPoint corner : {QPoint(0, 0), {side - 1, 0}, {0, side - 1}, {side - 1, side - 1}})
        EXPECT_LT(qAlpha(icon.pixel(corner)), 128);
    EXPECT_TRUE(isAmber(icon.pixel(side / 2, side * 53 / 100))) << "the wall";
    EXPECT_LT(QColor(icon.pixel(side / 2, side * 20 / 100)).value(), 80) << "the sky";
    int amber = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            amber += isAmber(icon.pixel(x, y)) ? 1 : 0;
    EXPECT_GT(amber, 0.15 * side * side);
    EXPECT_LT(amber, 0.4 * side * side);
}

INSTANTIATE_TEST_SUITE_P(Sizes, ApplicationIcon,
                         testing::Values(16, 22, 24, 32, 48, 64, 128, 256, 512));

class SmallApplicationIcon : public testing::TestWithParam<int> {};

TEST_P(SmallApplicationIcon, HasACastleOnWholePixels) {
    const int side = GetParam();
    const QImage icon(iconFile(side));
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const QColor color = icon.pixelColor(x, y);
            const bool isBetween =
                color.alpha() == 255 && color.hsvSaturation() > 120 && color.value() > 70;
            EXPECT_EQ(isBetween, isAmber(icon.pixel(x, y))) << "at " << x << ", " << y;
        }
}

INSTANTIATE_TEST_SUITE_P(Sizes, SmallApplicationIcon, testing::Values(16, 22, 24, 32));

TEST(SymbolicApplicationIcon, IsOneSymmetricCastleOnWholePixels) {
    const QImage icon =
        rendered(data + u"/icons/hicolor/symbolic/apps/app.tolvar.Tolvar-symbolic.svg"_s, 16);
    EXPECT_EQ(icon, icon.mirrored(true, false));
    EXPECT_EQ(crispness(icon), 1);
    EXPECT_GT(inkIn(icon), 80);
}

TEST(ApplicationIconName, IsTheDesktopEntrysIcon) {
    QFile entry(data + u"/app.tolvar.Tolvar.desktop.in"_s);
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    EXPECT_TRUE(entry.readAll().contains("\nIcon=app.tolvar.Tolvar\n"));
}

} // namespace
} // namespace tolvar::test
