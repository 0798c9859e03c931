#include "App/AppDelegate.h"

#include "App/Adapters.h"
#include "Models/AppSettings.h"

#include <QCoreApplication>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// Nothing may read a setting before its factory value is known.
std::unique_ptr<Preferences> preferencesWithDefaults(std::unique_ptr<Preferences> preferences) {
    preferences->registerDefaults(AppSettings::defaults());
    return preferences;
}

} // namespace

AppDelegate::AppDelegate(const BundleInfo& bundle, const QDBusConnection& bus)
    : m_log(Adapters::systemLog())
    , m_preferences(preferencesWithDefaults(Adapters::preferences(*m_log, m_timers)))
    , m_workspace(Adapters::workspace(*m_log))
    , m_installed(Adapters::installedApplications())
    , m_audioDevice(Adapters::audioDevice())
    , m_audioFiles(Adapters::audioFileReader())
    , m_sound({.device = *m_audioDevice,
               .reader = *m_audioFiles,
               .preferences = *m_preferences,
               .timers = m_timers,
               .log = *m_log,
               .resourcesPath = bundle.resourcesPath})
    , m_notifications(bus, {.name = bundle.name, .desktopEntry = bundle.identifier})
    , m_updater(m_updateSource)
    , m_categories(*m_preferences)
    , m_focusManager({.preferences = *m_preferences,
                      .clock = m_clock,
                      .timers = m_timers,
                      .workspace = *m_workspace,
                      .browsers = m_browsers,
                      .alert = m_alert,
                      .notifications = m_notifications,
                      .haptics = m_haptics,
                      .sound = m_sound,
                      .bundle = bundle,
                      .processIdentifier = QCoreApplication::applicationPid()})
    , m_remoteControl({.focusManager = m_focusManager,
                       .categories = m_categories,
                       .installed = *m_installed,
                       .workspace = *m_workspace,
                       .browsers = m_browsers,
                       .version = bundle.shortVersion},
                      bus) {
    connect(&m_remoteControl, &RemoteControl::quitRequested, this, &AppDelegate::quitRequested);
}

AppDelegate::~AppDelegate() = default;

QStringList AppDelegate::limitations() const {
    if (m_workspace->hidingSupport() == HidingSupport::full)
        return {};
    return {u"applications cannot be hidden on this desktop; an X11 session is needed"_s};
}

} // namespace tolvar
