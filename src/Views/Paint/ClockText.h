#pragma once

#include <QFont>
#include <QPainter>
#include <QString>

namespace tolvar::Paint {

/// How wide `character` stands in a clock set in `font`, in points, the font's tracking behind it
/// included: every digit as wide as the widest one, so that none moves when another changes; all
/// else as wide as it is.
double clockCell(QChar character, const QFont& font);
/// The width that `clockText` takes: without the tracking behind the last character.
double clockWidth(const QString& content, const QFont& font);
/// Like `text`, with each digit in the middle of its cell. What is not a clock may stand around it
/// and is set as ever: "Paused for 1:59". Never cut.
void clockText(QPainter& painter, const QRectF& rect, const QString& content, const QFont& font,
               const QColor& color, Qt::Alignment horizontally = Qt::AlignLeft);

} // namespace tolvar::Paint
