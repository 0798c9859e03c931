#include "Views/Theme/Instrument.h"

#include "Views/Theme/Bevel.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

void expectFace(const Bevel& bevel, const QColor& top, const QColor& bottom) {
    EXPECT_EQ(bevel.face.front().color, top);
    EXPECT_EQ(bevel.face.back().color, bottom);
    EXPECT_EQ(bevel.face.front().position, 0);
    EXPECT_EQ(bevel.face.back().position, 1);
}

void expectEdges(const Bevel& bevel, const QColor& top, double topWidth, const QColor& bottom,
                 double bottomWidth) {
    EXPECT_EQ(bevel.top, top);
    EXPECT_EQ(bevel.topWidth, topWidth);
    EXPECT_EQ(bevel.bottom, bottom);
    EXPECT_EQ(bevel.bottomWidth, bottomWidth);
}

TEST(BevelPresets, OfRaisedThingsAreLitAboveAndShadedBelow) {
    const QColor shade(5, 5, 6);
    expectFace(Bevel::key, {35, 36, 39}, {24, 25, 27});
    expectEdges(Bevel::key, {53, 54, 59}, 1, shade, 2);
    expectFace(Bevel::cardKey, {43, 44, 48}, {30, 31, 34});
    expectEdges(Bevel::cardKey, {61, 62, 67}, 1, shade, 2);
    expectFace(Bevel::card, {32, 33, 36}, {23, 24, 26});
    expectEdges(Bevel::card, {49, 50, 54}, 1, shade, 2);
    expectFace(Bevel::modeIndicator, {52, 53, 58}, {34, 35, 38});
    expectEdges(Bevel::modeIndicator, {74, 75, 81}, 1, shade, 2);
    expectFace(Bevel::primary, {255, 198, 79}, {217, 139, 0});
    EXPECT_EQ(Bevel::primary.face[1].color, QColor(240, 160, 18));
    expectEdges(Bevel::primary, {255, 224, 160}, 1, {110, 70, 0}, 2);
}

TEST(BevelPresets, OfLatchedKeysAreTheInverse) {
    expectFace(Bevel::latched, {18, 16, 9}, {31, 27, 19});
    expectEdges(Bevel::latched, {5, 4, 3}, 2, {66, 59, 45}, 1);
}

TEST(BevelPresets, OfSunkenThingsAreLitBelow) {
    for (const Bevel& bevel : {Bevel::well, Bevel::field})
        EXPECT_LT(bevel.top.lightness(), bevel.bottom.lightness());
}

TEST(Bevel, MixesFromOneToTheOther) {
    EXPECT_EQ(Bevel::mixed(Bevel::key, Bevel::latched, 0), Bevel::mixed(Bevel::key, Bevel::key, 0));
    EXPECT_EQ(Bevel::mixed(Bevel::key, Bevel::latched, 1.3).topWidth, Bevel::latched.topWidth);
    EXPECT_DOUBLE_EQ(Bevel::mixed(Bevel::key, Bevel::latched, 0.5).bottomWidth, 1.5);
}

TEST(InstrumentMotion, HasTheSpringsOfTheWindow) {
    namespace Motion = Instrument::Motion;
    EXPECT_EQ(Motion::keyDown, Spring::withResponse(0.16, 0.8));
    EXPECT_EQ(Motion::keyUp, Spring::withResponse(0.36, 0.5));
    EXPECT_EQ(Motion::latch, Spring::withResponse(0.3, 0.62));
    EXPECT_EQ(Motion::scene, Spring::withResponse(0.5, 0.82));
    EXPECT_EQ(Motion::swipeSettle, Spring::withResponse(0.34, 0.82));
    EXPECT_EQ(Motion::listEdit, Spring::withResponse(0.35, 0.8));
    EXPECT_EQ(Motion::listClear, Spring::withResponse(0.4, 0.85));
}

} // namespace
} // namespace tolvar::test
