#include "App/Remote/RemoteControl.h"

#include "App/Protocol/RemoteNames.h"
#include "ApplicationAdaptor.h"
#include "Models/CategoryStore.h"
#include "Models/FocusManager.h"
#include "Platform/Interfaces/BrowserChannel.h"
#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Interfaces/Workspace.h"
#include "TolvarAdaptor.h"

#include <QDBusMessage>

#include <algorithm>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using Kind = RemoteError::Kind;

/// Those that move all the time signal no change.
QVariantMap withoutMovingOnes(QVariantMap properties) {
    for (const QString& moving : {u"Remaining"_s, u"Elapsed"_s, u"PauseRemaining"_s})
        properties.remove(moving);
    return properties;
}

QVariantMap changes(const QVariantMap& before, const QVariantMap& after) {
    QVariantMap changed;
    for (auto it = after.begin(); it != after.end(); ++it)
        if (before.value(it.key()) != it.value())
            changed.insert(it.key(), it.value());
    return changed;
}

template<typename Entry, typename Record, typename Convert>
QList<Entry> converted(const std::vector<Record>& records, Convert convert) {
    QList<Entry> entries;
    entries.reserve(static_cast<qsizetype>(records.size()));
    std::transform(records.begin(), records.end(), std::back_inserter(entries), convert);
    return entries;
}

} // namespace

RemoteControl::RemoteControl(const Environment& environment, const QDBusConnection& bus)
    : m_environment(environment)
    , m_planner(environment.installed, environment.workspace)
    , m_bus(bus)
    , m_followers(bus) {
    registerRemoteRecords();
    new TolvarAdaptor(this);
    new ApplicationAdaptor(this);
    sessionChanged();
    connect(&m_environment.focusManager, &FocusManager::currentSessionChanged, this,
            &RemoteControl::sessionChanged);
    connect(&m_environment.focusManager, &FocusManager::changed, this,
            &RemoteControl::tellFollowers);
    if (m_bus.isConnected())
        m_bus.registerObject(RemoteNames::objectPath, this);
}

RemoteControl::~RemoteControl() {
    m_bus.unregisterObject(RemoteNames::objectPath);
}

QString RemoteControl::hidingSupport() const {
    return m_environment.workspace.hidingSupport() == HidingSupport::full ? u"full"_s : u"none"_s;
}

QStringList RemoteControl::Start(const QString& goal, double duration,
                                 const QStringList& categories, const QStringList& apps,
                                 const QStringList& websites) {
    return start(m_planner.plan(SessionPlanner::Request{goal, duration, categories, apps, websites},
                                m_environment.categories.categories()));
}

QStringList RemoteControl::StartPreset(const QString& goal, const QString& preset,
                                       double duration) {
    return start(m_planner.plan(SessionPlanner::PresetRequest{goal, preset, duration},
                                m_environment.focusManager.savedPresets(),
                                m_environment.categories.categories()));
}

/// What is wrong with the request itself is told first: it stays wrong when the session is over.
QStringList RemoteControl::start(const SessionPlanner::Result& planned) {
    if (const auto* error = std::get_if<RemoteError>(&planned)) {
        refuse(*error);
        return {};
    }
    auto& manager = m_environment.focusManager;
    if (session()) {
        refuse(Kind::sessionRunning, u"a session is running already"_s);
        return {};
    }
    const auto& plan = std::get<SessionPlanner::Plan>(planned);
    // A stored session that is not active is in the way without being one.
    manager.stopSession();
    manager.startSession(plan.session);
    return plan.warnings;
}

void RemoteControl::Pause() {
    if (!hasSession())
        return;
    if (session()->isPaused)
        return refuse(Kind::alreadyPaused, u"the session is paused already"_s);
    if (report().pausesLeft == 0)
        return refuse(Kind::noPausesLeft, u"this session has no pauses left"_s);
    m_environment.focusManager.pauseSession();
}

void RemoteControl::Resume() {
    if (!hasSession())
        return;
    if (!session()->isPaused)
        return refuse(Kind::notPaused, u"the session is not paused"_s);
    m_environment.focusManager.resumeSession();
}

