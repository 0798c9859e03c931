#include "Models/AppSettings.h"
#include "Motion/AnimationDriver.h"
#include "Motion/TimerFrameSource.h"
#include "Platform/Linux/X11/X11PanelWindows.h"
#include "Platform/Linux/X11/X11Workspace.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullHapticPerformer.h"
#include "Platform/Null/NullSystemLog.h"
#include "Sound/InterfaceSound.h"
#include "Views/BlockAlert/BlockAlertPresenter.h"
#include "Views/Theme/Feedback.h"

#include <QApplication>
#include <QScreen>
#include <QSocketNotifier>
#include <QTextStream>

#include <unistd.h>

namespace {

using namespace tolvar;
using namespace Qt::StringLiterals;

void say(const QString& line) {
    QTextStream(stdout) << line << Qt::endl;
}

/// Says when the sound of a blocked application would be heard.
class SpokenSound final : public InterfaceSound {
public:
    void play(Sound sound, Preview preview) override {
        if (sound == Sound::blocked)
            say(preview == Preview::yes ? u"sound preview"_s : u"sound"_s);
    }
    bool isLoaded(Sound) const override { return true; }
    Hold stayAwake() override { return {}; }
};

/// The alert in a program of its own, which does what it is told line by line and answers each line
/// with "done" when it has: "app NAME", "site HOST", "applications", "screens",
/// "quit".
class AlertProgram {
public:
    AlertProgram() {
        m_preferences.registerDefaults(AppSettings::defaults());
        QObject::connect(&m_commands, &QSocketNotifier::activated, &m_commands,
                         [this] { readCommand(); });
    }

private:
    void readCommand() {
        const QString line = m_input.readLine();
        const QString rest = line.section(u' ', 1);
        if (line.startsWith(u"app "_s))
            m_alert.presentBlocked(rest, BlockTarget::app);
        else if (line.startsWith(u"site "_s))
            m_alert.presentBlocked(rest, BlockTarget::site);
        else if (line == u"applications")
            for (const auto& application : m_workspace->runningApplications())
                say(u"application "_s + application.localizedName);
        else if (line == u"screens")
            for (const QScreen* screen : QGuiApplication::screens())
                say(u"screen "_s + screen->name());
        else
            QCoreApplication::quit();
        say(u"done"_s);
    }

    MemoryPreferences m_preferences;
    NullHapticPerformer m_haptics;
    NullSystemLog m_log;
    SpokenSound m_sound;
    TimerFrameSource m_frames;
    AnimationDriver m_motion{m_frames};
    Feedback m_feedback{m_preferences, m_haptics, m_sound};
    std::unique_ptr<X11PanelWindows> m_windows = X11PanelWindows::create();
    std::unique_ptr<X11Workspace> m_workspace =
        X11Workspace::create(DesktopEntries::ofThisDesktop(), m_log);
    BlockAlertPresenter m_alert{{{m_motion, m_feedback}, m_sound, *m_windows}};
    QTextStream m_input{stdin};
    QSocketNotifier m_commands{STDIN_FILENO, QSocketNotifier::Read};
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const AlertProgram program;
    return QApplication::exec();
}
