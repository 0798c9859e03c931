#include "Views/StartSession/CustomAppsRow.h"

#include "Views/Paint/Paint.h"
#include "Views/StartSession/SessionPlan.h"
#include "Views/Theme/Instrument.h"

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double plus = 11;
    double besidePlus = 8;
    double chevron = 10;
    double icon = 20;
    double besideIcons = 9;
};
constexpr Look look;

QFont moreFont() {
    return Instrument::font(11);
}

} // namespace

CustomAppsRow::CustomAppsRow(const ControlContext& context, QWidget* parent)
    : KeyButton(context, KeyStyle::standard(), customAppsLabel({}), parent) {
    setAccessibleDescription(u"Opens the app picker"_s);
}

void CustomAppsRow::setApps(const std::set<QString>& apps) {
    m_apps = apps;
    setName(customAppsLabel(apps));
}

QSizeF CustomAppsRow::labelSize() const {
    const QFontMetricsF metrics(keyStyle().font);
    return {metrics.horizontalAdvance(customAppsLabel({})), std::max(look.icon, metrics.height())};
}

QRectF CustomAppsRow::mirrored(const QRectF& rect, const QRectF& within) const {
    if (layoutDirection() == Qt::LeftToRight)
        return rect;
    QRectF other = rect;
    other.moveLeft(within.left() + within.right() - rect.right());
    return other;
}

} // namespace tolvar
