#pragma once

#include "Views/FocusWindow/FocusTab.h"
#include "Views/Shared/ControlContext.h"

#include <QPointer>
#include <QWidget>

#include <map>

namespace tolvar {

class ActiveSessionView;
class AppPickerSheet;
class ApplicationIcons;
class CardScreen;
class CategoryStore;
class FocusManager;
class HeaderView;
class InstalledApplications;
class ModeSelector;
class SceneStack;
class StartSessionView;
class TimerService;
class Workspace;

/// The whole window's content: the header and, below it, the session that is on, or the mode
/// selector with the screen of the selected tab.
class FocusView final : public QWidget {
    Q_OBJECT

public:
    /// Points.
    static constexpr QSize usualSize{400, 578};
    /// On screens that are low: what it shows is then scrolled.
    static constexpr int lowest = 320;

    /// What it shows and steers; all outlive it.
    struct Environment {
        ControlContext context;
        TimerService& timers;
        FocusManager& focusManager;
        CategoryStore& categoryStore;
        const InstalledApplications& installed;
        const Workspace& workspace;
        ApplicationIcons& icons;
        /// Of this program, which cannot be chosen to be blocked.
        QString ownName;
    };

    explicit FocusView(const Environment& environment, QWidget* parent = nullptr);
    ~FocusView() override;

    QSize sizeHint() const override { return usualSize; }
    FocusTab selectedTab() const { return m_selectedTab; }
    /// Puts the keyboard where a person who has just opened the window begins.
    void takeKeyboard(Qt::FocusReason reason);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeTabs();
    QWidget* screen(FocusTab tab);
    QWidget* makeStartSession();
    CardScreen* makePresets();
    CardScreen* makeHistory();
    void select(FocusTab tab);
    void follow();
    void showSession();
    void showTabs();
    void pickApps();

    Environment m_environment;
    FocusTab m_selectedTab = FocusTab::start;
    HeaderView* m_header;
    SceneStack* m_scenes;
    QWidget* m_tabs = nullptr;
    ModeSelector* m_selector = nullptr;
    SceneStack* m_screens = nullptr;
    std::map<FocusTab, QWidget*> m_tabScreens;
    StartSessionView* m_startSession = nullptr;
    /// Those with cards that have been made.
    std::map<FocusTab, CardScreen*> m_cardScreens;
    AppPickerSheet* m_appPicker = nullptr;
    QPointer<ActiveSessionView> m_activeSession;
    /// What the session's screen stands in.
    QPointer<QWidget> m_sessionPage;
};

} // namespace tolvar
