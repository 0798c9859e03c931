#include "Views/StatusPill/StatusDrawing.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/CastleMark.h"
#include "Views/Theme/Instrument.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

struct Measures {
    double castle = 15;
    double letters = 12;
    /// Of the castle in a thick panel.
    double share = 0.5;
    /// Kept free above and below in a thin one.
    double margin = 1;
    double inset = 2;
    double gap = 5;
};
constexpr Measures measures;

/// Of the cell of every digit: whole points, so that all of them are drawn alike.
double digitWidth(const QFont& font) {
    const QFontMetricsF metrics(font);
    double width = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        width = std::max(width, metrics.horizontalAdvance(QChar(digit)));
    return std::ceil(width);
}

double cellWidth(QChar letter, const QFont& font, double digit) {
    return letter.isDigit() ? digit : std::round(QFontMetricsF(font).horizontalAdvance(letter));
}

/// How far the item is on its way from the bare castle to castle and label, 0 to 1.
double openness(const StatusItemContent& content, const QSizeF& size) {
    if (content.isLabelHidden)
        return 0;
    const double thickness = std::min(size.width(), size.height());
    const double bare = size.height();
    const double open = 2 * measures.inset + measures.gap + StatusDrawing::iconWidth(thickness) +
                        StatusDrawing::labelWidth(content.label, thickness);
    return open > bare ? std::clamp((size.width() - bare) / (open - bare), 0.0, 1.0) : 1;
}

void paintLabel(QPainter& painter, const QRectF& rect, const QString& label, const QFont& font,
                const QColor& ink) {
    const double digit = digitWidth(font);
    double x = rect.left();
    for (const QChar letter : label) {
        const double width = cellWidth(letter, font, digit);
        Paint::text(painter, {x, rect.top(), width, rect.height()}, QString(letter), font, ink,
                    Qt::AlignHCenter);
        x += width;
    }
}

} // namespace

double StatusDrawing::iconWidth(double thickness) {
    const double wanted = std::max(measures.castle, std::round(thickness * measures.share));
    return std::max(1.0, std::min(wanted, thickness - 2 * measures.margin));
}

QFont StatusDrawing::labelFont(double thickness) {
    QFont font = Instrument::font(measures.letters * iconWidth(thickness) / measures.castle);
    // What shines through a tray's window is not what the letters were fitted to.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

double StatusDrawing::labelWidth(const QString& label, double thickness) {
    const QFont font = labelFont(thickness);
    const double digit = digitWidth(font);
    double width = 0;
    for (const QChar letter : label)
        width += cellWidth(letter, font, digit);
    return width;
}

QRectF StatusDrawing::iconPlace(const StatusItemContent& content, const QSizeF& size) {
    const double thickness = std::min(size.width(), size.height());
    const double side = iconWidth(thickness);
    const double bare = (content.isLabelHidden ? size.width() : size.height()) - side;
    const double left = std::lerp(bare / 2, measures.inset, openness(content, size));
    return {left, (size.height() - side) / 2, side, side};
}

void StatusDrawing::paint(QPainter& painter, const StatusItemContent& content, const QSizeF& size,
                          const Inks& inks) {
    const Paint::Saved saved(painter);
    painter.setOpacity(painter.opacity() * content.opacity);
    const QRectF castle = iconPlace(content, size);
    paintCastleMark(painter, castle, inks.castle);
    if (content.isLabelHidden)
        return;
    const double left = castle.right() + measures.gap;
    const QRectF label(left, 0, size.width() - left, size.height());
    painter.setClipRect(label);
    paintLabel(painter, label, content.label, labelFont(std::min(size.width(), size.height())),
               inks.label);
}

StatusItemArt StatusDrawing::art() {
    return {.iconWidth = iconWidth,
            .labelWidth = labelWidth,
            .iconPlace = iconPlace,
            .paint =
                [](QPainter& painter, const StatusItemContent& content, const QSizeF& size,
                   const QColor& ink) {
                    StatusDrawing::paint(painter, content, size, {ink, ink});
                },
            .paintIcon = paintCastleMark};
}

} // namespace tolvar
