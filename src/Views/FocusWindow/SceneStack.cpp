#include "Views/FocusWindow/SceneStack.h"

#include "Views/Theme/Instrument.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tolvar {

namespace {

/// How far below its place a scene comes from, in points.
constexpr double rise = 8;
const Spring entrance = Spring::withResponse(0.45, 0.9);
constexpr double entranceDelay = 0.12;
const Eased exit{0.12, Easing::easeIn()};

} // namespace

/// Covers the scenes during a change and draws both; the scene behind it lives on meanwhile, takes
/// the keyboard and the pointer.
class SceneStack::Curtain final : public QWidget {
public:
    explicit Curtain(SceneStack* stack)
        : QWidget(stack)
        , m_stack(*stack) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_OpaquePaintEvent);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Instrument::Palette::panel);
        painter.setOpacity(std::clamp(m_stack.m_leaving.value(), 0.0, 1.0));
        painter.drawPixmap(0, 0, m_stack.m_former);
        const double present = m_stack.m_entering.value();
        painter.setOpacity(std::clamp(present, 0.0, 1.0));
        painter.drawPixmap(QPointF(0, onPixels(rise * (1 - present))), m_stack.m_present);
    }

private:
    double onPixels(double length) const {
        return std::round(length * devicePixelRatioF()) / devicePixelRatioF();
    }

    SceneStack& m_stack;
};

SceneStack::SceneStack(AnimationDriver& driver, QWidget* parent)
    : QWidget(parent)
    , m_curtain(new Curtain(this))
    , m_entering(driver, 1, [this] { changed(); })
    , m_leaving(driver, 0, [this] { changed(); }) {}

SceneStack::~SceneStack() = default;

void SceneStack::bringOn(QWidget* scene) {
    if (scene == m_scene)
        return;
    const bool isSeen = isVisible() && m_scene;
    const QPixmap former = isSeen ? m_scene->grab() : QPixmap();
    if (m_scene)
        m_scene->hide();
    m_scene = scene;
    scene->setParent(this);
    scene->setGeometry(rect());
    scene->show();
    if (!isSeen)
        return finish();
    m_entering.jumpTo(0);
    m_leaving.jumpTo(1);
    m_entering.animateTo(1, entrance, {.delay = entranceDelay});
    m_leaving.animateTo(0, exit);
    m_former = former;
    changed();
}

void SceneStack::changed() {
    m_curtain->setVisible(isChanging());
    m_curtain->raise();
    m_curtain->update();
    m_present = isChanging() && m_scene && m_entering.value() > 0 ? m_scene->grab() : QPixmap();
    if (!isChanging())
        m_former = QPixmap();
}

void SceneStack::finish() {
    m_entering.finish();
    m_leaving.finish();
}

void SceneStack::resizeEvent(QResizeEvent*) {
    m_curtain->setGeometry(rect());
    if (m_scene)
        m_scene->setGeometry(rect());
}

void SceneStack::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    finish();
}

} // namespace tolvar
