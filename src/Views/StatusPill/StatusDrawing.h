#pragma once

#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Interfaces/StatusItemArt.h"

#include <QColor>
#include <QFont>
#include <QSizeF>

class QPainter;

namespace tolvar {

/// How the status item is drawn, wherever it is: the castle and, behind it, a clock whose digits
/// stand in cells of one width. Lengths are points; `thickness` is that of the panel across. The
/// item stays the same up to a thickness of 30 and grows with the panel from there.
namespace StatusDrawing {

struct Inks {
    QColor castle;
    QColor label;
};

/// Both sides of the castle's square: 15, unless the panel is very thin or very thick.
double iconWidth(double thickness);
/// 12 points, likewise.
QFont labelFont(double thickness);
double labelWidth(const QString& label, double thickness);

/// In the middle of the bare item; on its way to the leading edge while the item widens.
QRectF iconPlace(const StatusItemContent& content, const QSizeF& size);
/// What does not fit is cut off.
void paint(QPainter& painter, const StatusItemContent& content, const QSizeF& size,
           const Inks& inks);

/// All this for those who do not know how to draw.
StatusItemArt art();

} // namespace StatusDrawing
} // namespace tolvar
