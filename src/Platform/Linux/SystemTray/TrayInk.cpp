#include "Platform/Linux/SystemTray/TrayInk.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

constexpr QColor light{237, 234, 228};
constexpr QColor dark{30, 29, 27};
/// WCAG 2.1, "Non-text Contrast".
constexpr double leastContrast = 3;

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

/// WCAG 2.1, "relative luminance".
double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, brighter] = std::minmax({luminance(one), luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

} // namespace

QColor trayInk(const std::optional<QColor>& offered, const std::optional<QColor>& background) {
    if (!background)
        return offered.value_or(light);
    if (offered && contrast(*offered, *background) >= leastContrast)
        return *offered;
    return contrast(light, *background) >= contrast(dark, *background) ? light : dark;
}

} // namespace tolvar
