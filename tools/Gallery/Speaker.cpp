#include "Gallery/Speaker.h"

#include "Models/AppSettings.h"
#include "Platform/Linux/Audio/OpenAlDevice.h"

#include <QCoreApplication>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

Speaker::Speaker()
    : m_device(OpenAlDevice::create())
    , m_sound({.device = *m_device,
               .reader = m_reader,
               .preferences = m_preferences,
               .timers = m_timers,
               .log = m_log,
               .resourcesPath = QCoreApplication::applicationDirPath() + u"/../share/tolvar"_s}) {
    m_preferences.registerDefaults(AppSettings::defaults());
    m_awake = m_sound.stayAwake();
}

} // namespace tolvar::gallery
