#pragma once

#include "Views/Theme/Instrument.h"

#include <QFont>
#include <QRectF>

namespace tolvar {

/// What the cards of presets and history have in common. Points.
struct CardLook {
    double padding = 14;
    double radius = 10;
    /// The bottom edge is the wider one: the middle of the face is above that of the card.
    double rise = 0.5;
    int preferredWidth = 360;

    static QFont titleFont() { return Instrument::font(14, QFont::Medium, 0.14); }
    static QFont smallFont(QFont::Weight weight = QFont::Normal) {
        return Instrument::font(11, weight, 0.11);
    }
    static Qt::Alignment leading(Qt::LayoutDirection direction) {
        return direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    }
    static Qt::Alignment trailing(Qt::LayoutDirection direction) {
        return direction == Qt::RightToLeft ? Qt::AlignLeft : Qt::AlignRight;
    }
    /// Cuts a piece off the trailing end of a line, and the gap before it.
    static QRectF takeFromEnd(QRectF& line, double width, double gap,
                              Qt::LayoutDirection direction) {
        QRectF piece = line;
        if (direction == Qt::RightToLeft) {
            piece.setRight(line.left() + width);
            line.setLeft(piece.right() + gap);
        } else {
            piece.setLeft(line.right() - width);
            line.setRight(piece.left() - gap);
        }
        return piece;
    }
};
inline constexpr CardLook cardLook;

} // namespace tolvar
