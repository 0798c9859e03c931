#include "Gallery/Pages.h"

#include "Gallery/CardPages.h"
#include "Gallery/PickerPages.h"
#include "Gallery/SessionPages.h"
#include "Gallery/States.h"
#include "Gallery/SwipePage.h"
#include "Gallery/TouchPage.h"
#include "Gallery/WindowPages.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/InstrumentSlider.h"
#include "Views/Shared/InstrumentSwitch.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"
#include "Views/Shared/Lamp.h"
#include "Views/Shared/Sheet.h"
#include "Views/Theme/Instrument.h"

#include <QGridLayout>
#include <QMenu>
#include <QPixmap>
#include <QStyleOption>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 24;

/// A piece of the panel to lay controls out on.
class Panel : public QWidget {
public:
    Panel() {
        m_grid = new QGridLayout(this);
        m_grid->setContentsMargins(margin, margin, margin, margin);
        m_grid->setHorizontalSpacing(14);
        m_grid->setVerticalSpacing(12);
    }
    QGridLayout& grid() { return *m_grid; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Instrument::Palette::panel);
    }

private:
    QGridLayout* m_grid;
};

using Make = std::function<QWidget*()>;

void addHeadings(QGridLayout& grid) {
    int column = 1;
    for (const State state : allStates)
        grid.addWidget(new SectionLabel(nameOf(state)), 0, column++, Qt::AlignHCenter);
}

/// One row: the control in each of its states.
void addStates(QGridLayout& grid, const QString& name, const Make& make) {
    const int row = grid.rowCount();
    grid.addWidget(new SectionLabel(name), row, 0);
    int column = 1;
    for (const State state : allStates) {
        QWidget* control = make();
        QWidget* shown = state == State::focused ? new Ringed(control) : control;
        grid.addWidget(shown, row, column++, Qt::AlignCenter);
        bringInto(*control, state);
    }
}

KeyStyle keyOf(const Bevel& bevel) {
    KeyStyle style = KeyStyle::standard();
    style.bevel = bevel;
    return style;
}

QWidget* keys(const ControlContext& context) {
    auto* sheet = new Panel;
    addHeadings(sheet->grid());
    const auto add = [&](const QString& name, const KeyStyle& style, const QString& text,
                         std::optional<Symbol> symbol) {
        addStates(sheet->grid(), name, [&context, style, text, symbol] {
            auto* key = new KeyButton(context, style, text);
            if (symbol)
                key->setSymbol(*symbol);
            return key;
        });
    };
    add(u"Key"_s, KeyStyle::standard(), u"25 min"_s, {});
    add(u"Key with symbol"_s, KeyStyle::standard(), u"Pause"_s, Symbol::pause);
    add(u"Card key"_s, keyOf(Bevel::cardKey), u"Start"_s, Symbol::play);
    add(u"Primary"_s, KeyStyle::primary(), u"Start focus"_s, Symbol::playFill);
    add(u"Inline"_s, KeyStyle::inlineKey(), u"Play"_s, Symbol::playFill);
    add(u"Nudge"_s, KeyStyle::nudge(), u"Add category"_s, Symbol::plus);
    return sheet;
}

QWidget* switches(const ControlContext& context) {
    auto* sheet = new Panel;
    addHeadings(sheet->grid());
    addStates(sheet->grid(), u"Switch off"_s,
              [&] { return new InstrumentSwitch(context, u"Sounds"_s); });
    addStates(sheet->grid(), u"Switch on"_s, [&] {
        auto* control = new InstrumentSwitch(context, u"Sounds"_s);
        control->setChecked(true);
        return control;
    });
    for (const double amount : {0.0, 0.5, 1.0})
        addStates(sheet->grid(), u"Slider %1"_s.arg(amount), [&context, amount] {
            InstrumentSlider::Style style;
            style.preferredWidth = 96;
            auto* control = new InstrumentSlider(context, u"Volume"_s, style);
            control->setFixedWidth(style.preferredWidth);
            control->setAmount(amount);
            return control;
        });
    return sheet;
}

QWidget* lamps(const ControlContext& context) {
    namespace Palette = Instrument::Palette;
    auto* sheet = new Panel;
    int row = 0;
    for (const auto& [name, color] : {std::pair{u"Amber"_s, Palette::amber},
                                      {u"Stop"_s, Palette::stop},
                                      {u"Success"_s, Palette::success},
                                      {u"Label"_s, Palette::labelSecondary}}) {
        sheet->grid().addWidget(new SectionLabel(name), row, 0);
        int column = 1;
        for (const bool isOn : {false, true})
            for (const double size : {6.0, 7.0, 12.0}) {
                auto* lamp = new Lamp(context.motion, size);
                lamp->setColor(color);
                lamp->setOn(isOn);
                sheet->grid().addWidget(lamp, row, column++, Qt::AlignCenter);
            }
        ++row;
    }
    return sheet;
}

