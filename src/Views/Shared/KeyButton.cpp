#include "Views/Shared/KeyButton.h"

#include "Views/Paint/Paint.h"
#include "Views/Shared/ReturnKey.h"
#include "Views/Theme/Feedback.h"
#include "Views/Theme/Instrument.h"

#include <QAccessibleWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvar {

namespace {

const Eased hoverChange{0.15, Easing::easeOut()};

/// What assistive technology knows of a key.
class KeyFace final : public QAccessibleWidget {
public:
    explicit KeyFace(KeyButton* key)
        : QAccessibleWidget(key, QAccessible::Button) {}

    QString text(QAccessible::Text kind) const override {
        const QString said = QAccessibleWidget::text(kind);
        return said.isEmpty() && kind == QAccessible::Name ? key().name() : said;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checked = key().isLatched();
        state.pressed = key().isDown();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            key().animateClick();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    KeyButton& key() const { return *static_cast<KeyButton*>(widget()); }
};

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* key = qobject_cast<KeyButton*>(object);
    return key ? new KeyFace(key) : nullptr;
}

QSize roundedUp(const QSizeF& size) {
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

} // namespace

KeyButton::KeyButton(const ControlContext& context, KeyStyle style, const QString& name,
                     QWidget* parent)
    : QPushButton(parent)
    , m_context(context)
    , m_style(std::move(style))
    , m_name(name)
    , m_depth(context.motion, 0, [this] { update(); })
    , m_scale(context.motion, 1, [this] { update(); })
    , m_latch(context.motion, 0, [this] { update(); })
    , m_hover(context.motion, 0, [this] { update(); }) {
    QAccessible::installFactory(faceOf);
    connect(this, &QPushButton::pressed, this, [this] { moveTo(true); });
    connect(this, &QPushButton::released, this, [this] { moveTo(false); });
}

void KeyButton::setName(const QString& name) {
    m_name = name;
    updateGeometry();
    update();
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

void KeyButton::setSymbol(Symbol symbol) {
    m_symbol = symbol;
    updateGeometry();
    update();
}

void KeyButton::setShowsText(bool shows) {
    m_showsText = shows;
    updateGeometry();
    update();
}

void KeyButton::setLatched(bool latched) {
    if (std::exchange(m_isLatched, latched) == latched)
        return;
    bring(m_latch, latched ? 1 : 0, Instrument::Motion::latch);
    settle(Instrument::Motion::latch);
    QAccessible::State checked;
    checked.checked = true;
    QAccessibleStateChangeEvent changed(this, checked);
    QAccessible::updateAccessibility(&changed);
}

QSize KeyButton::sizeHint() const {
    return roundedUp(labelSize().grownBy(m_style.padding));
}

QSizeF KeyButton::labelSize() const {
    const QSizeF symbol = m_symbol ? symbolSize(*m_symbol, m_style.symbolSize) : QSizeF(0, 0);
    double width = symbol.width();
    double height = m_style.symbolSize;
    if (m_showsText && !m_name.isEmpty()) {
        width += (m_symbol ? m_style.spacing : 0) + Paint::textWidth(m_name, m_style.font);
        height = std::max(height, QFontMetricsF(m_style.font).height());
    }
    return {width, height};
}

double KeyButton::depth() const {
    if (isHeld())
        return pressedDepth;
    return isLatched() ? latchedDepth : 0;
}

/// What nobody sees need not move.
void KeyButton::bring(AnimatedValue& value, double target, const Curve& curve) {
    if (isVisible())
        value.animateTo(target, curve);
    else
        value.jumpTo(target);
}

void KeyButton::settle(const Spring& spring) {
    bring(m_depth, depth(), spring);
    bring(m_scale, isHeld() ? pressedScale : 1, spring);
}

void KeyButton::moveTo(bool isHeld) {
    settle(isHeld ? Instrument::Motion::keyDown : Instrument::Motion::keyUp);
    m_context.feedback.keyMoved(isHeld, m_style.taps, m_clicks);
}

void KeyButton::updateHover() {
    m_hover.animateTo(isEnabled() && underMouse() ? 1 : 0, hoverChange);
}

void KeyButton::enterEvent(QEnterEvent* event) {
    QPushButton::enterEvent(event);
    updateHover();
}

void KeyButton::leaveEvent(QEvent* event) {
    QPushButton::leaveEvent(event);
    updateHover();
}

void KeyButton::changeEvent(QEvent* event) {
    QPushButton::changeEvent(event);
    if (event->type() != QEvent::EnabledChange)
        return;
    updateHover();
    settle(Instrument::Motion::keyUp);
}

/// No hand is on it when it is seen again.
void KeyButton::hideEvent(QHideEvent* event) {
    QPushButton::hideEvent(event);
    setDown(false);
    settle(Instrument::Motion::keyUp);
    m_latch.finish();
    m_hover.jumpTo(0);
}

void KeyButton::keyPressEvent(QKeyEvent* event) {
    withReturnAsSpace(event, [this](QKeyEvent* key) { QPushButton::keyPressEvent(key); });
}

void KeyButton::keyReleaseEvent(QKeyEvent* event) {
    withReturnAsSpace(event, [this](QKeyEvent* key) { QPushButton::keyReleaseEvent(key); });
}

QColor KeyButton::ink() const {
    if (!isEnabled())
        return m_style.disabledInk;
    return mixedColor(m_style.ink, m_style.latchedInk, m_latch.value());
}

void KeyButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF face(rect());
    if (m_scale.value() != 1) {
        painter.translate(face.center());
        painter.scale(m_scale.value(), m_scale.value());
        painter.translate(-face.center());
    }
    const Bevel relief = Bevel::mixed(m_style.bevel, m_style.latchedBevel, m_latch.value());
    const Bevel bevel = isEnabled() ? relief : relief.flattened();
    Paint::bevel(painter, face, m_style.radius, bevel);
    Paint::hover(painter, face, m_style.radius, bevel, m_hover.value());
    paintLabel(painter, labelPlace().translated(0, m_depth.value()), ink());
}

/// In the middle of the face, which is not that of the key: the edge below it is the wider one.
QRectF KeyButton::labelPlace() const {
    const double rise = (m_style.bevel.bottomWidth - m_style.bevel.topWidth) / 2;
    return QRectF(rect()).marginsRemoved(m_style.padding).translated(0, -rise);
}

void KeyButton::paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) {
    const double width = std::min(labelSize().width(), label.width());
    QRectF rest(label.center().x() - width / 2, label.top(), width, label.height());
    if (m_symbol) {
        QRectF box(rest.topLeft(), symbolSize(*m_symbol, m_style.symbolSize));
        box.moveTop(rest.center().y() - box.height() / 2);
        if (layoutDirection() == Qt::RightToLeft) {
            box.moveRight(rest.right());
            rest.setRight(box.left() - m_style.spacing);
        } else {
            rest.setLeft(box.right() + m_style.spacing);
        }
        paintSymbol(painter, *m_symbol, box, ink, m_style.symbolWeight);
    }
    if (m_showsText)
        Paint::text(painter, rest, m_name, m_style.font, ink);
}

} // namespace tolvar
