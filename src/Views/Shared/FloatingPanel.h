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

    static constexpr double cornerRadius = 14;

    /// Owns the content, whose corners it rounds.
    FloatingPanel(QWidget* content, Surroundings surroundings);

    /// Where the card stands within the window.
    QRect card() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Edge;

    const Surroundings m_surroundings;
    Edge* m_edge;
};

} // namespace tolvar
