#include "Views/StatusPill/StatusDrawing.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using namespace StatusDrawing;

constexpr double thickness = 24;
constexpr QColor castleInk(255, 0, 0);
constexpr QColor labelInk(0, 0, 255);

StatusItemContent countdown() {
    return {.label = u"24:59"_s, .isLabelHidden = false};
}

double openLength(const QString& label) {
    return std::ceil(2 + iconWidth(thickness) + 5 + labelWidth(label, thickness) + 2);
}

QImage drawn(const StatusItemContent& content, const QSize& size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter, content, size, {.castle = castleInk, .label = labelInk});
    return image;
}

/// The columns in which a colour is found: the first and the last.
std::pair<int, int> columns(const QImage& image, int (QColor::*part)() const) {
    int first = image.width();
    int last = -1;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if ((image.pixelColor(x, y).*part)() > 60 && image.pixelColor(x, y).alpha() > 60) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
    return {first, last};
}

TEST(StatusDrawing, HasACastleOfFifteenPointsInUsualPanels) {
    for (const double usual : {17.0, 22.0, 24.0, 30.0})
        EXPECT_EQ(iconWidth(usual), 15) << usual;
    EXPECT_EQ(iconWidth(16), 14);
    EXPECT_EQ(iconWidth(48), 24);
    EXPECT_EQ(labelFont(24).pixelSize(), 12);
    EXPECT_EQ(labelFont(60).pixelSize(), 24);
}

TEST(StatusDrawing, GivesEveryDigitTheSameWidth) {
    EXPECT_EQ(labelWidth(u"11:11"_s, thickness), labelWidth(u"48:00"_s, thickness));
    EXPECT_GT(labelWidth(u"11:11"_s, thickness), labelWidth(u"9:59"_s, thickness));
}

TEST(StatusDrawing, PutsTheBareCastleInTheMiddle) {
    EXPECT_EQ(iconPlace({}, {24, 24}), QRectF(4.5, 4.5, 15, 15));
    EXPECT_EQ(iconPlace({}, {60, 24}).center(), QPointF(30, 12));
}

TEST(StatusDrawing, PutsTheCastleAtTheBeginningWhenTheLabelIsThere) {
    EXPECT_EQ(iconPlace(countdown(), {openLength(u"24:59"_s), thickness}).left(), 2);
}

TEST(StatusDrawing, MovesTheCastleSteadilyWhileTheItemWidens) {
    EXPECT_EQ(iconPlace(countdown(), {24, 24}).left(), 4.5);
    double former = 4.5;
    for (int width = 25; width <= openLength(u"24:59"_s); ++width) {
        const double left = iconPlace(countdown(), QSizeF(width, 24)).left();
        EXPECT_LE(left, former);
        EXPECT_GE(left, 2);
        former = left;
    }
}

TEST(StatusDrawing, DrawsTheLabelBehindTheCastleAndWhollyInItsLength) {
    const int length = static_cast<int>(openLength(u"24:59"_s));
    const QImage image = drawn(countdown(), {length, 24});
    const auto castle = columns(image, &QColor::red);
    const auto label = columns(image, &QColor::blue);
    EXPECT_EQ(castle.first, 2);
    EXPECT_EQ(castle.second, 16);
    EXPECT_GE(label.first, 22);
    EXPECT_LE(label.second, length - 3);
    EXPECT_GE(label.second, length - 6);
}

TEST(StatusDrawing, CutsTheLabelOffWhereItDoesNotFit) {
    EXPECT_EQ(columns(drawn(countdown(), {24, 24}), &QColor::red).second, 19);
    EXPECT_EQ(columns(drawn({}, {60, 24}), &QColor::blue).second, -1);
}

TEST(StatusDrawing, FadesCastleAndLabel) {
    auto content = countdown();
    content.opacity = 0.3;
    const QImage image = drawn(content, {60, 24});
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ASSERT_LE(image.pixelColor(x, y).alpha(), 78);
    EXPECT_EQ(image.pixelColor(4, 12).alpha(), 76);
}

} // namespace
} // namespace tolvar
