#pragma once

#include "Views/Shared/ControlContext.h"
#include "Views/Shared/HeadShake.h"
#include "Views/StartSession/SessionPlan.h"

#include <QWidget>

#include <memory>
#include <vector>

class QGridLayout;
class QVBoxLayout;

namespace tolvar {

class ApplicationIcons;
class CategoryButton;
class CategoryStore;
class CustomAppsRow;
class DurationButton;
class FadingScrollArea;
class FocusManager;
class InstrumentField;

/// The screen on which a session is planned and started. What was chosen stays chosen for as long
/// as the screen lives.
class StartSessionView final : public QWidget {
    Q_OBJECT

public:
    /// What it shows and steers; all outlive it.
    struct Environment {
        ControlContext context;
        FocusManager& focusManager;
        CategoryStore& categoryStore;
        ApplicationIcons& icons;
    };

    explicit StartSessionView(const Environment& environment, QWidget* parent = nullptr);
    ~StartSessionView() override;

    const SessionPlan& plan() const { return m_plan; }
    /// The applications chosen one by one, by display name.
    void setCustomApps(const std::set<QString>& apps);
    /// Puts the keyboard where a goal is written.
    void focusGoal(Qt::FocusReason reason);
    /// Starts a session as planned; without a goal it shakes the field's head instead.
    void start();

Q_SIGNALS:
    /// The user wants to choose single applications.
    void appPickerRequested();

private:
    QWidget* makePage();
    QWidget* makeGoal();
    QWidget* makeDurations();
    QWidget* makeCategories();
    QWidget* makeCustomApps();
    void showCategories();
    void choose(Seconds duration);
    void toggle(const QString& categoryId);

    Environment m_environment;
    SessionPlan m_plan;
    /// Refused starts.
    int m_missingGoalNudges = 0;
    FadingScrollArea* m_page = nullptr;
    InstrumentField* m_goal = nullptr;
    std::vector<DurationButton*> m_durations;
    QGridLayout* m_categoryGrid = nullptr;
    std::vector<CategoryButton*> m_categories;
    CustomAppsRow* m_customApps = nullptr;
    std::unique_ptr<HeadShake> m_shake;
};

} // namespace tolvar
