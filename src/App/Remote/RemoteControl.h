#pragma once

#include "App/Protocol/RemoteError.h"
#include "App/Protocol/RemoteRecords.h"
#include "App/Protocol/StatusReport.h"
#include "App/Remote/Followers.h"
#include "App/Remote/SessionPlanner.h"
#include "App/Remote/SessionReport.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

#include <optional>

namespace tolvar {

class BrowserChannel;
class CategoryStore;
class FocusManager;
class InstalledApplications;
class Workspace;

/// The running program as other programs see and steer it: the object /app/tolvar/Tolvar on the
/// session bus with app.tolvar.Tolvar1 and org.freedesktop.Application (what the
/// freedesktop desktop entries call "D-Bus Activation"). App/Protocol holds the interfaces and what
/// each function promises; functions and properties have the names that D-Bus gives them.
class RemoteControl final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString Goal READ goal)
    Q_PROPERTY(double Duration READ duration)
    Q_PROPERTY(double Remaining READ remaining)
    Q_PROPERTY(double Elapsed READ elapsed)
    Q_PROPERTY(int PauseRemaining READ pauseRemaining)
    Q_PROPERTY(int PausesLeft READ pausesLeft)
    Q_PROPERTY(QStringList BlockedApps READ blockedApps)
    Q_PROPERTY(QStringList BlockedWebsites READ blockedWebsites)
    Q_PROPERTY(QString HidingSupport READ hidingSupport)
    Q_PROPERTY(QString Version READ version)

public:
    /// What it shows and steers; all outlive it.
    struct Environment {
        FocusManager& focusManager;
        CategoryStore& categories;
        const InstalledApplications& installed;
        const Workspace& workspace;
        const BrowserChannel& browsers;
        QString version;
    };

    /// Answers on `bus` from now on, until it is destroyed. Without a bus it does nothing.
    RemoteControl(const Environment& environment, const QDBusConnection& bus);
    ~RemoteControl() override;

    QString status() const { return stateName(report().state); }
    QString goal() const { return report().goal; }
    double duration() const { return report().duration; }
    double remaining() const { return report().remaining; }
    double elapsed() const { return report().elapsed; }
    int pauseRemaining() const { return report().pauseRemaining; }
    int pausesLeft() const { return report().pausesLeft; }
    QStringList blockedApps() const { return report().blockedApps; }
    QStringList blockedWebsites() const { return report().blockedWebsites; }
    QString hidingSupport() const;
    QString version() const { return m_environment.version; }

    QStringList Start(const QString& goal, double duration, const QStringList& categories,
                      const QStringList& apps, const QStringList& websites);
    QStringList StartPreset(const QString& goal, const QString& preset, double duration);
    void Pause();
    void Resume();
    void Extend(double by);
    void Stop();
    void Follow();
    void Unfollow();
    QList<HistoryEntry> History(const QString& before, uint limit);
    QList<PresetEntry> Presets() const;
    QList<CategoryEntry> Categories() const;
    QList<ApplicationEntry> Applications() const;
    QStringList Browsers() const;
    void Quit();

    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

Q_SIGNALS:
    /// Somebody wants to see the program.
    void activated();
    /// Somebody wants the program to end. The answer to them is not sent before this returns.
    void quitRequested();

private:
    StatusReport report() const;
    /// The one that runs or is paused; null without.
    const FocusSession* session() const;
    void sessionChanged();
    void tellFollowers();
    void tell(const QString& follower, const QVariantMap& properties);

    QStringList start(const SessionPlanner::Result& planned);
    /// Refuses the call that is being handled.
    void refuse(const RemoteError& error);
    void refuse(RemoteError::Kind kind, const QString& message) { refuse({kind, message}); }
    /// Refuses the call when there is no session.
    bool hasSession();

    Environment m_environment;
    SessionPlanner m_planner;
    QDBusConnection m_bus;
    Followers m_followers;
    /// The current session's.
    ResolvedBlocks m_blocks;
    /// The properties that signal their changes, as they were last told.
    QVariantMap m_announced;
};

} // namespace tolvar
