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

#include <QApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>

#include <initializer_list>
#include <memory>
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
    QWidget* control(const QString& name) {
        for (QWidget* control : m_view.findChildren<QWidget*>()) {
            const auto* key = qobject_cast<KeyButton*>(control);
            if ((key ? key->name() : control->accessibleName()) == name)
                return control;
        }
        return nullptr;
    }
    void shrink(int height) {
        m_view.resize(m_view.width(), height);
        setFixedSize(m_view.size());
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

/// As it comes to a control by the Tab key in a window that has it.
void giveKeyboard(QWidget& control) {
    QApplication::setCursorFlashTime(0);
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(&control, &event);
    Q_EMIT qApp->focusChanged(nullptr, &control);
}

/// A picture of the window while the keyboard is at the control of this name: of all windows one
/// alone has it.
QWidget* withKeyboardAt(const QString& name, std::unique_ptr<Stage> stage) {
    stage->setAttribute(Qt::WA_DontShowOnScreen);
    stage->show();
    QWidget* control = stage->control(name);
    if (auto* page = stage->view().findChild<FadingScrollArea*>();
        page && page->isAncestorOf(control))
        page->reveal(*control);
    giveKeyboard(*control);
    auto* picture = new QLabel;
    picture->setPixmap(stage->grab());
    return picture;
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

QWidget* startKeyboardPage(const ControlContext& context) {
    const auto at = [&context](const QString& name) {
        return withKeyboardAt(name, std::make_unique<Stage>(context));
    };
    auto chosen = std::make_unique<Stage>(context);
    chosen->pick({u"Chat"_s, u"Mail"_s});
    return row({at(u"Start"_s), at(u"What is your goal?"_s), at(u"Entertainment"_s),
                at(u"Start focus session"_s),
                withKeyboardAt(u"Blocking Chat, Mail"_s, std::move(chosen))});
}

QWidget* sessionKeyboardPage(const ControlContext& context) {
    const auto at = [&context](const QString& name, const SessionMoment& moment) {
        return withKeyboardAt(name, std::make_unique<Stage>(context, moment));
    };
    return row({at(u"Pause, 2 left"_s, {.elapsed = 61}),
                at(u"Resume"_s, {.elapsed = 61, .pausedFor = 119}),
                at(u"Stop"_s, {.elapsed = 61, .pausesTaken = 2})});
}

/// One application, as many as there are icons for, and one more.
QWidget* appsPage(const ControlContext& context) {
    const auto with = [&context](const std::set<QString>& apps) {
        auto* stage = new Stage(context);
        stage->pick(apps);
        stage->scrollDown();
        return stage;
    };
    std::set<QString> apps{u"Arcade"_s, u"Browser"_s, u"Chat"_s, u"Mail"_s, u"Music"_s, u"Notes"_s};
    auto* six = with(apps);
    apps.insert(u"Photos"_s);
    return row({with({u"Mail"_s}), six, with(apps)});
}

/// The last second, the end, and the screen that comes after it.
QWidget* endPage(const ControlContext& context) {
    auto* last = new Stage(context, SessionMoment{.elapsed = 25 * 60 - 0.2, .pausesTaken = 2});
    auto* end = new Stage(context, SessionMoment{.elapsed = 25 * 60, .pausesTaken = 1});
    auto* after = new Stage(context, SessionMoment{.elapsed = 25 * 60});
    after->desk().manager.stopSession();
    return row({last, end, after});
}

/// Goals as people write them, while they are written and while they are followed.
QWidget* goalsPage(const ControlContext& context) {
    const QString lines = u"Answer every letter that came in during the holidays, then pay the "
                          "bills that came with them"_s;
    auto* written = new Stage(context);
    written->write(lines);
    auto* followed =
        new Stage(context, SessionMoment{.goal = lines, .elapsed = 400, .pausedFor = 5});
    auto* word = new Stage(
        context, SessionMoment{.goal = u"Donaudampfschifffahrtselektrizitätenhauptbetriebswerk"
                                       "bauunterbeamtengesellschaftsordnungsentwurf"_s,
                               .elapsed = 800});
    auto* emoji =
        new Stage(context, SessionMoment{.goal = u"Taxes 😀 ☕ e\u0301te\u0301 — 50 % done"_s,
                                         .elapsed = 1100});
    auto* mixed = new Stage(
        context, SessionMoment{.goal = u"قراءة كتاب Qt 6 من الصفحة 120"_s, .elapsed = 1300});
    return row({written, followed, word, emoji, mixed});
}

/// As high as screens allow that are lower than the window.
QWidget* lowPage(const ControlContext& context) {
    const auto low = [](Stage* stage, int height) {
        stage->shrink(height);
        return stage;
    };
    const SessionMoment moment{.goal = u"Answer every letter that came in during the holidays"_s,
                               .elapsed = 400};
    return row({low(new Stage(context), 500), low(new Stage(context, moment), 500),
                low(new Stage(context), 340), low(new Stage(context, moment), 340)});
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
    return {{u"windowStart"_s, startPage},
            {u"windowTour"_s, tourPage},
            {u"windowMirrored"_s, mirroredPage},
            {u"windowTabs"_s, tabsPage},
            {u"windowStartKeyboard"_s, startKeyboardPage},
            {u"windowSessionKeyboard"_s, sessionKeyboardPage},
            {u"windowApps"_s, appsPage},
            {u"windowEnd"_s, endPage},
            {u"windowGoals"_s, goalsPage},
            {u"windowLow"_s, lowPage},
            {u"windowCards"_s, cardTabsPage},
            {u"windowCardsMirrored"_s, cardTabsMirroredPage}};
}

} // namespace tolvar::gallery
