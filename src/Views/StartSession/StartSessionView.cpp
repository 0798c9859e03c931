#include "Views/StartSession/StartSessionView.h"

#include "Models/CategoryStore.h"
#include "Models/FocusManager.h"
#include "Views/Shared/FadingScrollArea.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/Labels.h"
#include "Views/StartSession/ChoiceKeys.h"
#include "Views/StartSession/CustomAppsRow.h"
#include "Views/Theme/Feedback.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

struct Look {
    int side = 20;
    int top = 22;
    int bottom = 12;
    int betweenSections = 22;
    int belowLabel = 9;
    int betweenKeys = 8;
    int durationColumns = 3;
    int categoryColumns = 2;
    int aboveStart = 14;
    int belowStart = 24;
    double startSymbol = 13;
};
constexpr Look look;

KeyStyle startKeyStyle() {
    KeyStyle style = KeyStyle::primary();
    style.symbolSize = look.startSymbol;
    style.symbolWeight = SymbolWeight::bold;
    return style;
}

QGridLayout* keyGrid(QWidget* parent, int columns) {
    auto* grid = new QGridLayout(parent);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(look.betweenKeys);
    for (int column = 0; column < columns; ++column)
        grid->setColumnStretch(column, 1);
    return grid;
}

void addSection(QVBoxLayout& page, const QString& label, QWidget* content) {
    auto* section = new QVBoxLayout;
    section->setSpacing(look.belowLabel);
    section->addWidget(new SectionLabel(label), 0, Qt::AlignLeft);
    section->addWidget(content);
    page.addLayout(section);
}

} // namespace

StartSessionView::StartSessionView(const Environment& environment, QWidget* parent)
    : QWidget(parent)
    , m_environment(environment) {
    auto* start = new KeyButton(environment.context, startKeyStyle(), u"Start focus session"_s);
    start->setSymbol(Symbol::play);
    connect(start, &KeyButton::clicked, this, &StartSessionView::start);
    auto* startRow = new QVBoxLayout;
    startRow->setContentsMargins(look.side, look.aboveStart, look.side, look.belowStart);
    startRow->addWidget(start);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_page = new FadingScrollArea(makePage());
    column->addWidget(m_page, 1);
    column->addLayout(startRow);

    m_shake = std::make_unique<HeadShake>(environment.context.motion, *m_goal);
    m_shake->setCounter(m_missingGoalNudges);
    connect(&environment.categoryStore, &CategoryStore::categoriesChanged, this,
            &StartSessionView::showCategories);
}

StartSessionView::~StartSessionView() = default;

QWidget* StartSessionView::makePage() {
    auto* page = new QWidget;
    auto* sections = new QVBoxLayout(page);
    sections->setContentsMargins(look.side, look.top, look.side, look.bottom);
    sections->setSpacing(look.betweenSections);
    addSection(*sections, u"What do you want to get done?"_s, makeGoal());
    addSection(*sections, u"How long do you need to focus?"_s, makeDurations());
    addSection(*sections, u"What would you like to block?"_s, makeCategories());
    sections->addWidget(makeCustomApps());
    sections->addStretch();
    return page;
}

QWidget* StartSessionView::makeGoal() {
    m_goal = new InstrumentField(m_environment.context, u"What is your goal?"_s, {});
    connect(m_goal, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_plan.goal = text; });
    connect(m_goal, &QLineEdit::returnPressed, this, &StartSessionView::start);
    return m_goal;
}

QWidget* StartSessionView::makeDurations() {
    auto* keys = new QWidget;
    QGridLayout* grid = keyGrid(keys, look.durationColumns);
    for (const auto& [title, seconds] : SessionPlan::durations) {
        auto* key = new DurationButton(m_environment.context, title.toString());
        key->setLatched(seconds == m_plan.selectedDuration);
        connect(key, &KeyButton::clicked, this, [this, seconds = seconds] { choose(seconds); });
        const int place = static_cast<int>(m_durations.size());
        grid->addWidget(key, place / look.durationColumns, place % look.durationColumns);
        m_durations.push_back(key);
    }
    return keys;
}

QWidget* StartSessionView::makeCategories() {
    auto* keys = new QWidget;
    m_categoryGrid = keyGrid(keys, look.categoryColumns);
    showCategories();
    return keys;
}

/// The keys that are there stay, so that whoever is at one keeps the keyboard.
void StartSessionView::showCategories() {
    const auto& categories = m_environment.categoryStore.categories();
    std::vector<CategoryButton*> former = std::exchange(m_categories, {});
    for (const BlockCategory& category : categories) {
        const auto same = std::find_if(former.begin(), former.end(), [&](CategoryButton* key) {
            return key && key->categoryId() == category.id;
        });
        CategoryButton* key = nullptr;
        if (same != former.end()) {
            key = std::exchange(*same, nullptr);
            key->setCategoryName(category.name);
        } else {
            key = new CategoryButton(m_environment.context, category);
            connect(key, &KeyButton::clicked, this, [this, key] { toggle(key->categoryId()); });
        }
        key->setSelected(m_plan.selectedCategories.contains(category.id));
        const int place = static_cast<int>(m_categories.size());
        m_categoryGrid->addWidget(key, place / look.categoryColumns, place % look.categoryColumns);
        m_categories.push_back(key);
    }
    for (CategoryButton* key : former)
        delete key;
}

QWidget* StartSessionView::makeCustomApps() {
    m_customApps = new CustomAppsRow(m_environment.context, m_environment.icons);
    connect(m_customApps, &KeyButton::clicked, this, &StartSessionView::appPickerRequested);
    return m_customApps;
}

void StartSessionView::setCustomApps(const std::set<QString>& apps) {
    m_plan.customApps = apps;
    m_customApps->setApps(apps);
}

void StartSessionView::choose(Seconds duration) {
    if (duration == m_plan.selectedDuration)
        return;
    m_environment.context.feedback.play(Feedback::Event::choiceToggled);
    m_plan.selectedDuration = duration;
    for (std::size_t place = 0; place < m_durations.size(); ++place)
        m_durations[place]->setLatched(SessionPlan::durations.at(place).seconds == duration);
}

void StartSessionView::toggle(const QString& categoryId) {
    m_environment.context.feedback.play(Feedback::Event::choiceToggled);
    m_plan.toggleCategory(categoryId);
    for (CategoryButton* key : m_categories)
        key->setSelected(m_plan.selectedCategories.contains(key->categoryId()));
}

void StartSessionView::focusGoal(Qt::FocusReason reason) {
    m_goal->setFocus(reason);
    m_page->reveal(*m_goal);
}

void StartSessionView::start() {
    const auto session = m_plan.session(m_environment.categoryStore.categories());
    if (!session) {
        m_shake->setCounter(++m_missingGoalNudges);
        focusGoal(Qt::OtherFocusReason);
        return;
    }
    m_goal->clearFocus();
    m_environment.focusManager.startSession(*session);
}

} // namespace tolvar
