#include "App/MenuBar/MenuBarItem.h"
#include "App/StatusItems/StatusItems.h"
#include "Models/AppSettings.h"
#include "Models/FocusManager.h"
#include "Motion/TimerFrameSource.h"
#include "Platform/Common/QtTimerService.h"
#include "Platform/Common/SystemClock.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullBlockAlert.h"
#include "Platform/Null/NullBrowserChannel.h"
#include "Platform/Null/NullHapticPerformer.h"
#include "Platform/Null/NullNotificationCenter.h"
#include "Platform/Null/NullWorkspace.h"
#include "Views/Shared/InstrumentStyle.h"
#include "Views/StatusPill/StatusPopups.h"

#include <QApplication>
#include <QDir>
#include <QSocketNotifier>

#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <string>

/// The status item alone, with a focus manager that blocks nothing. Commands, one a line:
///
///   start SECONDS | pause | resume | stop    a session
///   countdown on | off                       the setting
///   calm on | off                            reduced motion
///   anchor                                   says where the castle stands
///   quit
///
/// Clicks and choices are printed as they come.
namespace {

using namespace tolvar;
using namespace Qt::StringLiterals;

class Trial {
public:
    Trial() {
        m_preferences.registerDefaults(AppSettings::defaults());
        QObject::connect(&m_menuBar, &MenuBarItem::clicked, [this](auto claimed) {
            say(u"clicked %1, anchor %2"_s.arg(
                claimed ? text(QRect(*claimed, QSize(1, 1))) : u"-"_s, anchor()));
        });
        QObject::connect(&m_menuBar, &MenuBarItem::chosen, [](StatusCommand command) {
            say(u"chosen %1"_s.arg(static_cast<int>(command)));
            if (command == StatusCommand::quit)
                QApplication::quit();
        });
        QObject::connect(&m_menuBar, &MenuBarItem::moved,
                         [this] { say(u"moved, anchor "_s + anchor()); });
        QObject::connect(&m_input, &QSocketNotifier::activated, [this] { read(); });
    }

private:
    static void say(const QString& line) { std::cout << line.toStdString() << std::endl; }
    static QString text(const QRect& rect) {
        return u"%1,%2 %3x%4"_s.arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }
    QString anchor() const {
        const auto rect = m_menuBar.anchor();
        return rect ? text(*rect) : u"-"_s;
    }

    /// Lines that were read together wake nobody again.
    void read() {
        do {
            std::string line;
            if (!std::getline(std::cin, line))
                return m_input.setEnabled(false);
            const QStringList words = QString::fromStdString(line).split(u' ');
            obey(words.value(0), words.value(1));
        } while (std::cin.rdbuf()->in_avail() > 0);
    }

    void obey(const QString& verb, const QString& object) {
        if (verb == u"start"_s) {
            FocusSession session;
            session.goal = u"Write report"_s;
            session.duration = object.toDouble();
            m_manager.startSession(session);
        } else if (verb == u"pause"_s) {
            m_manager.pauseSession();
        } else if (verb == u"resume"_s) {
            m_manager.resumeSession();
        } else if (verb == u"stop"_s) {
            m_manager.stopSession();
        } else if (verb == u"countdown"_s) {
            m_preferences.setBoolean(AppSettings::showsMenuBarCountdown, object == u"on"_s);
        } else if (verb == u"calm"_s) {
            m_motion.setSettings({.isReduced = object == u"on"_s});
        } else if (verb == u"anchor"_s) {
            say(anchor());
        } else if (verb == u"quit"_s) {
            QApplication::quit();
        }
    }

    MemoryPreferences m_preferences;
    SystemClock m_clock;
    QtTimerService m_timers;
    NullWorkspace m_workspace;
    NullBrowserChannel m_browsers;
    NullBlockAlert m_alert;
    NullNotificationCenter m_notifications;
    NullHapticPerformer m_haptics;
    SilentInterfaceSound m_sound;
    BundleInfo m_bundle{.identifier = u"app.tolvar.Tolvar"_s,
                        .name = u"Tolvar"_s,
                        .shortVersion = {},
                        .updateFeedUrl = {},
                        .resourcesPath =
                            QDir(QApplication::applicationDirPath()).filePath(u"../share/tolvar"_s),
                        .executablePath = {},
                        .browserHostPath = {}};
    FocusManager m_manager{{.preferences = m_preferences,
                            .clock = m_clock,
                            .timers = m_timers,
                            .workspace = m_workspace,
                            .browsers = m_browsers,
                            .alert = m_alert,
                            .notifications = m_notifications,
                            .haptics = m_haptics,
                            .sound = m_sound,
                            .bundle = m_bundle,
                            .processIdentifier = QApplication::applicationPid()}};
    TimerFrameSource m_frames;
    AnimationDriver m_motion{m_frames};
    StatusPopups m_popups;
    std::unique_ptr<StatusItem> m_item = StatusItems::make({.bus = QDBusConnection::sessionBus(),
                                                            .bundle = m_bundle,
                                                            .preferences = m_preferences,
                                                            .timers = m_timers,
                                                            .motion = m_motion,
                                                            .popups = m_popups});
    MenuBarItem m_menuBar{{m_manager, m_preferences, m_timers, m_motion, *m_item}};
    QSocketNotifier m_input{STDIN_FILENO, QSocketNotifier::Read};
};

} // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false); // else nobody can tell whether a line is waiting
    const QApplication application(argc, argv);
    QApplication::setStyle(new InstrumentStyle);
    QApplication::setQuitOnLastWindowClosed(false);
    const Trial trial;
    return QApplication::exec();
}
