#include "Views/FocusWindow/ModeButton.h"

#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <QAccessibleWidget>

#include <utility>

namespace tolvar {

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    double symbol = 17;
    double radius = 7;
    /// How much of the way to the brighter ink the pointer brings an unlit symbol.
    double hover = 0.6;
};
constexpr Look look;

const Eased lightChange{0.2, Easing::easeOut()};
const Eased hoverChange{0.15, Easing::easeOut()};

KeyframeTrack pop() {
    SpringKeyframe out;
    out.value = 1.18;
    out.duration = 0.14;
    SpringKeyframe back;
    back.value = 1;
    back.duration = 0.3;
    return KeyframeTrack(1, {out, back});
}

class TabFace final : public QAccessibleWidget {
public:
    explicit TabFace(ModeButton* button)
        : QAccessibleWidget(button, QAccessible::PageTab) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = button().isSelected();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            button().click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    ModeButton& button() const { return *static_cast<ModeButton*>(widget()); }
};

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* button = qobject_cast<ModeButton*>(object);
    return button ? new TabFace(button) : nullptr;
}

} // namespace

ModeButton::ModeButton(const ControlContext& context, FocusTab tab, QWidget* parent)
    : QAbstractButton(parent)
    , m_tab(tab)
    , m_light(context.motion, 0, [this] { update(); })
    , m_hover(context.motion, 0, [this] { update(); })
    , m_pop(context.motion, {pop()}, [this] { update(); }) {
    QAccessible::installFactory(faceOf);
    setAccessibleName(title(tab));
    setToolTip(title(tab));
    setFocusPolicy(Qt::NoFocus);
}

void ModeButton::setSelected(bool selected) {
    setFocusPolicy(selected ? Qt::TabFocus : Qt::NoFocus);
    if (std::exchange(m_isSelected, selected) == selected)
        return;
    m_light.animateTo(selected ? 1 : 0, lightChange);
    if (selected && isVisible())
        m_pop.play();
    if (!isVisible())
        m_light.finish();
    QAccessible::State changedState;
    changedState.selected = true;
    QAccessibleStateChangeEvent changed(this, changedState);
    QAccessible::updateAccessibility(&changed);
}

QSize ModeButton::sizeHint() const {
    return symbolSize(symbol(m_tab), look.symbol).toSize();
}

double ModeButton::focusRadius() const {
    return look.radius;
}

void ModeButton::enterEvent(QEnterEvent*) {
    m_hover.animateTo(1, hoverChange);
}

void ModeButton::leaveEvent(QEvent*) {
    m_hover.animateTo(0, hoverChange);
}

void ModeButton::hideEvent(QHideEvent* event) {
    QAbstractButton::hideEvent(event);
    m_light.finish();
    m_pop.finish();
    m_hover.jumpTo(0);
}

void ModeButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPointF center = QRectF(rect()).center();
    QRectF box(QPointF(0, 0), symbolSize(symbol(m_tab), look.symbol));
    box.moveCenter(center);
    if (m_pop.isPlaying()) {
        painter.translate(center);
        painter.scale(m_pop.value(), m_pop.value());
        painter.translate(-center);
    }
    const QColor unlit =
        mixedColor(Palette::labelTertiary, Palette::labelSecondary, look.hover * m_hover.value());
    paintSymbol(painter, symbol(m_tab), box, mixedColor(unlit, Palette::amber, m_light.value()));
}

} // namespace tolvar
