#include "Views/Theme/Bevel.h"

#include "Views/Theme/Instrument.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

constexpr QColor shadow{5, 5, 6};
constexpr double flattening = 0.68;

std::array<Bevel::Stop, 3> gradient(const QColor& top, const QColor& bottom) {
    return {{{0, top}, {0.5, mixedColor(top, bottom, 0.5)}, {1, bottom}}};
}

std::array<Bevel::Stop, 3> flat(const QColor& color) {
    return gradient(color, color);
}

Bevel raised(const QColor& top, const QColor& bottom, const QColor& edge) {
    return {.face = gradient(top, bottom),
            .top = edge,
            .topWidth = 1,
            .bottom = shadow,
            .bottomWidth = 2};
}

} // namespace

QColor mixedColor(const QColor& from, const QColor& to, double amount) {
    const double share = std::clamp(amount, 0.0, 1.0);
    return QColor::fromRgbF(static_cast<float>(std::lerp(from.redF(), to.redF(), share)),
                            static_cast<float>(std::lerp(from.greenF(), to.greenF(), share)),
                            static_cast<float>(std::lerp(from.blueF(), to.blueF(), share)),
                            static_cast<float>(std::lerp(from.alphaF(), to.alphaF(), share)));
}

Bevel Bevel::mixed(const Bevel& from, const Bevel& to, double amount) {
    const double share = std::clamp(amount, 0.0, 1.0);
    Bevel result = from;
    for (std::size_t i = 0; i < result.face.size(); ++i)
        result.face[i] = {std::lerp(from.face[i].position, to.face[i].position, share),
                          mixedColor(from.face[i].color, to.face[i].color, share)};
    result.top = mixedColor(from.top, to.top, share);
    result.topWidth = std::lerp(from.topWidth, to.topWidth, share);
    result.bottom = mixedColor(from.bottom, to.bottom, share);
    result.bottomWidth = std::lerp(from.bottomWidth, to.bottomWidth, share);
    return result;
}

Bevel Bevel::flattened() const {
    Bevel even = *this;
    for (auto& stop : even.face)
        stop.color = Instrument::Palette::panel;
    even.top = even.bottom = Instrument::Palette::panel;
    return mixed(*this, even, flattening);
}

const Bevel Bevel::key = raised({35, 36, 39}, {24, 25, 27}, {53, 54, 59});
const Bevel Bevel::cardKey = raised({43, 44, 48}, {30, 31, 34}, {61, 62, 67});
const Bevel Bevel::card = raised({32, 33, 36}, {23, 24, 26}, {49, 50, 54});
const Bevel Bevel::modeIndicator = raised({52, 53, 58}, {34, 35, 38}, {74, 75, 81});

const Bevel Bevel::latched{.face = gradient({18, 16, 9}, {31, 27, 19}),
                           .top = {5, 4, 3},
                           .topWidth = 2,
                           .bottom = {66, 59, 45},
                           .bottomWidth = 1};

// The lamp lights the upper half of the amber more than the lower.
const Bevel Bevel::primary{
    .face = {{{0, {255, 198, 79}}, {0.46, {240, 160, 18}}, {1, {217, 139, 0}}}},
    .top = {255, 224, 160},
    .topWidth = 1,
    .bottom = {110, 70, 0},
    .bottomWidth = 2};

const Bevel Bevel::well{.face = flat(Instrument::Palette::well),
                        .top = {4, 4, 5},
                        .topWidth = 1,
                        .bottom = {42, 42, 45},
                        .bottomWidth = 1};

const Bevel Bevel::field{.face = flat(Instrument::Palette::field),
                         .top = {3, 3, 4},
                         .topWidth = 1,
                         .bottom = {44, 44, 47},
                         .bottomWidth = 1};

} // namespace tolvar
