#pragma once

#include "App/DesktopFace.h"
#include "App/Remote/RemoteControl.h"
#include "Models/CategoryStore.h"
#include "Models/FocusManager.h"
#include "Motion/AnimationDriver.h"
#include "Motion/TimerFrameSource.h"
#include "Platform/Common/QtTimerService.h"
#include "Platform/Common/SystemClock.h"
#include "Platform/Interfaces/AudioDevice.h"
#include "Platform/Interfaces/AudioFileReader.h"
#include "Platform/Interfaces/BlockAlert.h"
#include "Platform/Interfaces/BrowserChannel.h"
#include "Platform/Interfaces/BundleInfo.h"
#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Interfaces/PanelWindows.h"
#include "Platform/Interfaces/SystemLog.h"
#include "Platform/Linux/DBus/FreedesktopNotificationCenter.h"
#include "Platform/Null/NullHapticPerformer.h"
#include "Platform/Null/NullUpdateSource.h"
#include "Services/Updater.h"
#include "Sound/SampledInterfaceSound.h"
#include "Views/Theme/Feedback.h"

#include <QDBusConnection>
#include <QObject>

#include <memory>

namespace tolvar {

/// The running program: chooses what stands behind each interface of the desktop, and owns it all
/// together with the one engine. Members are made from top to bottom and end in reverse.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// `bus` is the session bus; without a connection there are no notifications and there is no
    /// remote control, and the rest works. Nothing is shown unless the application is one with
    /// widgets.
    AppDelegate(const BundleInfo& bundle, const QDBusConnection& bus);
    ~AppDelegate() override;

    /// What the person who starts the program should know of this desktop; one line each.
    QStringList limitations() const;

Q_SIGNALS:
    void quitRequested();

private:
    ControlContext context() { return {m_motion, m_feedback}; }
    std::unique_ptr<BlockAlert> makeAlert();
    std::unique_ptr<DesktopFace> makeFace(const BundleInfo& bundle, const QDBusConnection& bus);
    void connectFace();

    std::unique_ptr<SystemLog> m_log;
    SystemClock m_clock;
    QtTimerService m_timers;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<InstalledApplications> m_installed;
    std::unique_ptr<BrowserChannel> m_browsers;
    NullHapticPerformer m_haptics;
    std::unique_ptr<AudioDevice> m_audioDevice;
    std::unique_ptr<AudioFileReader> m_audioFiles;
    SampledInterfaceSound m_sound;
    TimerFrameSource m_frames;
    AnimationDriver m_motion;
    Feedback m_feedback;
    std::unique_ptr<PanelWindows> m_panels;
    std::unique_ptr<BlockAlert> m_alert;
    FreedesktopNotificationCenter m_notifications;
    NullUpdateSource m_updateSource;
    Updater m_updater;
    CategoryStore m_categories;
    FocusManager m_focusManager;
    RemoteControl m_remoteControl;
    /// Null without a display.
    std::unique_ptr<DesktopFace> m_face;
};

} // namespace tolvar
