#include "Views/Theme/Symbol.h"

#include "Views/Theme/Ink.h"
#include "Views/Theme/SymbolDrawing.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace tolvar::test {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array sizes{10.0, 12.0, 14.0, 17.0};
constexpr std::array scales{1.0, 1.25, 1.5, 2.0};
constexpr int air = 4;

/// The symbol in the middle of a picture with some air around its box.
QImage picture(Symbol symbol, qreal pointSize, qreal scale,
               SymbolWeight weight = SymbolWeight::regular, const QColor& color = Qt::black) {
    const QSizeF size = symbolSize(symbol, pointSize);
    const int width = static_cast<int>(std::ceil(size.width())) + 2 * air;
    const int height = static_cast<int>(std::ceil(size.height())) + 2 * air;
    return painted({width, height}, scale, [&](QPainter& painter) {
        paintSymbol(painter, symbol, {{air, air}, size}, color, weight);
    });
}

bool isFilled(Symbol symbol) {
    return symbolName(symbol).endsWith(".fill"_L1);
}

MATCHER_P(IsNear, tolerance, "") {
    return std::abs(std::get<0>(arg) - std::get<1>(arg)) <= tolerance;
}

class EverySymbol : public testing::TestWithParam<Symbol> {};

TEST_P(EverySymbol, HasADrawingOfTheCommonHand) {
    QFile file(u":/tolvar/Symbols/%1.svg"_s.arg(symbolName(GetParam())));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray svg = file.readAll();
    EXPECT_TRUE(svg.contains("stroke-width=\"1.75\" stroke-linecap=\"round\" "
                             "stroke-linejoin=\"round\""));
    EXPECT_EQ(svg.count("stroke-width"), 1) << "one width for all strokes";
    EXPECT_EQ(svg.contains("fill=\"none\" stroke=\"#000\""), !isFilled(GetParam()));
    EXPECT_EQ(SymbolDrawing::of(GetParam()).box.height(), SymbolDrawing::gridHeight);
}

TEST_P(EverySymbol, HasEvenlySpacedStemsWithinItsBox) {
    const SymbolDrawing& drawing = SymbolDrawing::of(GetParam());
    for (const auto* stems : {&drawing.stemsX, &drawing.stemsY}) {
        EXPECT_TRUE(std::is_sorted(stems->begin(), stems->end()));
        for (std::size_t i = 2; i < stems->size(); ++i)
            EXPECT_DOUBLE_EQ(stems->at(i) - stems->at(i - 1), stems->at(1) - stems->at(0));
    }
    for (const qreal x : drawing.stemsX)
        EXPECT_TRUE(drawing.box.contains(x, 12)) << x;
    for (const qreal y : drawing.stemsY)
        EXPECT_TRUE(drawing.box.contains(drawing.box.center().x(), y)) << y;
}

TEST_P(EverySymbol, LiesWithinItsBoxAtEverySizeScaleAndWeight) {
    for (const qreal size : sizes)
        for (const qreal scale : scales)
            for (const auto weight : {SymbolWeight::regular, SymbolWeight::bold}) {
                const QImage image = picture(GetParam(), size, scale, weight);
                const QSizeF box = symbolSize(GetParam(), size) * scale;
                const QRect pixels =
                    QRectF(QPointF(air, air) * scale, box).adjusted(-.5, -.5, .5, .5).toRect();
                const double inside = inkIn(image, pixels);
                EXPECT_GT(inside, 0.04 * box.width() * box.height());
                EXPECT_LT(inkIn(image) - inside, 0.5)
                    << "at " << size << " points and scale " << scale;
            }
}

TEST_P(EverySymbol, LeavesItsBoxsOutermostPixelsToAntialiasing) {
    for (const qreal size : sizes)
        for (const qreal scale : {1.0, 2.0}) {
            const int height = qRound(symbolSize(GetParam(), size).height() * scale);
            const QImage mask = SymbolDrawing::of(GetParam()).mask(height, 1.75);
            const QRect inner = mask.rect().adjusted(2, 2, -2, -2);
            EXPECT_LT(inkIn(mask) - inkIn(mask, inner), 0.25 * (mask.width() + mask.height()))
                << "at " << size << " points and scale " << scale;
        }
}