void RemoteControl::Extend(double by) {
    if (!hasSession())
        return;
    if (const auto error = durationError(by))
        return refuse(*error);
    if (const auto error = durationError(session()->duration + by))
        return refuse(*error);
    m_environment.focusManager.extendSession(by);
}

void RemoteControl::Stop() {
    if (hasSession())
        m_environment.focusManager.stopSession();
}

void RemoteControl::Follow() {
    m_followers.add(message().service());
    tell(message().service(), toProperties(report()));
}

void RemoteControl::Unfollow() {
    m_followers.remove(message().service());
}

QList<HistoryEntry> RemoteControl::History(const QString& before, uint limit) {
    const auto& history = m_environment.focusManager.sessionHistory();
    auto newest = history.rbegin();
    if (!before.isEmpty()) {
        newest = std::find_if(newest, history.rend(),
                              [id = QUuid(before)](const auto& it) { return it.id == id; });
        if (newest == history.rend()) {
            refuse(Kind::unknownSession, u"the history holds no session "_s + before);
            return {};
        }
        ++newest;
    }
    const auto count = std::min<std::ptrdiff_t>(limit, history.rend() - newest);
    QList<HistoryEntry> entries;
    entries.reserve(count);
    std::transform(newest, newest + count, std::back_inserter(entries), historyEntry);
    return entries;
}

QList<PresetEntry> RemoteControl::Presets() const {
    return converted<PresetEntry>(m_environment.focusManager.savedPresets(), presetEntry);
}

QList<CategoryEntry> RemoteControl::Categories() const {
    return converted<CategoryEntry>(m_environment.categories.categories(), categoryEntry);
}

QList<ApplicationEntry> RemoteControl::Applications() const {
    return converted<ApplicationEntry>(
        m_environment.installed.list(), [](const InstalledApplication& application) {
            return ApplicationEntry{application.displayName, application.bundleIdentifier};
        });
}

QStringList RemoteControl::Browsers() const {
    const auto browsers = m_environment.browsers.runningBrowsers();
    return {browsers.begin(), browsers.end()};
}

void RemoteControl::Quit() {
    Q_EMIT quitRequested();
}

void RemoteControl::Activate(const QVariantMap&) {
    Q_EMIT activated();
}

/// There is nothing to open but the program itself.
void RemoteControl::Open(const QStringList&, const QVariantMap&) {
    Q_EMIT activated();
}

void RemoteControl::ActivateAction(const QString& action, const QVariantList&, const QVariantMap&) {
    sendErrorReply(QDBusError::InvalidArgs, u"there is no action "_s + action);
}

StatusReport RemoteControl::report() const {
    return statusReport(session(), m_blocks, m_environment.focusManager.clock().now());
}

const FocusSession* RemoteControl::session() const {
    return m_environment.focusManager.activeSession();
}

void RemoteControl::sessionChanged() {
    const FocusSession* current = session();
    m_blocks = current ? ResolvedBlocks::of(*current) : ResolvedBlocks();

    const auto properties = withoutMovingOnes(toProperties(report()));
    const auto changed = changes(std::exchange(m_announced, properties), properties);
    if (changed.isEmpty())
        return;
    auto signal = QDBusMessage::createSignal(
        RemoteNames::objectPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    signal.setArguments({RemoteNames::controlInterface, changed, QStringList()});
    m_bus.send(signal);
}

void RemoteControl::tellFollowers() {
    if (m_followers.names().isEmpty())
        return;
    const auto properties = toProperties(report());
    for (const QString& follower : m_followers.names())
        tell(follower, properties);
}

void RemoteControl::tell(const QString& follower, const QVariantMap& properties) {
    auto signal = QDBusMessage::createTargetedSignal(follower, RemoteNames::objectPath,
                                                     RemoteNames::controlInterface, u"Followed"_s);
    signal.setArguments({properties});
    m_bus.send(signal);
}

bool RemoteControl::hasSession() {
    if (session())
        return true;
    refuse(Kind::noSession, u"no session is running"_s);
    return false;
}

void RemoteControl::refuse(const RemoteError& error) {
    sendErrorReply(remoteErrorName(error.kind), error.message);
}

} // namespace tolvar
