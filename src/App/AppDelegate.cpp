#include "App/AppDelegate.h"

#include "App/Adapters.h"
#include "Models/AppSettings.h"
#include "Platform/Null/NullBlockAlert.h"
#include "Views/BlockAlert/BlockAlertPresenter.h"

#include <QApplication>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// Nothing may read a setting before its factory value is known.
std::unique_ptr<Preferences> preferencesWithDefaults(std::unique_ptr<Preferences> preferences) {
    preferences->registerDefaults(AppSettings::defaults());
    return preferences;
}

bool hasDisplay() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

AppDelegate::AppDelegate(const BundleInfo& bundle, const QDBusConnection& bus)
    : m_log(Adapters::systemLog())
    , m_preferences(preferencesWithDefaults(Adapters::preferences(*m_log, m_timers)))
    , m_workspace(Adapters::workspace(*m_log))
    , m_installed(Adapters::installedApplications())
    , m_browsers(Adapters::browserChannel(*m_log, m_timers))
    , m_audioDevice(Adapters::audioDevice())
    , m_audioFiles(Adapters::audioFileReader())
    , m_sound({.device = *m_audioDevice,
               .reader = *m_audioFiles,
               .preferences = *m_preferences,
               .timers = m_timers,
               .log = *m_log,
               .resourcesPath = bundle.resourcesPath})
    , m_motion(m_frames)
    , m_feedback(*m_preferences, m_haptics, m_sound)
    , m_panels(Adapters::panelWindows())
    , m_alert(makeAlert())
    , m_notifications(bus, {.name = bundle.name, .desktopEntry = bundle.identifier})
    , m_updater(m_updateSource)
    , m_categories(*m_preferences)
    , m_focusManager({.preferences = *m_preferences,
                      .clock = m_clock,
                      .timers = m_timers,
                      .workspace = *m_workspace,
                      .browsers = *m_browsers,
                      .alert = *m_alert,
                      .notifications = m_notifications,
                      .haptics = m_haptics,
                      .sound = m_sound,
                      .bundle = bundle,
                      .processIdentifier = QCoreApplication::applicationPid()})
    , m_remoteControl({.focusManager = m_focusManager,
                       .categories = m_categories,
                       .installed = *m_installed,
                       .workspace = *m_workspace,
                       .browsers = *m_browsers,
                       .version = bundle.shortVersion},
                      bus)
    , m_face(makeFace(bundle, bus)) {
    if (m_face)
        connectFace();
    connect(&m_remoteControl, &RemoteControl::quitRequested, this, &AppDelegate::quitRequested);
}

AppDelegate::~AppDelegate() = default;

std::unique_ptr<BlockAlert> AppDelegate::makeAlert() {
    if (!hasDisplay())
        return std::make_unique<NullBlockAlert>();
    return std::make_unique<BlockAlertPresenter>(BlockAlertPresenter::Environment{
        .context = context(), .sound = m_sound, .windows = *m_panels});
}

std::unique_ptr<DesktopFace> AppDelegate::makeFace(const BundleInfo& bundle,
                                                   const QDBusConnection& bus) {
    if (!hasDisplay())
        return nullptr;
    return std::make_unique<DesktopFace>(
        DesktopFace::Environment{.context = context(),
                                 .focusManager = m_focusManager,
                                 .categories = m_categories,
                                 .preferences = *m_preferences,
                                 .timers = m_timers,
                                 .sound = m_sound,
                                 .installed = *m_installed,
                                 .workspace = *m_workspace,
                                 .panels = *m_panels,
                                 .mediaTime = [this] { return m_frames.mediaTime(); },
                                 .bundle = bundle,
                                 .bus = bus});
}

void AppDelegate::connectFace() {
    connect(&m_remoteControl, &RemoteControl::activated, m_face.get(), &DesktopFace::open);
    connect(m_face.get(), &DesktopFace::chosen, this, [this](StatusCommand command) {
        if (command == StatusCommand::quit)
            Q_EMIT quitRequested();
    });
}

QStringList AppDelegate::limitations() const {
    if (m_workspace->hidingSupport() == HidingSupport::full)
        return {};
    return {u"applications cannot be hidden on this desktop; an X11 session is needed"_s};
}

} // namespace tolvar
