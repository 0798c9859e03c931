#include "Platform/Linux/X11/X11Workspace.h"

#include "Platform/Linux/X11/ActivityTracker.h"
#include "Platform/Linux/X11/DeskReader.h"
#include "Platform/Linux/X11/HidingLedger.h"
#include "Platform/Linux/X11/WindowIcon.h"
#include "Platform/Linux/X11/WindowWatch.h"
#include "Platform/Linux/X11/XConnection.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <map>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// How long a window may take to hide before it counts as one that came back.
constexpr milliseconds hidingPatience{250};
/// One that never hides, for its window manager refuses to, is waited for longer and longer.
constexpr milliseconds longestPatience{8000};
/// So many reports within a second are answered at once. A program that always shows its window
/// again makes more; it is not to keep us busy.
constexpr std::size_t reportsPerSecond = 10;

} // namespace

/// The workspace at work. Subscriptions and calls that are due later may outlive it.
class X11Workspace::Session final : public std::enable_shared_from_this<Session> {
public:
    Session(std::unique_ptr<XConnection> connection, DesktopEntries entries, SystemLog& log);

    bool canHide();
    /// The desktop now; nothing of it under a window manager that can hide no windows.
    Desk look();
    std::optional<RunningApplication> frontmost();
    std::vector<ArgbPicture> icon(const QString& key);
    void hide(const QString& key);
    void unhide(const QString& key);
    void activateSelf();
    std::vector<ApplicationHandle> hiddenByEarlierRun();
    Subscription observe(Observer observer);

private:
    bool isObserved() const { return !m_observers.empty(); }
    void startWatching();
    void stopWatching();
    void endObservation(int id);

    Desk lookAndWatch();
    void finish();
    bool knowsHowToHide();
    void tellObservers(const std::vector<Activity>& activities);

    void readEvents();
    void readEventsSoon();
    bool takeNews();
    bool isNewsOf(const xcb_property_notify_event_t& change);
    void catchUp();
    void catchUpLater();
    bool isBusy();
    bool isLost();

    std::unique_ptr<XConnection> m_connection;
    SystemLog& m_log;
    DeskReader m_reader;
    HidingLedger m_ledger;
    WindowWatch m_watch;
    ActivityTracker m_tracker;
    QSocketNotifier m_notifier;
    std::map<int, Observer> m_observers;
    int m_nextObserver = 0;
    ActivityTracker::Focus m_focus = ActivityTracker::Focus::stayed;
    bool m_isManagerKnown = false;
    /// The desktop as it was just seen and reported.
    std::optional<Desk> m_justSeen;
    /// The desktop as it was when somebody asked for the frontmost application; nothing once that
    /// may have changed.
    std::optional<Desk> m_settled;
    bool m_isReadingDue = false;
    QTimer m_later;
    std::deque<steady_clock::time_point> m_reportTimes;
    bool m_isLossLogged = false;
};

X11Workspace::Session::Session(std::unique_ptr<XConnection> connection, DesktopEntries entries,
                               SystemLog& log)
    : m_connection(std::move(connection))
    , m_log(log)
    , m_reader(*m_connection, std::move(entries))
    , m_ledger(*m_connection, m_reader)
    , m_watch(*m_connection)
    , m_notifier(m_connection->fileDescriptor(), QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { readEvents(); });
    m_later.setSingleShot(true);
    m_later.setInterval(hidingPatience);
    QObject::connect(&m_later, &QTimer::timeout, &m_later, [this] { catchUpLater(); });
}

bool X11Workspace::Session::isLost() {
    if (m_connection->isAlive())
        return false;
    m_notifier.setEnabled(false);
    if (!std::exchange(m_isLossLogged, true))
        m_log.error(u"Workspace"_s, u"The connection to the X server is lost."_s);
    return true;
}

bool X11Workspace::Session::canHide() {
    m_isManagerKnown = !isLost() && m_reader.meetWindowManager();
    readEventsSoon();
    return m_isManagerKnown;
}

