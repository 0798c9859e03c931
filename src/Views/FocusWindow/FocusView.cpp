#include "Views/FocusWindow/FocusView.h"

#include "Models/FocusManager.h"
#include "Views/ActiveSession/ActiveSessionView.h"
#include "Views/AppPicker/AppPickerSheet.h"
#include "Views/FocusWindow/HeaderView.h"
#include "Views/FocusWindow/ModeSelector.h"
#include "Views/FocusWindow/SceneStack.h"
#include "Views/History/HistoryView.h"
#include "Views/Presets/PresetsView.h"
#include "Views/Shared/FadingScrollArea.h"
#include "Views/Shared/FocusRing.h"
#include "Views/StartSession/StartSessionView.h"
#include "Views/Theme/Instrument.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace tolvar {

namespace {

struct Look {
    int selectorSide = 20;
    int aboveSelector = 16;
    int aboveHistory = 22;
};
constexpr Look look;

} // namespace

FocusView::FocusView(const Environment& environment, QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_header(new HeaderView(environment.context.motion, environment.focusManager.status()))
    , m_scenes(new SceneStack(environment.context.motion)) {
    setFixedWidth(usualSize.width());
    setMinimumHeight(lowest);
    setMaximumHeight(usualSize.height());
    resize(usualSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(m_scenes, 1);
    m_tabs = makeTabs();
    new FocusRing(*this);
    follow();
    connect(&environment.focusManager, &FocusManager::currentSessionChanged, this,
            &FocusView::follow);
}

FocusView::~FocusView() = default;

QWidget* FocusView::makeTabs() {
    auto* tabs = new QWidget(m_scenes);
    tabs->hide();
    m_selector = new ModeSelector(m_environment.context, m_selectedTab);
    connect(m_selector, &ModeSelector::selected, this, &FocusView::select);
    m_screens = new SceneStack(m_environment.context.motion);
    m_screens->bringOn(screen(m_selectedTab));

    auto* selectorRow = new QVBoxLayout;
    selectorRow->setContentsMargins(look.selectorSide, look.aboveSelector, look.selectorSide, 0);
    selectorRow->addWidget(m_selector);
    auto* column = new QVBoxLayout(tabs);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(selectorRow);
    column->addWidget(m_screens, 1);
    return tabs;
}

/// Made when it is first wanted; the start screen keeps what was chosen.
QWidget* FocusView::screen(FocusTab tab) {
    QWidget*& screen = m_tabScreens[tab];
    if (screen)
        return screen;
    switch (tab) {
    case FocusTab::start:
        return screen = makeStartSession();
    case FocusTab::presets:
        return screen = m_cardScreens[tab] = makePresets();
    case FocusTab::history:
        return screen = m_cardScreens[tab] = makeHistory();
    }
    return nullptr;
}

QWidget* FocusView::makeStartSession() {
    m_startSession = new StartSessionView({.context = m_environment.context,
                                           .focusManager = m_environment.focusManager,
                                           .categoryStore = m_environment.categoryStore,
                                           .icons = m_environment.icons});
    connect(m_startSession, &StartSessionView::appPickerRequested, this, &FocusView::pickApps);
    return m_startSession;
}

CardScreen* FocusView::makePresets() {
    return new PresetsView(
        {.context = m_environment.context,
         .timers = m_environment.timers,
         .focusManager = m_environment.focusManager,
         .window = *this},
        {.categoryStore = m_environment.categoryStore, .icons = m_environment.icons});
}

CardScreen* FocusView::makeHistory() {
    return new HistoryView({.context = m_environment.context,
                            .timers = m_environment.timers,
                            .focusManager = m_environment.focusManager,
                            .window = *this},
                           m_environment.icons, {.topInset = look.aboveHistory});
}

void FocusView::pickApps() {
    if (!m_appPicker) {
        m_appPicker = new AppPickerSheet(m_environment.context,
                                         {.installed = m_environment.installed,
                                          .workspace = m_environment.workspace,
                                          .icons = m_environment.icons,
                                          .ownName = m_environment.ownName},
                                         *this);
        connect(m_appPicker, &AppPickerSheet::selectionChanged, m_startSession,
                &StartSessionView::setCustomApps);
    }
    m_appPicker->open(m_startSession->plan().customApps);
}

void FocusView::select(FocusTab tab) {
    m_selectedTab = tab;
    m_screens->bringOn(screen(tab));
}

void FocusView::follow() {
    m_header->setStatus(m_environment.focusManager.status());
    const bool isActive = m_environment.focusManager.activeSession() != nullptr;
    if (isActive && !m_activeSession)
        showSession();
    else if (!isActive && m_scenes->scene() != m_tabs)
        showTabs();
}

void FocusView::showSession() {
    if (m_appPicker)
        m_appPicker->sink();
    m_activeSession = new ActiveSessionView(m_environment.context, m_environment.focusManager);
    m_sessionPage = new FadingScrollArea(m_activeSession);
    m_scenes->bringOn(m_sessionPage);
    takeKeyboard(Qt::OtherFocusReason);
}

/// The key that stopped the session is still being told of its release.
void FocusView::showTabs() {
    m_scenes->bringOn(m_tabs);
    if (m_sessionPage)
        m_sessionPage->deleteLater();
    m_activeSession.clear();
    m_sessionPage.clear();
    takeKeyboard(Qt::OtherFocusReason);
}

void FocusView::takeKeyboard(Qt::FocusReason reason) {
    if (m_activeSession)
        m_activeSession->takeKeyboard(reason);
    else if (m_selectedTab == FocusTab::start)
        m_startSession->focusGoal(reason);
    else
        m_cardScreens.at(m_selectedTab)->takeKeyboard(reason);
}

/// Escape closes a row that was swiped aside before it closes the window, wherever the keyboard is.
void FocusView::keyPressEvent(QKeyEvent* event) {
    const auto cards = m_cardScreens.find(m_selectedTab);
    const bool hasRow = !m_activeSession && cards != m_cardScreens.end();
    event->setAccepted(event->key() == Qt::Key_Escape && hasRow && cards->second->closeRow());
}

void FocusView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Instrument::Palette::panel);
}

} // namespace tolvar
