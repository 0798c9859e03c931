#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/BrowserChannel.h"
#include "Platform/Interfaces/SystemLog.h"
#include "Platform/Interfaces/TimerService.h"
#include "Platform/Linux/Browsers/CompanionConnection.h"
#include "Platform/Linux/Browsers/CompanionSocket.h"

#include <QObject>
#include <QSocketNotifier>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tolvar {

/// The browsers in which Tolvar's extension runs. Each keeps a connection to the program's socket
/// and tells at once which tabs it shows, so that asking for them never waits.
///
/// A browser is named by its program, "chromium"; a second one of the same name, such as another
/// profile, "chromium 2". Whoever says what no companion says, or does not tell a name in time, is
/// hung up on, with a line in the log.
class CompanionChannel final : public QObject, public BrowserChannel {
    Q_OBJECT

public:
    /// No more are let in at a time; further ones wait until one leaves.
    static constexpr std::size_t mostConnections = 32;
    /// Until whoever was let in has to have told a name.
    static constexpr std::chrono::seconds patience{10};

    /// Awaits companions in `folder`. Where that is not possible the log gets one line, and there
    /// are no browsers. `log` and `timers` outlive this.
    CompanionChannel(const std::string& folder, SystemLog& log, TimerService& timers);
    ~CompanionChannel() override;

    /// In the order in which they came.
    std::vector<QString> runningBrowsers() const override;
    std::optional<std::vector<ActiveTab>> activeTabs(const QString& browser) override;
    /// Tabs that the browser does not show any more are left alone.
    void redirect(const std::vector<ActiveTab>& tabs, const QString& browser) override;
    /// Many changes at once are told once, from the event loop.
    [[nodiscard]] Subscription observeChanges(std::function<void()> changed) override;

private:
    struct Companion {
        /// Empty until it told its name.
        QString name;
        std::unique_ptr<CompanionConnection> connection;
        /// Runs while the name is awaited.
        std::unique_ptr<Timer> patience;
    };

    void letIn();
    void awaitArrivals();
    void awaitArrivalsLater();
    void add(Descriptor socket);
    QString freeName(const QString& browser) const;
    Companion* companionNamed(const QString& browser);
    void settleSoon();
    void settle();

    SystemLog& m_log;
    TimerService& m_timers;
    std::optional<CompanionSocket> m_socket;
    std::unique_ptr<QSocketNotifier> m_arrivals;
    std::vector<std::unique_ptr<Companion>> m_companions;
    ObserverList<std::function<void()>> m_observers;
    bool m_isSettling = false;
};

} // namespace tolvar