/// While it is observed, events tell when the window manager changes.
bool X11Workspace::Session::knowsHowToHide() {
    if (isLost())
        return false;
    return (isObserved() && m_isManagerKnown) || canHide();
}

Desk X11Workspace::Session::look() {
    if (!knowsHowToHide() && (isLost() || !m_reader.hider()))
        return {};
    if (!isObserved())
        m_reader.forgetWindows();
    Desk desk = m_reader.look();
    readEventsSoon();
    return desk;
}

/// Asked again and again while something is blocked. What would change the answer makes an event:
/// as long as there is none, the server need not be asked.
std::optional<RunningApplication> X11Workspace::Session::frontmost() {
    if (!m_settled || !isObserved() || !m_isManagerKnown || m_connection->hasEvents() || isLost())
        m_settled = look();
    return m_settled->frontmost();
}

/// Dialogs often bring none; the first window that does speaks for all.
std::vector<ArgbPicture> X11Workspace::Session::icon(const QString& key) {
    for (const DeskWindow& window : look().windowsOf(key))
        if (auto icon = readWindowIcon(*m_connection, window.facts.id); !icon.empty())
            return icon;
    return {};
}

void X11Workspace::Session::hide(const QString& key) {
    m_settled.reset();
    // Who hides what was just reported need not look again.
    const auto seen = std::exchange(m_justSeen, std::nullopt);
    if (!knowsHowToHide())
        return;
    const auto windows = (seen ? *seen : look()).windowsOf(key);
    if (windows.empty() || !knowsHowToHide())
        return;
    m_watch.watchAlso(idsOf(windows));
    const auto stillShown = m_ledger.hide(windows);
    m_tracker.noteHidden(key, stillShown);
    if (isObserved() && !stillShown.empty())
        m_later.start();
    finish();
}

void X11Workspace::Session::unhide(const QString& key) {
    m_settled.reset();
    m_justSeen.reset();
    // The news that the window manager is gone may not have been read.
    m_isManagerKnown = false;
    const auto windows = look().windowsOf(key);
    if (windows.empty())
        return;
    m_watch.watchAlso(idsOf(windows));
    m_ledger.show(windows);
    m_tracker.noteShown(key, idsOf(windows));
    finish();
}

/// After changes that were asked for: sees to it that they are done, for this process may end now,
/// and that what they caused is read where somebody observes.
void X11Workspace::Session::finish() {
    if (!isObserved())
        m_watch.watchNothing();
    m_connection->sync();
    readEventsSoon();
}

void X11Workspace::Session::activateSelf() {
    if (!canHide())
        return;
    const auto own = m_reader.ownShownWindows();
    const WindowId active = m_reader.activeWindow();
    if (own.empty() || std::find(own.begin(), own.end(), active) != own.end())
        return;
    m_connection->tellWindowManager(own.back(), m_connection->ewmh()._NET_ACTIVE_WINDOW,
                                    {XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, XCB_CURRENT_TIME, 0, 0, 0});
    m_connection->flush();
    readEventsSoon();
}

std::vector<ApplicationHandle> X11Workspace::Session::hiddenByEarlierRun() {
    if (!canHide() || !m_reader.hasMarkedWindows())
        return {};
    m_ledger.letEarlierRunsSettle(look());
    const Desk desk = look();
    m_ledger.dropOutdatedMarks(desk, m_tracker.expectedHidden());
    m_connection->sync();
    std::vector<ApplicationHandle> handles;
    for (const DeskWindow& window : desk.windows) {
        const ApplicationHandle handle{window.application.key};
        if (m_ledger.isOfEarlierRun(window) &&
            std::find(handles.begin(), handles.end(), handle) == handles.end())
            handles.push_back(handle);
    }
    readEventsSoon();
    return handles;
}

