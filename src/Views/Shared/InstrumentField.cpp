#include "Views/Shared/InstrumentField.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

constexpr double focusStrength = 0.6;
const Eased focusChange{0.15, Easing::easeOut()};

QPalette inks() {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, Palette::label);
    palette.setColor(QPalette::PlaceholderText, Palette::labelDim);
    palette.setColor(QPalette::Highlight, Palette::amberRim);
    palette.setColor(QPalette::HighlightedText, Palette::label);
    palette.setColor(QPalette::Disabled, QPalette::Text, Palette::labelQuaternary);
    return palette;
}

} // namespace

InstrumentField::InstrumentField(const ControlContext& context, const QString& placeholder,
                                 const Style& style, QWidget* parent)
    : QLineEdit(parent)
    , m_style(style)
    , m_focus(context.motion, 0, [this] { update(); }) {
    setFrame(false);
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setFont(Instrument::font(style.fontSize));
    setPalette(inks());
    // A line edit keeps two points at each side of its text for itself.
    setTextMargins(style.padding - QMargins(2, 0, 2, 0));
}

QSize InstrumentField::sizeHint() const {
    const QMargins& padding = m_style.padding;
    const int height = QFontMetrics(font()).height() + padding.top() + padding.bottom();
    return {QLineEdit::sizeHint().width(), height};
}

QSize InstrumentField::minimumSizeHint() const {
    return {QLineEdit::minimumSizeHint().width(), sizeHint().height()};
}

void InstrumentField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_focus.animateTo(1, focusChange);
}

void InstrumentField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    m_focus.animateTo(0, focusChange);
}

void InstrumentField::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    m_focus.finish();
}

void InstrumentField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        const QRectF face(rect());
        Paint::bevel(painter, face, m_style.radius,
                     isEnabled() ? Bevel::field : Bevel::field.flattened());
        QColor rim = Palette::amber;
        rim.setAlphaF(static_cast<float>(focusStrength * m_focus.value()));
        Paint::outline(painter, face, m_style.radius, rim);
    }
    QLineEdit::paintEvent(event);
}

} // namespace tolvar
