#include "Views/ActiveSession/GoalSection.h"

#include "Views/ActiveSession/CrossFade.h"
#include "Views/ActiveSession/WrappedText.h"
#include "Views/Paint/Paint.h"
#include "Views/Theme/Instrument.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

struct GoalStyle {
    double captionSize = 11;
    double captionTracking = 0.44;
    double goalSize = 19;
    double goalTracking = 0.38;
    int mostLines = 3;
};
constexpr GoalStyle goalStyle;

QFont captionFont() {
    return Instrument::font(goalStyle.captionSize, QFont::Normal, goalStyle.captionTracking);
}

QString captionOf(bool isPaused) {
    return isPaused ? u"You were focusing on"_s : u"You're focusing on"_s;
}

} // namespace

GoalCaption::GoalCaption(AnimationDriver& driver, QWidget* parent)
    : SpokenText(parent)
    , m_pause(driver, 0, [this] { update(); }) {
    setAccessibleName(captionOf(false));
}

void GoalCaption::setPaused(bool isPaused) {
    const double target = isPaused ? 1 : 0;
    if (isVisible())
        m_pause.animateTo(target, Instrument::Motion::scene);
    else
        m_pause.jumpTo(target);
    setAccessibleName(captionOf(isPaused));
}

QSize GoalCaption::sizeHint() const {
    return {qRound(Paint::textWidth(captionOf(true), captionFont())),
            qCeil(QFontMetricsF(captionFont()).height())};
}

void GoalCaption::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const CrossFade fade(m_pause.value());
    const auto paint = [&](bool isPaused, double opacity) {
        painter.setOpacity(opacity);
        Paint::text(painter, rect(), captionOf(isPaused), captionFont(),
                    Instrument::Palette::labelTertiary, Qt::AlignHCenter);
    };
    paint(false, fade.first());
    paint(true, fade.second());
}

void GoalCaption::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_pause.finish();
}

GoalText::GoalText(QWidget* parent)
    : SpokenText(parent) {}

void GoalText::setGoal(const QString& goal) {
    m_goal = goal;
    setAccessibleName(goal);
    updateGeometry();
    update();
}

/// Scripts whose letters are joined do not bear tracking.
QFont GoalText::textFont() const {
    return Instrument::font(goalStyle.goalSize, QFont::Medium,
                            m_goal.isRightToLeft() ? 0 : goalStyle.goalTracking);
}

int GoalText::heightForWidth(int width) const {
    const auto lines = wrappedLines(m_goal, textFont(), width, goalStyle.mostLines).size();
    return qRound(QFontMetricsF(textFont()).height()) *
           static_cast<int>(std::max<std::size_t>(lines, 1));
}

void GoalText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setLayoutDirection(m_goal.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    QRectF line(0, 0, width(), qRound(QFontMetricsF(textFont()).height()));
    for (const QString& content : wrappedLines(m_goal, textFont(), width(), goalStyle.mostLines)) {
        Paint::text(painter, line, content, textFont(), Instrument::Palette::label,
                    Qt::AlignHCenter);
        line.translate(0, line.height());
    }
}

} // namespace tolvar