Subscription X11Workspace::Session::observe(Observer observer) {
    const int id = m_nextObserver++;
    m_observers.emplace(id, std::move(observer));
    if (m_observers.size() == 1)
        startWatching();
    return Subscription([weak = weak_from_this(), id] {
        if (const auto session = weak.lock())
            session->endObservation(id);
    });
}

void X11Workspace::Session::endObservation(int id) {
    m_observers.erase(id);
    if (!isObserved())
        stopWatching();
}

void X11Workspace::Session::startWatching() {
    if (isLost())
        return;
    m_settled.reset();
    m_reader.forgetEntries();
    m_isManagerKnown = m_reader.meetWindowManager();
    m_watch.watchDesktop(m_reader.managerWindow());
    if (m_isManagerKnown)
        m_ledger.letEarlierRunsSettle(m_reader.look());
    m_tracker.begin(m_isManagerKnown ? lookAndWatch() : Desk());
    m_connection->flush();
    readEventsSoon();
}

void X11Workspace::Session::stopWatching() {
    m_later.stop();
    m_watch.watchNothing();
    m_tracker.begin({});
    m_connection->flush();
}

/// Windows that are hidden or about to be are watched for being shown, those without a class for
/// getting one, and the one in front for turning out to be of another application.
Desk X11Workspace::Session::lookAndWatch() {
    for (;;) {
        Desk desk = m_reader.look();
        std::set<WindowId> wanted;
        for (const DeskWindow& window : desk.windows)
            if (window.isHidden || m_tracker.expectedHidden().contains(window.facts.id) ||
                window.facts.wmClass.className.isEmpty() || window.facts.id == desk.activeWindow)
                wanted.insert(window.facts.id);
        if (!m_watch.watchOnly(wanted))
            return desk;
    }
}

void X11Workspace::Session::catchUp() {
    // Between two window managers the client list tells nothing.
    if (!knowsHowToHide())
        return;
    m_watch.watchDesktop(m_reader.managerWindow());
    const Desk desk = lookAndWatch();
    const auto focus = std::exchange(m_focus, ActivityTracker::Focus::stayed);
    const auto activities = m_tracker.update(desk, focus);
    if (!activities.empty())
        m_reportTimes.push_back(steady_clock::now());
    if (m_tracker.expectedHidden().empty() && activities.empty())
        m_later.setInterval(hidingPatience);
    if (m_tracker.isPatient(desk) && !m_later.isActive())
        m_later.start();
    m_ledger.dropOutdatedMarks(desk, m_tracker.expectedHidden());
    m_ledger.hidePostponed(desk);
    m_connection->flush();
    m_justSeen = desk;
    tellObservers(activities);
    m_justSeen.reset();
}

/// Looks at windows that did not hide: nothing may ever happen to them that tells of it.
void X11Workspace::Session::catchUpLater() {
    const auto alive = shared_from_this();
    if (!isObserved() || !knowsHowToHide())
        return;
    const Desk desk = m_reader.look();
    const bool isAnyInView = m_tracker.isPatient(desk);
    m_later.setInterval(isAnyInView ? std::min(m_later.intervalAsDuration() * 2, longestPatience)
                                    : hidingPatience);
    m_tracker.endPatience(desk);
    catchUp();
    readEventsSoon();
}

bool X11Workspace::Session::isBusy() {
    const auto now = steady_clock::now();
    while (!m_reportTimes.empty() && now - m_reportTimes.front() > seconds(1))
        m_reportTimes.pop_front();
    return m_reportTimes.size() >= reportsPerSecond;
}

void X11Workspace::Session::tellObservers(const std::vector<Activity>& activities) {
    std::vector<int> ids;
    for (const auto& [id, observer] : m_observers)
        ids.push_back(id);
    for (const Activity& activity : activities)
        for (const int id : ids) {
            const auto place = m_observers.find(id);
            if (place == m_observers.end())
                continue;
            const Observer observer = place->second;
            const auto& tell =
                activity.kind == Activity::Kind::launched ? observer.launched : observer.activated;
            if (tell)
                tell(activity.application);
        }
}

