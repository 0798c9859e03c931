#include "Gallery/TouchPage.h"

#include "Views/Paint/Paint.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"
#include "Views/Shared/Lamp.h"
#include "Views/Theme/CastleMark.h"
#include "Views/Theme/Instrument.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr int columnWidth = 360;
constexpr int margin = 24;
constexpr int spacing = 8;
constexpr std::size_t firstChoice = 1;

/// The castle at the sizes of a tray, an alert and the window's head.
class Castles final : public QWidget {
public:
    Castles() { setFixedHeight(40); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        double left = 0;
        for (const double size : {40.0, 32.0, 15.0}) {
            paintCastleMark(painter, {left, 40 - size, size, size}, Instrument::Palette::amber);
            left += size + 3 * spacing;
        }
    }
};

QWidget* row(const std::vector<QWidget*>& widgets) {
    auto* made = new QWidget;
    auto* layout = new QHBoxLayout(made);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    for (QWidget* widget : widgets)
        layout->addWidget(widget);
    return made;
}

} // namespace

TouchPage::TouchPage(const ControlContext& context)
    : m_context(context) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(spacing);
    const auto add = [column](const QString& title, QWidget* content) {
        if (!title.isEmpty())
            column->addWidget(new SectionLabel(title));
        content->setFixedWidth(columnWidth);
        column->addWidget(content);
        column->addSpacing(spacing);
    };
    add({}, makeCastles());
    add(u"What do you want to get done?"_s, makeGoal());
    add(u"How long do you need to focus?"_s, makeDurations());
    add(u"What would you like to block?"_s, makeLamps());
    add({}, makeStart());
    column->addStretch();
    m_shake = std::make_unique<HeadShake>(context.motion, *m_goal);
    m_shake->setCounter(m_refusals);
    choose(firstChoice);
}

QWidget* TouchPage::makeCastles() {
    return new Castles;
}

QWidget* TouchPage::makeGoal() {
    m_goal = new InstrumentField(m_context, u"What is your goal?"_s, {});
    connect(m_goal, &InstrumentField::returnPressed, this, &TouchPage::start);
    return m_goal;
}

QWidget* TouchPage::makeDurations() {
    std::vector<QWidget*> keys;
    for (const QString& name : {u"15 min"_s, u"25 min"_s, u"50 min"_s}) {
        const std::size_t index = m_durations.size();
        m_durations.push_back(new KeyButton(m_context, KeyStyle::standard(), name));
        connect(m_durations.back(), &KeyButton::clicked, this, [this, index] { choose(index); });
        keys.push_back(m_durations.back());
    }
    return row(keys);
}

QWidget* TouchPage::makeLamps() {
    m_lamp = new Lamp(m_context.motion, 7);
    auto* breathing = new Lamp(m_context.motion);
    breathing->setOn(true);
    breathing->setBreathing(true);
    auto* key = new KeyButton(m_context, KeyStyle::standard(), u"Social Media"_s);
    connect(key, &KeyButton::clicked, this, [this, key] {
        key->setLatched(!key->isLatched());
        m_lamp->setOn(key->isLatched());
    });
    QWidget* made = row({m_lamp, key, breathing});
    static_cast<QHBoxLayout*>(made->layout())->addStretch();
    return made;
}

QWidget* TouchPage::makeStart() {
    auto* key = new KeyButton(m_context, KeyStyle::primary(), u"Start focus"_s);
    key->setSymbol(Symbol::playFill);
    connect(key, &KeyButton::clicked, this, &TouchPage::start);
    return key;
}

void TouchPage::choose(std::size_t duration) {
    for (std::size_t i = 0; i < m_durations.size(); ++i)
        m_durations[i]->setLatched(i == duration);
}

void TouchPage::start() {
    if (m_goal->text().trimmed().isEmpty())
        m_shake->setCounter(++m_refusals);
}

void TouchPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Instrument::Palette::panel);
}

} // namespace tolvar::gallery
