#pragma once

#include <QObject>

class QAbstractScrollArea;
class QWidget;

namespace tolvar {

/// Fades what goes beyond the upper and lower edge of an area that scrolls into the panel there.
class EdgeFades final : public QObject {
    Q_OBJECT

public:
    /// The area owns its fades.
    explicit EdgeFades(QAbstractScrollArea& area);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QAbstractScrollArea& m_area;
    /// Over the upper edge, once something has gone beyond it, and over the lower one.
    QWidget* m_upper;
    QWidget* m_lower;
};

} // namespace tolvar
