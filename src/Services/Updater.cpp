#include "Services/Updater.h"

namespace tolvar {

Updater::Updater(UpdateSource& source, QObject* parent)
    : QObject(parent)
    , m_source(source) {
    if (!m_source.isAvailable())
        return;
    m_automaticallyChecksForUpdates = m_source.automaticallyChecksForUpdates();
    m_canCheckSubscription = m_source.observeCanCheckForUpdates([this](bool canCheck) {
        if (m_canCheckForUpdates == canCheck)
            return;
        m_canCheckForUpdates = canCheck;
        Q_EMIT canCheckForUpdatesChanged(canCheck);
    });
}

void Updater::setAutomaticallyChecksForUpdates(bool checks) {
    const bool changed = m_automaticallyChecksForUpdates != checks;
    m_automaticallyChecksForUpdates = checks;
    if (m_source.isAvailable())
        m_source.setAutomaticallyChecksForUpdates(checks);
    if (changed)
        Q_EMIT automaticallyChecksForUpdatesChanged(checks);
}

void Updater::checkForUpdates() {
    if (m_source.isAvailable())
        m_source.checkForUpdates();
}

} // namespace tolvar
