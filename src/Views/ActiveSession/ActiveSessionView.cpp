#include "Views/ActiveSession/ActiveSessionView.h"

#include "Models/FocusManager.h"
#include "Views/ActiveSession/DialDrawing.h"
#include "Views/ActiveSession/ExtendFloater.h"
#include "Views/ActiveSession/GoalSection.h"
#include "Views/ActiveSession/PauseKey.h"
#include "Views/ActiveSession/TimerDial.h"
#include "Views/Paint/Paint.h"
#include "Views/Theme/Feedback.h"
#include "Views/Theme/Instrument.h"

#include <QStyle>

#include <initializer_list>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct ScreenStyle {
    int width = 400;
    int height = 502;
    int goalTop = 34;
    int goalSides = 30;
    int belowCaption = 8;
    int aboveDial = 30;
    int leastBelowDial = 22;
    int keySides = 20;
    int keySpacing = 9;
    int bottom = 24;
};
constexpr ScreenStyle screenStyle;

struct KeyLabelStyle {
    double plus = 13;
    double five = 16;
    double spacing = 2;
    double stop = 15;
};
constexpr KeyLabelStyle labelStyle;

QRectF symbolBox(Symbol symbol, double pointSize, const QPointF& center) {
    QRectF box(QPointF(), symbolSize(symbol, pointSize));
    box.moveCenter(center);
    return box;
}

void paintExtendLabel(const ControlButton::Canvas& canvas) {
    const QFont font = Instrument::font(labelStyle.five);
    const double plus = symbolSize(Symbol::plus, labelStyle.plus).width();
    const double five = Paint::textWidth(u"5"_s, font);
    const QPointF middle = canvas.place.center();
    const double left = middle.x() - (plus + labelStyle.spacing + five) / 2;
    paintSymbol(canvas.painter, Symbol::plus,
                symbolBox(Symbol::plus, labelStyle.plus, {left + plus / 2, middle.y()}), canvas.ink,
                SymbolWeight::semibold);
    const QRectF text(left + plus + labelStyle.spacing, canvas.place.top(), five,
                      canvas.place.height());
    Paint::text(canvas.painter, text, u"5"_s, font, canvas.ink);
}

void paintStopLabel(const ControlButton::Canvas& canvas) {
    paintSymbol(canvas.painter, Symbol::stop,
                symbolBox(Symbol::stop, labelStyle.stop, canvas.place.center()), canvas.ink,
                SymbolWeight::semibold);
}

} // namespace

ActiveSessionView::ActiveSessionView(const ControlContext& context, FocusManager& manager,
                                     QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_manager(manager)
    , m_caption(new GoalCaption(context.motion, this))
    , m_goal(new GoalText(this))
    , m_dial(new TimerDial(context.motion, this))
    , m_pauseKey(new PauseKey(
          context, [this] { pauseOrResume(); }, this))
    , m_extendKey(makeExtendKey())
    , m_stopKey(makeStopKey())
    , m_floater(new ExtendFloater(context.motion, this)) {
    setTabOrder(m_pauseKey, m_extendKey);
    setTabOrder(m_extendKey, m_stopKey);
    m_floater->setTrigger(m_extendCount);
    connect(&manager, &FocusManager::changed, this, &ActiveSessionView::refresh);
    refresh();
}

ControlButton* ActiveSessionView::makeExtendKey() {
    return new ControlButton(
        m_context, u"Add 5 minutes"_s, [this] { extend(); }, paintExtendLabel, Palette::extend,
        this);
}

ControlButton* ActiveSessionView::makeStopKey() {
    return new ControlButton(
        m_context, u"Stop"_s, [this] { stop(); }, paintStopLabel, Palette::stop, this);
}

void ActiveSessionView::pauseOrResume() {
    if (m_pauseKey->face().action == PauseKeyFace::Action::resume)
        m_manager.resumeSession();
    else
        m_manager.pauseSession();
}

void ActiveSessionView::extend() {
    m_context.feedback.play(Feedback::Event::sessionExtended);
    m_floater->setTrigger(++m_extendCount);
    m_manager.extendSession(extension);
}

/// The view may be gone when it returns.
void ActiveSessionView::stop() {
    m_context.feedback.play(Feedback::Event::sessionStopped);
    m_manager.stopSession();
}

void ActiveSessionView::refresh() {
    const auto& session = m_manager.currentSession();
    showParts(session.has_value());
    if (!session)
        return;
    const auto face = PauseKeyFace::of(*session);
    // The ring shows again only where it was seen before.
    if (!face.isEnabled && m_pauseKey->hasFocus())
        m_extendKey->setFocus(Qt::OtherFocusReason);
    m_caption->setPaused(session->isPaused);
    if (m_goal->goal() != session->goal) {
        m_goal->setGoal(session->goal);
        place();
        updateGeometry();
    }
    m_dial->setReading(DialReading::of(*session, m_manager.clock().now()));
    m_pauseKey->setFace(face);
}

void ActiveSessionView::showParts(bool isShown) {
    const std::initializer_list<QWidget*> parts{m_caption,   m_goal,    m_dial,   m_pauseKey,
                                                m_extendKey, m_stopKey, m_floater};
    for (QWidget* part : parts)
        part->setVisible(isShown);
}

void ActiveSessionView::takeKeyboard(Qt::FocusReason reason) {
    QWidget* first = m_pauseKey->isEnabled() ? static_cast<QWidget*>(m_pauseKey) : m_extendKey;
    first->setFocus(reason);
}

QSize ActiveSessionView::sizeHint() const {
    return {screenStyle.width, screenStyle.height};
}

QSize ActiveSessionView::minimumSizeHint() const {
    const int dialBottom = m_dial->geometry().bottom() + 1 - DialMeasures::overhang;
    return {screenStyle.width, dialBottom + screenStyle.leastBelowDial +
                                   m_stopKey->sizeHint().height() + screenStyle.bottom};
}

void ActiveSessionView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

/// A column: the goal, the dial below it, and the keys at the bottom.
void ActiveSessionView::place() {
    const int textWidth = width() - 2 * screenStyle.goalSides;
    m_caption->setGeometry(screenStyle.goalSides, screenStyle.goalTop, textWidth,
                           m_caption->sizeHint().height());
    const int goalTop = m_caption->geometry().bottom() + 1 + screenStyle.belowCaption;
    m_goal->setGeometry(screenStyle.goalSides, goalTop, textWidth,
                        m_goal->heightForWidth(textWidth));
    m_dial->move((width() - m_dial->width()) / 2,
                 m_goal->geometry().bottom() + 1 + screenStyle.aboveDial - DialMeasures::overhang);
    placeKeys();
}

void ActiveSessionView::placeKeys() {
    const int height = m_stopKey->sizeHint().height();
    const int top = this->height() - screenStyle.bottom - height;
    const std::initializer_list<QWidget*> keys{m_pauseKey, m_extendKey, m_stopKey};
    const auto count = static_cast<int>(keys.size());
    const int room = width() - 2 * screenStyle.keySides - (count - 1) * screenStyle.keySpacing;
    int index = 0;
    for (QWidget* key : keys) {
        // Whole points, and none lost at the end of the row.
        const int left = room * index / count;
        const int right = room * (index + 1) / count;
        const QRect place(screenStyle.keySides + left + index * screenStyle.keySpacing, top,
                          right - left, height);
        key->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
        ++index;
    }
    m_floater->placeOver(m_extendKey->geometry());
}

} // namespace tolvar
