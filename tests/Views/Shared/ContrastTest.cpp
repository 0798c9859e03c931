#include "Views/Shared/KeyStyle.h"
#include "Views/Theme/Instrument.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tolvar::test {
namespace {

namespace Palette = Instrument::Palette;

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

/// The relative luminance of WCAG 2.1.
double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& first, const QColor& second) {
    const double lighter = std::max(luminance(first), luminance(second));
    const double darker = std::min(luminance(first), luminance(second));
    return (lighter + 0.05) / (darker + 0.05);
}

void expectReadable(const char* what, const QColor& ink, const QColor& ground) {
    EXPECT_GE(contrast(ink, ground), 4.5) << what << ": WCAG 2.1 level AA asks for 4.5";
}

void expectReadable(const char* what, const QColor& ink, const Bevel& bevel) {
    for (const auto& stop : bevel.face)
        expectReadable(what, ink, stop.color);
}

TEST(Contrast, KnowsBlackOnWhite) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-6);
}

TEST(Contrast, OfEveryTextOnEveryFaceIsEnough) {
    for (const auto& [name, style] : {std::pair{"key", KeyStyle::standard()},
                                      {"primary", KeyStyle::primary()},
                                      {"card key", KeyStyle::card()},
                                      {"destructive", KeyStyle::destructive()},
                                      {"inline", KeyStyle::inlineKey()},
                                      {"nudge", KeyStyle::nudge()}}) {
        expectReadable(name, style.ink, style.bevel);
        expectReadable(name, style.latchedInk, style.latchedBevel);
    }
    expectReadable("key on a card", KeyStyle::standard().ink, Bevel::cardKey);
    expectReadable("label on a card", Palette::label, Bevel::card);
    expectReadable("secondary label on a card", Palette::labelSecondary, Bevel::card);
    expectReadable("text in a field", Palette::label, Bevel::field);
    expectReadable("placeholder in a field", Palette::labelDim, Bevel::field);
    expectReadable("section label", Palette::labelSecondary, Palette::panel);
    expectReadable("badge", Palette::amber, Palette::amberPlate);
    expectReadable("completed", Palette::successInk, Palette::successPlate);
}

} // namespace
} // namespace tolvar::test
