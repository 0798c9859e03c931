#include "Platform/Linux/StatusNotifier/FakeStatusWatcher.h"

#include "WatcherAdaptor.h"

namespace tolvar::test {

using namespace Qt::StringLiterals;

FakeStatusWatcher::FakeStatusWatcher(const QDBusConnection& bus, bool hasHost)
    : m_bus(bus)
    , m_hasHost(hasHost) {
    new WatcherAdaptor(this);
    m_bus.registerObject(u"/StatusNotifierWatcher"_s, this);
    comeBack();
}

FakeStatusWatcher::~FakeStatusWatcher() {
    leave();
}

void FakeStatusWatcher::leave() {
    m_bus.unregisterService(u"org.kde.StatusNotifierWatcher"_s);
}

void FakeStatusWatcher::comeBack() {
    m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
}

void FakeStatusWatcher::setHost(bool hasHost) {
    m_hasHost = hasHost;
    if (hasHost)
        Q_EMIT StatusNotifierHostRegistered();
    else
        Q_EMIT StatusNotifierHostUnregistered();
}

} // namespace tolvar::test