TEST_P(EverySymbol, IsExactlyTheAskedColourWhereItCoversAPixel) {
    const QColor amber(255, 176, 32);
    const QImage image = picture(GetParam(), 17, 2, SymbolWeight::bold, amber);
    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255) {
                ++covered;
                ASSERT_EQ(image.pixelColor(x, y), amber);
            }
    EXPECT_GT(covered, 20);
}

TEST_P(EverySymbol, GetsHeavierWithItsWeightIfItHasStrokes) {
    const bool hasStrokes = GetParam() != Symbol::xmarkCircleFill;
    double lighter = 0;
    for (const auto weight : {SymbolWeight::regular, SymbolWeight::medium, SymbolWeight::semibold,
                              SymbolWeight::bold}) {
        const double ink = inkIn(picture(GetParam(), 17, 2, weight));
        EXPECT_TRUE(lighter == 0 || (ink > lighter) == hasStrokes) << ink;
        lighter = ink;
    }
}

TEST_P(EverySymbol, LooksTheSameWhereverItsPixelsAreWhole) {
    const QSizeF size = symbolSize(GetParam(), 17);
    const auto at = [&](QPointF place) {
        return painted({40, 40}, 1, [&](QPainter& painter) {
            painter.translate(place);
            paintSymbol(painter, GetParam(), {{0, 0}, size}, Qt::black);
        });
    };
    const QImage here = at({4, 4});
    EXPECT_EQ(at({4.1, 3.9}), here) << "moved to the same pixels";
    EXPECT_EQ(at({9, 7}).copy(5, 3, 30, 30), here.copy(0, 0, 30, 30)) << "moved by whole pixels";
}

std::string nameOfTest(const testing::TestParamInfo<Symbol>& info) {
    std::string name = symbolName(info.param).data();
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, EverySymbol,
                         testing::ValuesIn(allSymbols().begin(), allSymbols().end()), nameOfTest);

/// How long the lines of a symbol are, in units of the grid: what a slightly wider stroke adds.
double lineLength(Symbol symbol) {
    const SymbolDrawing& drawing = SymbolDrawing::of(symbol);
    constexpr double perUnit = 20;
    constexpr int height = static_cast<int>(perUnit * SymbolDrawing::gridHeight);
    const double added = inkIn(drawing.mask(height, 0.4)) - inkIn(drawing.mask(height, 0.2));
    return added / (perUnit * perUnit * 0.2);
}

TEST(Symbols, AreOfOneOpticalWeightAtEverySize) {
    std::map<std::pair<double, double>, std::vector<double>> strokes;
    for (const Symbol symbol : allSymbols()) {
        // The short dashes are mostly round ends, which lines have none of.
        if (isFilled(symbol) || symbol == Symbol::appDashed)
            continue;
        const double length = lineLength(symbol);
        for (const double size : sizes)
            for (const double scale : scales)
                strokes[{size, scale}].push_back(inkIn(picture(symbol, size, scale)) / length);
    }
    for (const auto& [sizeAndScale, widths] : strokes) {
        const auto [least, most] = std::minmax_element(widths.begin(), widths.end());
        EXPECT_LT(*most / *least, 1.25)
            << "at " << sizeAndScale.first << " points and scale " << sizeAndScale.second;
    }
}

TEST(Symbols, HaveRelativelyHeavierStrokesTheSmallerTheyAre) {
    double heavier = 1;
    for (const double size : {10.0, 17.0, 34.0}) {
        const QSizeF box = symbolSize(Symbol::chevronRight, size);
        const double share =
            inkIn(picture(Symbol::chevronRight, size, 4)) / (16 * box.width() * box.height());
        EXPECT_LT(share, 0.93 * heavier) << "at " << size << " points";
        heavier = share;
    }
}

