#include "Views/Shared/FloatingPanel.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QPainterPath>
#include <QVBoxLayout>

#include <algorithm>

namespace tolvar {

namespace {

struct Shadow {
    /// How far it reaches beyond the card, and how much lower than the card it lies, in points.
    int reach = 28;
    int drop = 8;
    double opacity = 0.5;
    int steps = 20;
};
constexpr Shadow shadow;
constexpr int room = shadow.reach + shadow.drop;

/// A window manager places a window when it is shown and when it takes away the frame.
constexpr int mostMoves = 3;

/// Layers upon layers, each a little smaller: together they fade as a shadow does.
void paintShadow(QPainter& painter, const QRectF& card) {
    QColor layer = Qt::black;
    for (int step = shadow.steps; step > 0; --step) {
        const double share = static_cast<double>(step) / shadow.steps;
        const double outset = shadow.reach * share;
        layer.setAlphaF(static_cast<float>(shadow.opacity * 2 * (1 - share) / shadow.steps));
        Paint::fill(painter,
                    card.adjusted(-outset, -outset, outset, outset).translated(0, shadow.drop),
                    FloatingPanel::cornerRadius + outset, layer);
    }
}

QPainterPath rounded(const QRectF& rect) {
    QPainterPath path;
    path.addRoundedRect(rect, FloatingPanel::cornerRadius, FloatingPanel::cornerRadius);
    return path;
}

} // namespace

/// Lies over the content's rim: takes its corners away and draws the edge of the card.
class FloatingPanel::Edge final : public QWidget {
public:
    explicit Edge(FloatingPanel* panel)
        : QWidget(panel)
        , m_panel(*panel) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void resizeEvent(QResizeEvent*) override {
        const int side = static_cast<int>(cornerRadius);
        QRegion rim(rect());
        rim -= rect().adjusted(1, side, -1, -side);
        rim -= rect().adjusted(side, 1, -side, -1);
        setMask(rim);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (m_panel.m_surroundings == Surroundings::shadow)
            cutCorners(painter);
        Paint::outline(painter, rect(), cornerRadius, Instrument::Palette::hairline);
    }

private:
    void cutCorners(QPainter& painter) const {
        const Paint::Saved saved(painter);
        QPainterPath corners;
        corners.addRect(rect());
        corners -= rounded(rect());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        painter.fillPath(corners, Qt::black);
        painter.setClipPath(corners);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        paintShadow(painter, rect());
    }

    FloatingPanel& m_panel;
};

/// Not a Qt::Tool: window managers hide those while another application is in front.
FloatingPanel::FloatingPanel(QWidget* content, Surroundings surroundings, Corners corners)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_surroundings(surroundings) {
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_TranslucentBackground, surroundings == Surroundings::shadow);
    auto* layout = new QVBoxLayout(this);
    const int margin = surroundings == Surroundings::shadow ? room : 0;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(content);
    setFixedSize(sizeHint());
    if (corners == Corners::round)
        return;
    m_edge = new Edge(this);
    m_edge->setGeometry(card());
    m_edge->raise();
}

QRect FloatingPanel::card() const {
    return rect().marginsRemoved(layout()->contentsMargins());
}

void FloatingPanel::standAt(const QPoint& corner) {
    m_corner = corner;
    m_movesLeft = mostMoves;
    move(corner);
}

/// In the event loop: the toolkit is in the midst of taking note of the place. The window itself
/// counts, not the frame that is about to go.
void FloatingPanel::moveEvent(QMoveEvent*) {
    if (!isVisible() || geometry().topLeft() == m_corner || m_movesLeft == 0)
        return;
    --m_movesLeft;
    QMetaObject::invokeMethod(
        this,
        [this] {
            setGeometry({m_corner, size()});
        },
        Qt::QueuedConnection);
}

void FloatingPanel::limitHeight(int height) {
    const QMargins around = layout()->contentsMargins();
    const int most =
        std::max(height + around.top() + around.bottom(), layout()->minimumSize().height());
    setFixedSize(layout()->sizeHint().width(), std::min(layout()->sizeHint().height(), most));
}

void FloatingPanel::resizeEvent(QResizeEvent*) {
    if (m_surroundings == Surroundings::none)
        setMask(Paint::roundedRegion(rect(), cornerRadius));
    if (m_edge)
        m_edge->setGeometry(card());
}

void FloatingPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_surroundings == Surroundings::shadow)
        paintShadow(painter, card());
}

} // namespace tolvar
