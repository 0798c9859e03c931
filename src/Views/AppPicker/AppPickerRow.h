#pragma once

#include <QIcon>
#include <QString>

class QPainter;
class QRectF;

namespace tolvar {

/// A row of the app picker at one moment: icon, name and check mark.
struct AppPickerRow {
    QString appName;
    QIcon icon;
    /// How far the check mark is there, 0 to 1; it may overshoot.
    double check = 0;
    /// How bright the row is under the pointer, 0 to 1.
    double hover = 0;
    /// The keyboard is on it.
    bool isFocused = false;

    /// In points, of every row and of the headings between them.
    static constexpr int height = 40;
    static constexpr int headingHeight = 32;

    void paint(QPainter& painter, const QRectF& rect, Qt::LayoutDirection direction) const;
    /// The heading of a section.
    static void paintHeading(QPainter& painter, const QRectF& rect, const QString& text,
                             Qt::LayoutDirection direction);
};

} // namespace tolvar
