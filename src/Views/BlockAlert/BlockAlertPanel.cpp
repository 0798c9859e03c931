#include "Views/BlockAlert/BlockAlertPanel.h"

#include "Views/BlockAlert/BlockAlertView.h"
#include "Views/Paint/Paint.h"

#include <QBitmap>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

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

/// Layers upon layers, each a little smaller: together they fade as a shadow does.
void paintShadow(QPainter& painter, const QRectF& card, double radius) {
    QColor layer = Qt::black;
    for (int step = shadow.steps; step > 0; --step) {
        const double share = static_cast<double>(step) / shadow.steps;
        const double outset = shadow.reach * share;
        layer.setAlphaF(static_cast<float>(shadow.opacity * 2 * (1 - share) / shadow.steps));
        Paint::fill(painter,
                    card.adjusted(-outset, -outset, outset, outset).translated(0, shadow.drop),
                    radius + outset, layer);
    }
}

QBitmap maskOf(const QSize& size, double radius) {
    QBitmap mask(size);
    mask.clear();
    QPainter painter(&mask);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), size), radius, radius);
    return mask;
}

} // namespace

/// Not a Qt::Tool: window managers hide those while another application is in front.
BlockAlertPanel::BlockAlertPanel(BlockAlertView* view, Surroundings surroundings)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_surroundings(surroundings) {
    setWindowTitle(view->accessibleName());
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_TranslucentBackground, surroundings == Surroundings::shadow);
    auto* layout = new QVBoxLayout(this);
    const int margin = surroundings == Surroundings::shadow ? room : 0;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(view);
    setFixedSize(sizeHint());
    if (surroundings == Surroundings::none)
        setMask(maskOf(size(), BlockAlertView::cardRadius));
    view->setFocus(Qt::OtherFocusReason);
}

QRect BlockAlertPanel::card() const {
    return contentsRect().marginsRemoved(layout()->contentsMargins());
}

void BlockAlertPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else
        QWidget::keyPressEvent(event);
}

void BlockAlertPanel::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT cancelled();
}

void BlockAlertPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_surroundings == Surroundings::shadow)
        paintShadow(painter, card(), BlockAlertView::cardRadius);
}

} // namespace tolvar
