#pragma once

#include <QWidget>

namespace tolvar {

/// A window without a frame that floats above the others, with the round corners of a card. It is
/// as large as what stands in it.
class FloatingPanel : public QWidget {
    Q_OBJECT

public:
    /// What lies around the card: a soft shadow through which the desktop is seen, or nothing,
    /// where nothing can be seen through windows; the corners are then cut out of the window.
    enum class Surroundings { shadow, none };

    /// Whether the content's own card has round corners, or they are to be cut off, which works
    /// only in a window of its own.
    enum class Corners { round, square };

    static constexpr double cornerRadius = 14;

    /// Owns the content.
    FloatingPanel(QWidget* content, Surroundings surroundings, Corners corners);

    /// Makes the card as high as its content wants to be, but no higher than this unless the
    /// content cannot be lower; points.
    void limitHeight(int height);

    /// Moves the window's corner there, and again, a few times at most, where the window manager
    /// puts it elsewhere: some make room for a frame that this window has none of.
    void standAt(const QPoint& corner);

    /// Where the card stands within the window.
    QRect card() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    class Edge;

    const Surroundings m_surroundings;
    /// Where it was told to stand, and how often it may yet be moved back there.
    QPoint m_corner;
    int m_movesLeft = 0;
    /// Over the content's rim; null where the content draws it.
    Edge* m_edge = nullptr;
};

} // namespace tolvar
