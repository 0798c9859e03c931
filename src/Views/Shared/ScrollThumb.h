#pragma once

#include <QWidget>

class QAbstractScrollArea;

namespace tolvar {

/// A thin mark over the trailing edge of what scrolls, which says how far it is scrolled and can be
/// dragged. It takes no room of its own, and is not there while everything fits. Assistive
/// technology and the keyboard have no need of it.
class ScrollThumb final : public QWidget {
    Q_OBJECT

public:
    /// Takes the place of the area's own vertical scroll bar.
    explicit ScrollThumb(QAbstractScrollArea& area);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();
    QRectF thumb() const;
    double travel() const;

    QAbstractScrollArea& m_area;
    /// Where it was taken hold of: the pointer's place and the area's value then.
    struct Grip {
        double pointer = 0;
        int value = 0;
    };
    Grip m_grip;
    bool m_isHeld = false;
};

} // namespace tolvar
