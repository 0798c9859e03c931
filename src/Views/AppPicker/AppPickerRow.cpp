#include "Views/AppPicker/AppPickerRow.h"

#include "Views/AppPicker/AppIconView.h"
#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"
#include "Views/Theme/Symbol.h"

#include <QPainter>

#include <algorithm>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double padding = 12;
    double inset = 4;
    double radius = 6;
    double icon = 24;
    double betweenIconAndName = 12;
    double nameSize = 12;
    double box = 18;
    double boxRadius = 5;
    double check = 10;
    double smallestCheck = 0.6;
    double hoverOpacity = 0.05;
    double headingSize = 11;
    double headingTracking = 0.33;
    double headingBottom = 6;
};
constexpr Look look;

/// A place told from the leading edge, as it lies on the screen.
QRectF placed(const QRectF& rect, double fromLeading, double width, double height,
              Qt::LayoutDirection direction) {
    const double left = direction == Qt::RightToLeft ? rect.right() - fromLeading - width
                                                     : rect.left() + fromLeading;
    return {left, rect.center().y() - height / 2, width, height};
}

Qt::Alignment leading(Qt::LayoutDirection direction) {
    return direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
}

QColor faded(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(color.alphaF() * std::clamp(opacity, 0.0, 1.0)));
    return color;
}

/// An empty box that lights up; the mark grows into it.
void paintCheck(QPainter& painter, const QRectF& box, double amount) {
    Paint::outline(painter, box, look.boxRadius, Palette::labelFaint);
    if (amount <= 0)
        return;
    Paint::fill(painter, box, look.boxRadius, faded(Palette::amberPlate, amount));
    Paint::outline(painter, box, look.boxRadius, faded(Palette::amberRim, amount));
    const Paint::Saved saved(painter);
    if (amount != 1) {
        const double scale = look.smallestCheck + (1 - look.smallestCheck) * amount;
        painter.translate(box.center());
        painter.scale(scale, scale);
        painter.translate(-box.center());
    }
    QRectF mark(QPointF(0, 0), symbolSize(Symbol::checkmark, look.check));
    mark.moveCenter(box.center());
    paintSymbol(painter, Symbol::checkmark, mark, faded(Palette::amber, amount),
                SymbolWeight::semibold);
}

} // namespace

void AppPickerRow::paint(QPainter& painter, const QRectF& rect,
                         Qt::LayoutDirection direction) const {
    const QRectF face = rect.adjusted(look.inset, 1, -look.inset, -1);
    if (hover > 0)
        Paint::fill(painter, face, look.radius, faded(Qt::white, look.hoverOpacity * hover));
    if (isFocused)
        Paint::outline(painter, face, look.radius, Palette::amber);

    paintAppIcon(painter, placed(rect, look.padding, look.icon, look.icon, direction), icon);
    const double boxStart = rect.width() - look.padding - look.box;
    paintCheck(painter,
               Paint::onPixels(painter, placed(rect, boxStart, look.box, look.box, direction)),
               check);
    const double nameStart = look.padding + look.icon + look.betweenIconAndName;
    Paint::text(painter,
                placed(rect, nameStart, boxStart - nameStart - look.betweenIconAndName,
                       rect.height(), direction),
                appName, Instrument::font(look.nameSize, QFont::Medium, 0.12), Palette::label,
                leading(direction));
}

void AppPickerRow::paintHeading(QPainter& painter, const QRectF& rect, const QString& text,
                                Qt::LayoutDirection direction) {
    const double line = rect.height() - look.headingBottom;
    const QRectF low = rect.adjusted(look.padding, rect.height() - line, -look.padding, 0);
    Paint::text(painter, low, text,
                Instrument::font(look.headingSize, QFont::Medium, look.headingTracking),
                Palette::labelSecondary, leading(direction));
}

} // namespace tolvar
