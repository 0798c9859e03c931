#include "Views/Presets/GoalInputSheet.h"

#include "Extensions/DurationFormatting.h"
#include "Views/Paint/Paint.h"
#include "Views/Presets/CardLook.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QVBoxLayout>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    int between = 9;
    int belowHeading = 8;
    int aboveKeys = 7;
    int betweenKeys = 8;
    int headingHeight = 24;
    double besideTitle = 12;
};
constexpr Look look;

KeyStyle startKeyStyle() {
    KeyStyle style = KeyStyle::primary();
    style.font = Instrument::font(12, QFont::Medium, 0.24);
    style.padding = {13, 11, 13, 12};
    style.radius = 7;
    style.symbolSize = 12;
    style.symbolWeight = SymbolWeight::semibold;
    style.spacing = 7;
    return style;
}

KeyStyle cancelKeyStyle() {
    KeyStyle style = KeyStyle::card();
    style.padding = {13, 11, 13, 12};
    return style;
}

QFont titleFont() {
    return Instrument::font(17, QFont::Medium, 0.17);
}

} // namespace

/// What is to be started, and for how long. What it says the sheet is called.
class GoalInputSheet::Heading final : public QWidget {
public:
    void setTexts(const QString& title, const QString& duration) {
        m_title = title;
        m_duration = duration;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QRectF line(rect());
        const QFont small = CardLook::smallFont(QFont::Medium);
        const QRectF end = CardLook::takeFromEnd(line, Paint::textWidth(m_duration, small),
                                                 look.besideTitle, layoutDirection());
        Paint::text(painter, line, m_title, titleFont(), Palette::label,
                    CardLook::leading(layoutDirection()));
        Paint::text(painter, end, m_duration, small, Palette::labelSecondary,
                    CardLook::leading(layoutDirection()));
    }

private:
    QString m_title;
    QString m_duration;
};

GoalInputSheet::GoalInputSheet(const ControlContext& context, QWidget& window)
    : Sheet(context, {}, window) {
    setContent(makeContent(context));
    connect(m_goal, &QLineEdit::textChanged, this,
            [this] { m_start->setEnabled(!goal().isEmpty()); });
    connect(m_goal, &QLineEdit::returnPressed, this, &GoalInputSheet::start);
}

QWidget* GoalInputSheet::makeContent(const ControlContext& context) {
    auto* content = new QWidget;
    content->setFixedWidth(fixedWidth - 2 * padding);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(look.between);
    m_heading = new Heading;
    m_heading->setFixedHeight(look.headingHeight);
    column->addWidget(m_heading);
    column->addSpacing(look.belowHeading);
    auto* label = new SectionLabel(u"What is your goal?"_s);
    column->addWidget(label, 0, Qt::AlignLeading);
    m_goal = new InstrumentField(context, u"e.g. Write the blog post"_s, {});
    m_goal->setAccessibleName(label->text());
    column->addWidget(m_goal);
    column->addSpacing(look.aboveKeys);
    column->addWidget(makeKeys(context));
    return content;
}

QWidget* GoalInputSheet::makeKeys(const ControlContext& context) {
    auto* keys = new QWidget;
    auto* row = new QHBoxLayout(keys);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(look.betweenKeys);
    auto* cancel = new KeyButton(context, cancelKeyStyle(), u"Cancel"_s);
    m_start = new KeyButton(context, startKeyStyle(), u"Start focus"_s);
    m_start->setSymbol(Symbol::play);
    row->addWidget(cancel, 1);
    row->addWidget(m_start, 1);
    connect(cancel, &KeyButton::clicked, this, &Sheet::sink);
    connect(m_start, &KeyButton::clicked, this, &GoalInputSheet::start);
    return keys;
}

void GoalInputSheet::ask(const QString& title, Seconds duration) {
    const QString length = isShowable(duration) ? formattedCompact(duration) : QString();
    m_heading->setTexts(title.simplified(), length);
    setAccessibleName(title);
    setAccessibleDescription(length);
    m_goal->clear();
    m_start->setEnabled(false);
    rise();
    m_goal->setFocus(Qt::OtherFocusReason);
}

QString GoalInputSheet::goal() const {
    return m_goal->text().trimmed();
}

void GoalInputSheet::start() {
    const QString given = goal();
    if (given.isEmpty() || !isUp())
        return;
    sink();
    Q_EMIT started(given);
}

} // namespace tolvar
