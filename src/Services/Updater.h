#pragma once

#include "Extensions/Subscription.h"
#include "Platform/Interfaces/UpdateSource.h"

#include <QObject>

namespace tolvar {

/// The state of software updates, as the settings and the menu show and change it. Where the
/// source offers nothing, no check can start and the switch keeps only its own value.
class Updater final : public QObject {
    Q_OBJECT

public:
    /// `source` outlives the updater.
    explicit Updater(UpdateSource& source, QObject* parent = nullptr);

    /// Whether the user may start a check now.
    bool canCheckForUpdates() const { return m_canCheckForUpdates; }
    bool automaticallyChecksForUpdates() const { return m_automaticallyChecksForUpdates; }
    void setAutomaticallyChecksForUpdates(bool checks);
    void checkForUpdates();

Q_SIGNALS:
    void canCheckForUpdatesChanged(bool canCheck);
    void automaticallyChecksForUpdatesChanged(bool checks);

private:
    UpdateSource& m_source;
    bool m_canCheckForUpdates = false;
    bool m_automaticallyChecksForUpdates = false;
    Subscription m_canCheckSubscription;
};

} // namespace tolvar
