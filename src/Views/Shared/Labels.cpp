#include "Views/Shared/Labels.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QAccessibleWidget>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct EmptyStyle {
    double plate = 56;
    double plateRadius = 14;
    double symbol = 22;
    double belowPlate = 16;
    double belowTitle = 6;
    int messageWidth = 240;
};
constexpr EmptyStyle emptyStyle;

QFont titleFont() {
    return Instrument::font(14, QFont::Medium, 0.28);
}

QFont messageFont() {
    return Instrument::font(12);
}

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* state = qobject_cast<EmptyState*>(object);
    return state ? new QAccessibleWidget(state, QAccessible::StaticText) : nullptr;
}

} // namespace

SectionLabel::SectionLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent) {
    setFont(Instrument::font(11, QFont::Medium, 0.33));
    QPalette inks;
    inks.setColor(QPalette::WindowText, Palette::labelSecondary);
    setPalette(inks);
}

PanelRule::PanelRule(QWidget* parent)
    : QWidget(parent) {
    setFixedHeight(1);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PanelRule::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Paint::ruleBelow(painter, rect(), Palette::rule);
}

EmptyState::EmptyState(Symbol symbol, const QString& title, const QString& message, QWidget* parent)
    : QWidget(parent)
    , m_symbol(symbol)
    , m_title(title)
    , m_message(message) {
    QAccessible::installFactory(faceOf);
    setAccessibleName(title);
    setAccessibleDescription(message);
}

int EmptyState::messageHeight(int width) const {
    return QFontMetrics(messageFont())
        .boundingRect(QRect(0, 0, width, 0), Qt::AlignHCenter | Qt::TextWordWrap, m_message)
        .height();
}

QSize EmptyState::sizeHint() const {
    const double height = emptyStyle.plate + emptyStyle.belowPlate +
                          QFontMetricsF(titleFont()).height() + emptyStyle.belowTitle +
                          messageHeight(emptyStyle.messageWidth);
    return {emptyStyle.messageWidth, qRound(height)};
}

void EmptyState::setOpacity(double opacity) {
    m_opacity = opacity;
    update();
}

void EmptyState::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    QRectF column(QPointF(0, 0), QSizeF(sizeHint()));
    column.moveCenter(QRectF(rect()).center());

    QRectF plate(0, 0, emptyStyle.plate, emptyStyle.plate);
    plate.moveCenter(column.center());
    plate.moveTop(column.top());
    Paint::bevel(painter, plate, emptyStyle.plateRadius, Bevel::well);
    QRectF box(QPointF(0, 0), symbolSize(m_symbol, emptyStyle.symbol));
    box.moveCenter(plate.center());
    paintSymbol(painter, m_symbol, box, Palette::labelTertiary);

    QRectF line(column.left(), plate.bottom() + emptyStyle.belowPlate, column.width(),
                QFontMetricsF(titleFont()).height());
    Paint::text(painter, line, m_title, titleFont(), Palette::label, Qt::AlignHCenter);

    painter.setFont(messageFont());
    painter.setPen(Palette::labelSecondary);
    painter.drawText(QRectF(column.left(), line.bottom() + emptyStyle.belowTitle, column.width(),
                            column.bottom() - line.bottom()),
                     Qt::AlignHCenter | Qt::TextWordWrap, m_message);
}

} // namespace tolvar
