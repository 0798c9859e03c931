#include "Platform/Linux/StatusNotifier/StatusNotifierPlace.h"

#include "BusInterface.h"
#include "PropertiesInterface.h"
#include "WatcherInterface.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
const QString hostProperty = u"IsStatusNotifierHostRegistered"_s;

} // namespace

StatusNotifierPlace::StatusNotifierPlace(const StatusNotifierItem::Options& options)
    : m_options(options)
    , m_watcher(std::make_unique<OrgKdeStatusNotifierWatcherInterface>(watcherService, watcherPath,
                                                                       options.bus))
    , m_properties(std::make_unique<OrgFreedesktopDBusPropertiesInterface>(
          watcherService, watcherPath, options.bus))
    , m_busItself(std::make_unique<OrgFreedesktopDBusInterface>(
          u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, options.bus))
    , m_watcherWatch(watcherService, options.bus) {
    using Watcher = OrgKdeStatusNotifierWatcherInterface;
    connect(&m_watcherWatch, &QDBusServiceWatcher::serviceRegistered, this,
            &StatusNotifierPlace::ask);
    connect(&m_watcherWatch, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        ++m_question;
        become(Presence::absent);
    });
    connect(m_watcher.get(), &Watcher::StatusNotifierHostRegistered, this,
            &StatusNotifierPlace::ask);
    connect(m_watcher.get(), &Watcher::StatusNotifierHostUnregistered, this,
            &StatusNotifierPlace::ask);
    if (m_options.bus.isConnected())
        ask();
    else
        m_presence = Presence::absent;
}

StatusNotifierPlace::~StatusNotifierPlace() = default;

/// Not every watcher tells of hosts by the right signal: the property has the last word.
void StatusNotifierPlace::ask() {
    ++m_question;
    await(m_properties->Get(QLatin1StringView(m_watcher->staticInterfaceName()), hostProperty),
          [this](const QDBusPendingCall& answer) {
              const QDBusPendingReply<QDBusVariant> reply = answer;
              if (!reply.isError() && reply.value().variant().toBool())
                  askForProcess();
              else
                  become(Presence::absent);
          });
}

void StatusNotifierPlace::askForProcess() {
    await(m_busItself->GetConnectionUnixProcessID(watcherService),
          [this](const QDBusPendingCall& answer) {
              const QDBusPendingReply<uint> reply = answer;
              m_hostProcess = reply.isError() ? 0 : reply.value();
              become(Presence::present);
          });
}

void StatusNotifierPlace::await(const QDBusPendingCall& answer,
                                std::function<void(const QDBusPendingCall&)> finished) {
    auto* watcher = new QDBusPendingCallWatcher(answer, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, question = m_question, finished = std::move(finished)](auto* done) {
                done->deleteLater();
                if (question == m_question)
                    finished(*done);
            });
}

void StatusNotifierPlace::become(Presence presence) {
    if (m_presence == presence)
        return;
    m_presence = presence;
    m_observers.tell([](const auto& changed) { changed(); });
}

std::unique_ptr<StatusItem> StatusNotifierPlace::makeItem() {
    return std::make_unique<StatusNotifierItem>(m_options);
}

} // namespace tolvar
