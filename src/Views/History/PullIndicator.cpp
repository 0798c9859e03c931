#include "Views/History/PullIndicator.h"

#include "Views/History/PullToClear.h"
#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QPainter>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double ring = 18;
    double stroke = 2;
    double besideRing = 8;
    double fontSize = 11;
};
constexpr Look look;

constexpr int sixteenths = 16;
constexpr int twelveOClock = 90 * sixteenths;
constexpr double fullTurn = 360 * sixteenths;

QFont textFont() {
    return Instrument::font(look.fontSize, QFont::Medium, 0.11);
}

/// A groove that fills clockwise from its top.
void paintRing(QPainter& painter, const QRectF& box, double fraction, const QColor& ink) {
    const Paint::Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const double half = look.stroke / 2;
    const QRectF middle = box.adjusted(half, half, -half, -half);
    painter.setPen(QPen(Palette::hairline, look.stroke));
    painter.drawEllipse(middle);
    if (fraction <= 0)
        return;
    painter.setPen(QPen(ink, look.stroke, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(middle, twelveOClock, -qRound(fullTurn * fraction));
}

} // namespace

PullIndicator::PullIndicator(const PullToClear& pull, QWidget* parent)
    : QWidget(parent)
    , m_pull(pull) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

/// Its lower edge goes with the upper edge of the first card.
void PullIndicator::follow(int topInset) {
    const double bottom = topInset + m_pull.pullDistance();
    setGeometry(0, qRound(bottom - PullToClear::indicatorHeight), parentWidget()->width(),
                qRound(PullToClear::indicatorHeight));
    setVisible(m_pull.pullDistance() > 0);
    update();
}

void PullIndicator::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(m_pull.ringFraction());
    const QColor ink = m_pull.isArmed() ? Palette::label : Palette::labelDim;
    const double textWidth = Paint::textWidth(m_pull.text(), textFont());
    QRectF line(0, 0, look.ring + look.besideRing + textWidth, height());
    line.moveCenter(QRectF(rect()).center());
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    QRectF ring(0, 0, look.ring, look.ring);
    ring.moveCenter({isMirrored ? line.right() - look.ring / 2 : line.left() + look.ring / 2,
                     line.center().y()});
    paintRing(painter, Paint::onPixels(painter, ring), m_pull.ringFraction(), ink);
    const double aside = look.ring + look.besideRing;
    Paint::text(painter, line.adjusted(isMirrored ? 0 : aside, 0, isMirrored ? -aside : 0, 0),
                m_pull.text(), textFont(), ink);
}

} // namespace tolvar
