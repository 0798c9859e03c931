#include "Gallery/SessionPages.h"

#include "Models/AppSettings.h"
#include "Models/FocusManager.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullBlockAlert.h"
#include "Platform/Null/NullBrowserChannel.h"
#include "Platform/Null/NullHapticPerformer.h"
#include "Platform/Null/NullNotificationCenter.h"
#include "Platform/Null/NullWorkspace.h"
#include "Views/ActiveSession/ActiveSessionView.h"
#include "Views/Theme/Instrument.h"

#include <QHBoxLayout>
#include <QPainter>

#include <initializer_list>
#include <memory>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr Seconds minute = 60;
constexpr Seconds hour = 3600;

/// Time that stands still until it is told otherwise.
class StillTime final : public Clock, public TimerService {
public:
    Date now() const override { return m_now; }
    std::unique_ptr<Timer> repeat(std::chrono::milliseconds, Callback) override {
        return std::make_unique<Timer>();
    }
    std::unique_ptr<Timer> once(std::chrono::milliseconds, Callback) override {
        return std::make_unique<Timer>();
    }
    void pass(Seconds seconds) { m_now = m_now + seconds; }

private:
    Date m_now{};
};

struct Scene {
    QString goal = u"Write the second chapter"_s;
    Seconds duration = 25 * minute;
    Seconds elapsed = 0;
    /// Before the one that lasts, where one does.
    int pausesTaken = 0;
    /// How long the session has been paused; negative while it runs.
    Seconds pausedFor = -1;
};

/// The screen of a session that is brought to a moment of its own.
class Stage final : public QWidget {
public:
    Stage(const ControlContext& context, const Scene& scene)
        : m_manager({.preferences = m_preferences,
                     .clock = m_time,
                     .timers = m_time,
                     .workspace = m_workspace,
                     .browsers = m_browsers,
                     .alert = m_alert,
                     .notifications = m_notifications,
                     .haptics = m_haptics,
                     .sound = m_sound,
                     .bundle = {},
                     .processIdentifier = 0}) {
        m_preferences.registerDefaults(AppSettings::defaults());
        play(scene);
        m_view = std::make_unique<ActiveSessionView>(context, m_manager, this);
        setFixedSize(m_view->sizeHint());
        m_view->resize(size());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Instrument::Palette::panel);
    }

private:
    void play(const Scene& scene) {
        FocusSession session;
        session.goal = scene.goal;
        session.duration = scene.duration;
        session.pauseCount = scene.pausesTaken;
        m_manager.startSession(session);
        m_time.pass(scene.elapsed);
        if (scene.pausedFor < 0)
            return;
        m_manager.pauseSession();
        m_time.pass(scene.pausedFor);
    }

    StillTime m_time;
    MemoryPreferences m_preferences;
    NullWorkspace m_workspace;
    NullBrowserChannel m_browsers;
    NullBlockAlert m_alert;
    NullNotificationCenter m_notifications;
    NullHapticPerformer m_haptics;
    SilentInterfaceSound m_sound;
    FocusManager m_manager;
    std::unique_ptr<ActiveSessionView> m_view;
};

QWidget* pageOf(const ControlContext& context, std::initializer_list<Scene> scenes) {
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (const Scene& scene : scenes)
        row->addWidget(new Stage(context, scene));
    return page;
}

} // namespace

QWidget* sessionPage(const ControlContext& context) {
    return pageOf(
        context,
        {{}, {.elapsed = 12 * minute + 36, .pausesTaken = 1}, {.elapsed = 24 * minute + 53}});
}

QWidget* pausePage(const ControlContext& context) {
    return pageOf(context, {{.elapsed = 9 * minute, .pausedFor = 17},
                            {.elapsed = 21 * minute + 4, .pausesTaken = 2},
                            {.goal = u"Read"_s, .duration = 2 * hour, .elapsed = 1}});
}

QWidget* goalsPage(const ControlContext& context) {
    return pageOf(
        context,
        {{.goal = u"Write the second chapter, then read it aloud from the first line to the last "
                  "and cut a third of it, whatever it costs, before anyone else gets to see it"_s,
          .duration = 90 * minute,
          .elapsed = 31 * minute},
         {.goal = u"Rindfleischetikettierungsüberwachungsaufgabenübertragungsgesetz"_s,
          .elapsed = 2},
         {.goal = u"כתיבת הפרק השני 😀 ואז לקרוא אותו בקול"_s, .elapsed = 17 * minute + 30}});
}

} // namespace tolvar::gallery