void X11Workspace::Session::readEvents() {
    const auto alive = shared_from_this();
    const bool isNews = takeNews();
    if (isLost() || !isObserved() || !isNews)
        return;
    m_settled.reset();
    if (isBusy()) {
        if (!m_later.isActive())
            m_later.start();
        return;
    }
    catchUp();
    readEventsSoon();
}

/// Events that were read while an answer was awaited wake nobody any more.
void X11Workspace::Session::readEventsSoon() {
    if (m_isReadingDue || !m_connection->hasQueuedEvents())
        return;
    m_isReadingDue = true;
    QMetaObject::invokeMethod(
        &m_notifier,
        [this] {
            m_isReadingDue = false;
            readEvents();
        },
        Qt::QueuedConnection);
}

/// Takes all events that have arrived. Returns whether any of them is worth a look.
bool X11Workspace::Session::takeNews() {
    bool isNews = false;
    while (const auto event = m_connection->nextEvent()) {
        const int type = event->response_type & 0x7f;
        if (type == XCB_DESTROY_NOTIFY)
            m_isManagerKnown = false;
        isNews = isNews || type == XCB_DESTROY_NOTIFY;
        if (type == XCB_PROPERTY_NOTIFY &&
            isNewsOf(reinterpret_cast<const xcb_property_notify_event_t&>(*event)))
            isNews = true;
    }
    return isNews;
}

bool X11Workspace::Session::isNewsOf(const xcb_property_notify_event_t& change) {
    const auto& ewmh = m_connection->ewmh();
    if (change.atom == ewmh._NET_SUPPORTING_WM_CHECK)
        m_isManagerKnown = false;
    if (change.atom == ewmh._NET_ACTIVE_WINDOW)
        m_focus = ActivityTracker::Focus::moved;
    if (change.window == m_connection->root())
        return change.atom == ewmh._NET_CLIENT_LIST || change.atom == ewmh._NET_ACTIVE_WINDOW ||
               change.atom == ewmh._NET_SUPPORTING_WM_CHECK;
    return change.atom == m_connection->atom(XAtom::wmState) || change.atom == ewmh._NET_WM_STATE ||
           change.atom == ewmh._NET_WM_DESKTOP || change.atom == XCB_ATOM_WM_CLASS;
}

X11Workspace::X11Workspace(std::shared_ptr<Session> session)
    : m_session(std::move(session)) {}

X11Workspace::~X11Workspace() = default;

std::unique_ptr<X11Workspace> X11Workspace::create(DesktopEntries entries, SystemLog& log) {
    auto connection = XConnection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11Workspace>(new X11Workspace(
        std::make_shared<Session>(std::move(connection), std::move(entries), log)));
}

HidingSupport X11Workspace::hidingSupport() const {
    return m_session->canHide() ? HidingSupport::full : HidingSupport::none;
}

std::vector<RunningApplication> X11Workspace::runningApplications() const {
    return m_session->look().applications();
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
    return m_session->frontmost();
}

std::optional<RunningApplication> X11Workspace::application(const ApplicationHandle& handle) const {
    return m_session->look().application(handle.key);
}

std::vector<ArgbPicture> X11Workspace::icon(const ApplicationHandle& handle) const {
    return m_session->icon(handle.key);
}

void X11Workspace::hide(const ApplicationHandle& handle) {
    m_session->hide(handle.key);
}

void X11Workspace::unhide(const ApplicationHandle& handle) {
    m_session->unhide(handle.key);
}

void X11Workspace::activateSelf() {
    m_session->activateSelf();
}

std::vector<ApplicationHandle> X11Workspace::hiddenByEarlierRun() const {
    return m_session->hiddenByEarlierRun();
}

Subscription X11Workspace::observe(Observer observer) {
    return m_session->observe(std::move(observer));
}

} // namespace tolvar
