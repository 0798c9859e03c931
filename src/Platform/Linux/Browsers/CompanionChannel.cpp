#include "Platform/Linux/Browsers/CompanionChannel.h"

#include "BrowserHost/PrivateFolder.h"

#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using CompanionMessages::ShownTab;

const QString logCategory = u"BrowserChannel"_s;
/// Until it is tried again to let somebody in.
constexpr std::chrono::seconds pauseAfterFailure(1);

} // namespace

CompanionChannel::CompanionChannel(const std::string& folder, SystemLog& log, TimerService& timers)
    : m_log(log)
    , m_timers(timers) {
    auto listening = CompanionSocket::listen(folder);
    if (const auto* reason = std::get_if<QString>(&listening)) {
        m_log.error(logCategory, u"Browsers cannot be reached: "_s + *reason);
        return;
    }
    m_socket.emplace(std::get<CompanionSocket>(std::move(listening)));
    m_arrivals = std::make_unique<QSocketNotifier>(m_socket->descriptor(), QSocketNotifier::Read);
    connect(m_arrivals.get(), &QSocketNotifier::activated, this, &CompanionChannel::letIn);
}

CompanionChannel::~CompanionChannel() = default;

std::vector<QString> CompanionChannel::runningBrowsers() const {
    std::vector<QString> names;
    for (const auto& companion : m_companions)
        if (!companion->name.isEmpty() && !companion->connection->hasEnded())
            names.push_back(companion->name);
    return names;
}

std::optional<std::vector<ActiveTab>> CompanionChannel::activeTabs(const QString& browser) {
    const Companion* companion = companionNamed(browser);
    if (companion == nullptr || !companion->connection->picture())
        return std::nullopt;
    std::vector<ActiveTab> tabs;
    for (const ShownTab& shown : *companion->connection->picture())
        tabs.push_back(CompanionMessages::activeTab(shown));
    return tabs;
}

void CompanionChannel::redirect(const std::vector<ActiveTab>& tabs, const QString& browser) {
    const Companion* companion = companionNamed(browser);
    if (companion == nullptr || !companion->connection->picture())
        return;
    std::vector<qint64> numbers;
    for (const ShownTab& shown : *companion->connection->picture())
        if (std::ranges::find(tabs, CompanionMessages::activeTab(shown)) != tabs.end())
            numbers.push_back(shown.tab);
    if (!numbers.empty())
        companion->connection->send(CompanionMessages::blankCommand(numbers));
}

Subscription CompanionChannel::observeChanges(std::function<void()> changed) {
    return m_observers.add(std::move(changed));
}

void CompanionChannel::letIn() {
    Descriptor socket = m_socket->accept();
    if (!socket) {
        if (errno != EAGAIN && errno != ECONNABORTED)
            awaitArrivalsLater();
        return;
    }
    if (!PrivateFolder::isPeerOurs(socket.number())) {
        m_log.error(logCategory, u"Hung up on another user's program"_s);
        return;
    }
    add(std::move(socket));
    awaitArrivals();
}

void CompanionChannel::awaitArrivals() {
    m_arrivals->setEnabled(m_companions.size() < mostConnections);
}

/// Too many open files, likely, which only time can change: whoever waits still waits then.
void CompanionChannel::awaitArrivalsLater() {
    m_arrivals->setEnabled(false);
    QTimer::singleShot(pauseAfterFailure, this, &CompanionChannel::awaitArrivals);
}

void CompanionChannel::add(Descriptor socket) {
    auto& companion = *m_companions.emplace_back(std::make_unique<Companion>());
    companion.connection = std::make_unique<CompanionConnection>(
        std::move(socket),
        CompanionConnection::Observer{
            .named =
                [this, &companion](const QString& name) {
                    companion.name = freeName(name);
                    companion.patience.reset();
                },
            .changed = [this] { settleSoon(); },
            .failed =
                [this, &companion](const QString& fault) {
                    const QString who = companion.name.isEmpty() ? u"a program"_s : companion.name;
                    m_log.error(logCategory, u"Hung up on %1: %2"_s.arg(who, fault));
                },
        });
    companion.patience =
        m_timers.once(patience, [&companion] { companion.connection->fail(u"no name in time"_s); });
}

QString CompanionChannel::freeName(const QString& browser) const {
    const auto taken = runningBrowsers();
    QString name = browser;
    for (int number = 2; std::ranges::find(taken, name) != taken.end(); ++number)
        name = u"%1 %2"_s.arg(browser).arg(number);
    return name;
}

CompanionChannel::Companion* CompanionChannel::companionNamed(const QString& browser) {
    const auto found = std::ranges::find_if(m_companions, [&](const auto& companion) {
        return companion->name == browser && !companion->connection->hasEnded();
    });
    return browser.isEmpty() || found == m_companions.end() ? nullptr : found->get();
}

void CompanionChannel::settleSoon() {
    if (!std::exchange(m_isSettling, true))
        QMetaObject::invokeMethod(this, &CompanionChannel::settle, Qt::QueuedConnection);
}

/// Outside of any connection's reading and writing, where those that ended can be let go.
void CompanionChannel::settle() {
    m_isSettling = false;
    std::erase_if(m_companions,
                  [](const auto& companion) { return companion->connection->hasEnded(); });
    awaitArrivals();
    m_observers.tell();
}

} // namespace tolvar