TEST(Symbols, HaveEachTheirOwnNameAndPlace) {
    std::set<QLatin1StringView> names;
    int place = 0;
    for (const Symbol symbol : allSymbols()) {
        EXPECT_EQ(static_cast<int>(symbol), place++);
        names.insert(symbolName(symbol));
    }
    EXPECT_EQ(names.size(), allSymbols().size());
    EXPECT_EQ(symbolName(Symbol::xmarkCircleFill), "xmark.circle.fill"_L1);
    EXPECT_EQ(symbolName(Symbol::speakerWave2), "speaker.wave.2"_L1);
}

TEST(Symbols, AreEquallyHighBesideTextOfOneSize) {
    for (const Symbol symbol : allSymbols()) {
        EXPECT_DOUBLE_EQ(symbolSize(symbol, 17).height(), 24);
        EXPECT_DOUBLE_EQ(symbolSize(symbol, 8.5).height(), 12);
        EXPECT_LE(symbolSize(symbol, 17).width(), 24);
    }
}

/// How much a level stroke covers the pixels it touches, from its upper edge to its lower one: the
/// first stroke that the middle column of a picture meets.
std::vector<int> profileOfFirstStroke(const QImage& image) {
    std::vector<int> profile;
    for (int y = 0; y < image.height(); ++y) {
        const int alpha = qAlpha(image.pixel(image.width() / 2, y));
        if (alpha == 0 && !profile.empty())
            break;
        if (alpha > 0)
            profile.push_back(alpha);
    }
    return profile;
}

TEST(Symbols, HaveSharpStemsAtEverySizeAndScale) {
    for (const Symbol symbol : {Symbol::minus, Symbol::stop, Symbol::bookmark})
        for (const double scale : scales)
            for (const double size : {10.0, 11.0, 12.0, 13.0, 14.0, 15.0, 17.0}) {
                const std::vector<int> profile = profileOfFirstStroke(picture(symbol, size, scale));
                const std::vector<int> flipped(profile.rbegin(), profile.rend());
                EXPECT_THAT(flipped, testing::Pointwise(IsNear(8), profile));
                EXPECT_GE(*std::max_element(profile.begin(), profile.end()), 200)
                    << symbolName(symbol).data() << " at " << size << " points, scale " << scale;
            }
}

TEST(Symbols, KeepTheirShapeInABoxOfAnother) {
    const auto drawn = [](const QRectF& box) {
        return painted({60, 40}, 1, [&](QPainter& painter) {
            paintSymbol(painter, Symbol::globe, box, Qt::black);
        });
    };
    EXPECT_EQ(drawn({0, 8, 60, 24}), drawn({18, 8, 24, 24}));
}

TEST(Symbols, FollowAPainterThatTurnsAndChangesSizes) {
    const QImage image = painted({40, 40}, 1, [](QPainter& painter) {
        painter.translate(20, 20);
        painter.rotate(90);
        painter.scale(1.18, 1.18);
        paintSymbol(painter, Symbol::minus, {-12, -12, 24, 24}, Qt::black);
    });
    EXPECT_GT(inkIn(image, {17, 10, 6, 20}), 25) << "a level stroke stands upright";
    EXPECT_LT(inkIn(image) - inkIn(image, {17, 8, 6, 24}), 1);
}

TEST(Symbols, LeaveThePainterAsItWas) {
    painted({40, 40}, 1, [](QPainter& painter) {
        for (const qreal scale : {1.0, 0.9}) {
            painter.scale(scale, scale);
            const QTransform before = painter.worldTransform();
            const auto hints = painter.renderHints();
            paintSymbol(painter, Symbol::play, {0, 0, 20, 20}, Qt::black);
            EXPECT_EQ(painter.worldTransform(), before);
            EXPECT_EQ(painter.renderHints(), hints);
        }
    });
}

TEST(Symbols, AreNothingInAnEmptyBox) {
    const QImage image = painted({40, 40}, 1, [](QPainter& painter) {
        paintSymbol(painter, Symbol::play, {10, 10, 0, 20}, Qt::black);
    });
    EXPECT_EQ(inkIn(image), 0);
}

TEST(Symbols, DimWithAColourThatLetsThrough) {
    const QImage image =
        picture(Symbol::playFill, 17, 2, SymbolWeight::regular, QColor(255, 255, 255, 128));
    EXPECT_EQ(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 128);
}

} // namespace
} // namespace tolvar::test
