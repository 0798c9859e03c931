#include "Views/Paint/ClockText.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QImage>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

QFont font() {
    return Instrument::font(11, QFont::Normal, 0.44);
}

QImage drawn(const QString& content, Qt::Alignment alignment = Qt::AlignLeft) {
    QImage image(160, 30, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    Paint::clockText(painter, {10, 5, 140, 20}, content, font(), Qt::white, alignment);
    return image;
}

/// The first and the last column with ink.
std::pair<int, int> ink(const QImage& image) {
    std::pair<int, int> columns{image.width(), 0};
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (qGray(image.pixel(x, y)) > 40)
                columns = {std::min(columns.first, x), std::max(columns.second, x)};
    return columns;
}

TEST(ClockText, GivesAllDigitsTheSameWidth) {
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
        EXPECT_EQ(Paint::clockCell(digit, font()), Paint::clockCell(u'0', font()));
        EXPECT_LE(Paint::textWidth(QString(digit), font()), Paint::clockCell(digit, font()));
    }
    EXPECT_LT(Paint::clockCell(u':', font()), Paint::clockCell(u'0', font()));
    EXPECT_EQ(Paint::clockWidth(u"Paused for 1:11"_s, font()),
              Paint::clockWidth(u"Paused for 1:58"_s, font()));
}

TEST(ClockText, EndsWithoutTracking) {
    const double cells = 2 * Paint::clockCell(u'0', font());
    EXPECT_DOUBLE_EQ(Paint::clockWidth(u"00"_s, font()), cells - font().letterSpacing());
    EXPECT_EQ(Paint::clockWidth({}, font()), 0);
}

TEST(ClockText, SetsLettersAsEver) {
    EXPECT_DOUBLE_EQ(Paint::clockWidth(u"AVAVA To"_s, font()),
                     Paint::textWidth(u"AVAVA To"_s, font()));
    EXPECT_EQ(drawn(u"You are"_s), [] {
        QImage image(160, 30, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        Paint::text(painter, {10, 5, 140, 20}, u"You are"_s, font(), Qt::white);
        return image;
    }());
}

TEST(ClockText, MovesNothingWhenADigitChanges) {
    const QImage one = drawn(u"Paused for 1:11"_s, Qt::AlignHCenter);
    const QImage other = drawn(u"Paused for 1:18"_s, Qt::AlignHCenter);
    int first = one.width();
    for (int x = one.width() - 1; x >= 0; --x)
        for (int y = 0; y < one.height(); ++y)
            if (one.pixel(x, y) != other.pixel(x, y))
                first = x;
    EXPECT_GT(first, ink(other).second - Paint::clockCell(u'8', font()) - 1);
    EXPECT_LT(first, one.width());
}

TEST(ClockText, IsAlignedByItsCells) {
    const double width = Paint::clockWidth(u"00:00"_s, font());
    EXPECT_NEAR(ink(drawn(u"00:00"_s)).first, 10, 2);
    const auto [left, right] = ink(drawn(u"00:00"_s, Qt::AlignHCenter));
    EXPECT_NEAR((left + right + 1) / 2.0, 80, 1);
    EXPECT_NEAR(right - left, width, 3);
    EXPECT_NEAR(ink(drawn(u"00:00"_s, Qt::AlignRight)).second, 149, 2);
}

} // namespace
} // namespace tolvar::test
