#include "Views/Shared/Sheet.h"

#include "Views/Paint/Paint.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Theme/Instrument.h"

#include <QAccessibleWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double radius = 14;
    /// How much of the window behind it is left dark.
    double dimming = 0.62;
    int textWidth = 280;
    int belowTitle = 8;
    int belowMessage = 18;
    int betweenKeys = 8;
};
constexpr Look look;

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* sheet = qobject_cast<Sheet*>(object);
    return sheet ? new QAccessibleWidget(sheet, QAccessible::Dialog) : nullptr;
}

bool takesTab(const QWidget& widget) {
    return widget.isEnabled() && widget.isVisible() &&
           (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

QLabel* label(const QString& text, const QFont& font, const QColor& ink) {
    auto* made = new QLabel(text);
    QPalette inks;
    inks.setColor(QPalette::WindowText, ink);
    made->setFont(font);
    made->setPalette(inks);
    made->setTextFormat(Qt::PlainText);
    made->setWordWrap(true);
    made->setFixedWidth(look.textWidth);
    return made;
}

} // namespace

Sheet::Sheet(const ControlContext& context, const QString& title, QWidget& window)
    : QWidget(&window)
    , m_height(context.motion, 0, [this] { place(); }) {
    QAccessible::installFactory(faceOf);
    setAccessibleName(title);
    setFocusPolicy(Qt::StrongFocus);
    window.installEventFilter(this);
    hide();
}

void Sheet::setContent(QWidget* content) {
    m_content = content;
    content->setParent(this);
    content->resize(content->sizeHint());
    place();
}

/// It comes up from below the window's edge.
QRectF Sheet::card() const {
    const QSizeF size = m_content ? QSizeF(m_content->size()) : QSizeF();
    QRectF rect(QPointF(0, 0), size.grownBy(QMarginsF(padding, padding, padding, padding)));
    rect.moveCenter(QRectF(this->rect()).center());
    rect.translate(0, (1 - m_height.value()) * (height() - rect.top()));
    return rect;
}

void Sheet::place() {
    if (m_content)
        m_content->move(card().topLeft().toPoint() + QPoint(padding, padding));
    if (!m_isUp && !m_height.isMoving())
        hide();
    update();
}

void Sheet::rise() {
    if (std::exchange(m_isUp, true))
        return;
    setAttribute(Qt::WA_TransparentForMouseEvents, false);
    m_focusedBefore = window()->focusWidget();
    setGeometry(parentWidget()->rect());
    raise();
    show();
    setFocus(Qt::OtherFocusReason);
    m_height.animateTo(1, Instrument::Motion::scene);
    place();
}

void Sheet::sink() {
    if (!std::exchange(m_isUp, false))
        return;
    setAttribute(Qt::WA_TransparentForMouseEvents);
    if (isVisible())
        m_height.animateTo(0, Instrument::Motion::scene);
    else
        m_height.jumpTo(0);
    if (m_focusedBefore)
        m_focusedBefore->setFocus(Qt::OtherFocusReason);
    place();
    Q_EMIT dismissed();
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        place();
    }
    return QWidget::eventFilter(watched, event);
}

/// Round and round within the card. The sheet itself has the keyboard only until somebody goes to
/// something on it.
bool Sheet::focusNextPrevChild(bool next) {
    QWidget* const start = focusWidget() ? focusWidget() : this;
    QWidget* widget = start;
    do
        widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    while (widget != start && !(widget != this && isAncestorOf(widget) && takesTab(*widget)));
    if (widget != start)
        widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void Sheet::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        sink();
    else
        event->ignore();
}

/// What is behind the card is out of reach.
void Sheet::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void Sheet::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_height.finish();
}

void Sheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor dark = Palette::panel;
    dark.setAlphaF(static_cast<float>(look.dimming * std::clamp(m_height.value(), 0.0, 1.0)));
    painter.fillRect(rect(), dark);
    Paint::bevel(painter, card(), look.radius, Bevel::card);
}

ConfirmationSheet::ConfirmationSheet(const ControlContext& context, const Texts& texts,
                                     QWidget& window)
    : Sheet(context, texts.title, window)
    , m_message(label(texts.message, Instrument::font(12), Palette::labelSecondary)) {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(label(texts.title, Instrument::font(15, QFont::Medium, 0.3), Palette::label));
    column->addSpacing(look.belowTitle);
    column->addWidget(m_message);
    column->addSpacing(look.belowMessage);
    auto* keys = new QHBoxLayout;
    keys->setSpacing(look.betweenKeys);
    auto* cancel = new KeyButton(context, KeyStyle::card(), texts.cancel);
    auto* confirm = new KeyButton(context, KeyStyle::destructive(), texts.confirm);
    keys->addWidget(cancel);
    keys->addWidget(confirm);
    column->addLayout(keys);
    setAccessibleDescription(texts.message);
    setContent(content);
    connect(cancel, &KeyButton::clicked, this, &Sheet::sink);
    connect(confirm, &KeyButton::clicked, this, [this] {
        if (!isUp())
            return;
        sink();
        Q_EMIT confirmed();
    });
}

void ConfirmationSheet::setMessage(const QString& message) {
    m_message->setText(message);
    setAccessibleDescription(message);
    setContent(m_message->parentWidget());
}

} // namespace tolvar
