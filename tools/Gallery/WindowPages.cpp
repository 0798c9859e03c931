#include "Gallery/WindowPages.h"

#include "Gallery/SampleApplications.h"
#include "Gallery/SampleRecords.h"
#include "Gallery/States.h"
#include "Gallery/StillDesk.h"
#include "Platform/Null/NullIconThemeSettings.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/FocusWindow/FocusView.h"
#include "Views/FocusWindow/ModeButton.h"
#include "Views/Shared/CardList.h"
#include "Views/Shared/FadingScrollArea.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Sheet.h"
#include "Views/StartSession/StartSessionView.h"

#include <QHBoxLayout>
#include <QScrollBar>

#include <initializer_list>
#include <optional>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

/// The window with an engine of its own behind it.
class Stage final : public QWidget {
public:
    explicit Stage(const ControlContext& context,
                   const std::optional<SessionMoment>& moment = std::nullopt,
                   const KeptRecords& records = {})
        : m_desk(moment, records)
        , m_installed(SampleApplications::few())
        , m_icons({m_installed, m_desk.workspace, m_theme})
        , m_view({.context = context,
                  .timers = m_desk.time,
                  .focusManager = m_desk.manager,
                  .categoryStore = m_desk.categories,
                  .installed = m_installed,
                  .workspace = m_desk.workspace,
                  .icons = m_icons,
                  .ownName = u"Tolvar"_s},
                 this) {
        setFixedSize(m_view.size());
    }

    StillDesk& desk() { return m_desk; }
    FocusView& view() { return m_view; }

    void press(const QString& key) {
        for (KeyButton* button : m_view.findChildren<KeyButton*>())
            if (button->name() == key)
                button->click();
    }
    void write(const QString& goal) { m_view.findChild<InstrumentField*>()->setText(goal); }
    void select(FocusTab tab) {
        m_view.findChildren<ModeButton*>().at(static_cast<int>(tab))->click();
    }
    void pick(const std::set<QString>& apps) {
        m_view.findChild<StartSessionView*>()->setCustomApps(apps);
    }
    void openRow(int row) {
        auto& list = *m_view.findChild<CardList*>();
        m_view.grab();
        list.setOpenId(list.ids().at(static_cast<std::size_t>(row)));
    }
    void ask(const QString& title) {
        for (auto* question : m_view.findChildren<ConfirmationSheet*>())
            if (question->accessibleName() == title)
                question->rise();
    }
    void scrollDown() {
        auto* bar = m_view.findChild<FadingScrollArea*>()->verticalScrollBar();
        m_view.grab();
        bar->setValue(bar->maximum());
    }

private:
    StillDesk m_desk;
    SampleApplications m_installed;
    NullIconThemeSettings m_theme;
    ApplicationIcons m_icons;
    FocusView m_view;
};

QWidget* row(std::initializer_list<QWidget*> stages) {
    auto* page = new QWidget;
    auto* line = new QHBoxLayout(page);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(1);
    for (QWidget* stage : stages)
        line->addWidget(stage);
    return page;
}

QWidget* startPage(const ControlContext& context) {
    auto* fresh = new Stage(context);
    auto* filled = new Stage(context);
    filled->write(u"Write the second chapter"_s);
    filled->press(u"45m"_s);
    filled->press(u"Social Media"_s);
    filled->press(u"Gaming"_s);
    auto* below = new Stage(context);
    below->pick({u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s, u"G"_s});
    below->scrollDown();
    return row({fresh, filled, below});
}

QWidget* mirroredPage(const ControlContext& context) {
    auto* stage = new Stage(context);
    stage->write(u"כתיבת הפרק השני 📚"_s);
    stage->press(u"Gaming"_s);
    auto* below = new Stage(context);
    below->pick({u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s, u"G"_s});
    below->desk().categories.rename(below->desk().categories.addCategory().id,
                                    u"Everything that is not the second chapter of the book"_s);
    below->desk().categories.addCategory();
    below->scrollDown();
    auto* page = row({stage, below});
    page->setLayoutDirection(Qt::RightToLeft);
    return page;
}

QWidget* tabsPage(const ControlContext& context) {
    auto* presets = new Stage(context);
    presets->select(FocusTab::presets);
    auto* history = new Stage(context);
    history->select(FocusTab::history);
    return row({presets, history});
}

Stage* tab(const ControlContext& context, FocusTab tab) {
    auto* stage =
        new Stage(context, std::nullopt,
                  {.history = sampleSessions(), .presets = samplePresets(), .now = sampleNow()});
    stage->select(tab);
    return stage;
}

QWidget* cardTabsPage(const ControlContext& context) {
    auto* presets = tab(context, FocusTab::presets);
    presets->openRow(1);
    auto* history = tab(context, FocusTab::history);
    auto* open = tab(context, FocusTab::history);
    open->openRow(0);
    return row({presets, history, open});
}

QWidget* cardTabsMirroredPage(const ControlContext& context) {
    auto* open = tab(context, FocusTab::history);
    open->openRow(1);
    auto* clearing = tab(context, FocusTab::history);
    clearing->ask(u"Clear All History?"_s);
    auto* page = row({tab(context, FocusTab::presets), open, clearing});
    page->setLayoutDirection(Qt::RightToLeft);
    return page;
}

/// From the plan to the pause.
QWidget* tourPage(const ControlContext& context) {
    auto* plan = new Stage(context);
    plan->write(u"Write the second chapter"_s);
    plan->press(u"Social Media"_s);
    plan->press(u"News"_s);
    auto* session = new Stage(context, SessionMoment{.elapsed = 9 * 60 + 17});
    auto* pause = new Stage(
        context, SessionMoment{.elapsed = 16 * 60 + 41, .pausesTaken = 1, .pausedFor = 23});
    return row({plan, session, pause});
}

} // namespace

std::vector<Page> windowPages() {
    return {{u"windowStart"_s, startPage},       {u"windowTour"_s, tourPage},
            {u"windowMirrored"_s, mirroredPage}, {u"windowTabs"_s, tabsPage},
            {u"windowCards"_s, cardTabsPage},    {u"windowCardsMirrored"_s, cardTabsMirroredPage}};
}

} // namespace tolvar::gallery