QWidget* fields(const ControlContext& context) {
    auto* sheet = new Panel;
    const auto add = [&](const QString& name, const QString& text, bool isEnabled) {
        const int row = sheet->grid().rowCount();
        auto* field = new InstrumentField(context, u"What is your goal?"_s, {});
        field->setText(text);
        field->setEnabled(isEnabled);
        field->setFixedWidth(360);
        sheet->grid().addWidget(new SectionLabel(name), row, 0);
        sheet->grid().addWidget(field, row, 1);
    };
    add(u"Empty"_s, {}, true);
    add(u"Filled"_s, u"Write the second chapter"_s, true);
    add(u"Too long"_s, u"Write the second chapter, then read it aloud and cut a third of it"_s,
        true);
    add(u"Disabled"_s, u"Write the second chapter"_s, false);
    sheet->grid().addWidget(new EmptyState(Symbol::clock, u"No sessions yet"_s,
                                           u"Start your first focus session to see your history "
                                           "here."_s),
                            sheet->grid().rowCount(), 1);
    return sheet;
}

QWidget* sheet(const ControlContext& context) {
    auto* page = new Panel;
    page->grid().addWidget(new InstrumentField(context, u"What is your goal?"_s, {}), 0, 0);
    auto* key = new KeyButton(context, KeyStyle::standard(), u"Clear history…"_s);
    page->grid().addWidget(key, 1, 0, Qt::AlignLeft);
    page->grid().setRowStretch(2, 1);
    page->setMinimumSize(400, 300);
    page->resize(page->minimumSize());
    auto* question = new ConfirmationSheet(
        context,
        {.title = u"Clear All History?"_s,
         .message = u"This will permanently delete all your session history."_s,
         .cancel = u"Cancel"_s,
         .confirm = u"Clear All"_s},
        *page);
    QObject::connect(key, &KeyButton::clicked, question, &ConfirmationSheet::rise);
    question->rise();
    return page;
}

/// A picture of what would be a window of its own.
class Photograph final : public QWidget {
public:
    explicit Photograph(const QPixmap& picture)
        : m_picture(picture) {
        setFixedSize(picture.deviceIndependentSize().toSize());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    const QPixmap m_picture;
};

QWidget* photographOfMenu() {
    QMenu menu;
    menu.addAction(u"Focus again"_s);
    menu.addAction(u"Save as preset"_s)->setEnabled(false);
    menu.addSeparator();
    QAction* last = menu.addAction(u"Delete"_s);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    menu.setActiveAction(last);
    return new Photograph(menu.grab());
}

/// Qt's own label for tooltips cannot be had without showing one.
class Tip final : public QWidget {
public:
    Tip() { setFixedSize(tipText().size() + QSize(14, 14)); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QStyleOptionFrame option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_PanelTipLabel, &option, &painter, this);
        Paint::text(painter, rect(), text(), Instrument::font(11), Instrument::Palette::label,
                    Qt::AlignHCenter);
    }

private:
    static QString text() { return u"Add 5 minutes"_s; }
    static QRect tipText() { return QFontMetrics(Instrument::font(11)).boundingRect(text()); }
};

QWidget* menus(const ControlContext&) {
    auto* sheet = new Panel;
    sheet->grid().addWidget(new SectionLabel(u"Context menu"_s), 0, 0);
    sheet->grid().addWidget(photographOfMenu(), 0, 1);
    sheet->grid().addWidget(new SectionLabel(u"Tooltip"_s), 1, 0);
    sheet->grid().addWidget(new Tip, 1, 1, Qt::AlignLeft);
    return sheet;
}

QWidget* symbols(const ControlContext&) {
    class Drawing final : public QWidget {
    public:
        Drawing(Symbol symbol, double size)
            : m_symbol(symbol)
            , m_size(size) {
            setFixedSize(symbolSize(symbol, size).toSize() + QSize(2, 2));
        }

    protected:
        void paintEvent(QPaintEvent*) override {
            QPainter painter(this);
            paintSymbol(painter, m_symbol, QRectF(QPointF(1, 1), symbolSize(m_symbol, m_size)),
                        Instrument::Palette::label);
        }

    private:
        const Symbol m_symbol;
        const double m_size;
    };
    auto* sheet = new Panel;
    int cell = 0;
    for (const Symbol symbol : allSymbols()) {
        const int row = cell / 3;
        const int column = cell % 3 * 5;
        sheet->grid().addWidget(new SectionLabel(symbolName(symbol)), row, column);
        int aside = 1;
        for (const double size : {10.0, 12.0, 17.0, 24.0})
            sheet->grid().addWidget(new Drawing(symbol, size), row, column + aside++,
                                    Qt::AlignCenter);
        ++cell;
    }
    return sheet;
}

} // namespace

const std::vector<Page>& pages() {
    const auto touch = [](const ControlContext& context) -> QWidget* {
        return new TouchPage(context);
    };
    static const std::vector<Page> all = [&] {
        std::vector<Page> made{
            {u"touch"_s, touch},     {u"keys"_s, keys},       {u"switches"_s, switches},
            {u"lamps"_s, lamps},     {u"fields"_s, fields},   {u"sheet"_s, sheet},
            {u"menus"_s, menus},     {u"symbols"_s, symbols}, {u"session"_s, sessionPage},
            {u"pause"_s, pausePage}, {u"goals"_s, goalsPage}, swipePage()};
        std::ranges::copy(pickerPages(), std::back_inserter(made));
        std::ranges::copy(cardPages(), std::back_inserter(made));
        std::ranges::copy(windowPages(), std::back_inserter(made));
        return made;
    }();
    return all;
}

} // namespace tolvar::gallery
