#include "App/SingleInstance.h"

#include "App/Protocol/RemoteNames.h"

#include <QDBusConnectionInterface>

#include <chrono>
#include <thread>

namespace tolvar {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 2s;
constexpr auto lookInterval = 20ms;

bool isNameTaken(const QDBusConnection& bus) {
    return bus.isConnected() && bus.interface()->isServiceRegistered(RemoteNames::service);
}

} // namespace

/// The lock is taken before the name and given back after it: between the two there is one that has
/// the lock and cannot be reached, which alone does not mean that it lives in another session.
SingleInstance::Claim SingleInstance::claim(const QDBusConnection& bus, const QString& dataFolder) {
    const auto deadline = std::chrono::steady_clock::now() + (bus.isConnected() ? patience : 0s);
    auto lock = std::make_unique<InstanceLock>(dataFolder);
    while (lock->state() == InstanceLock::State::heldElsewhere) {
        if (isNameTaken(bus))
            return Obstacle::runsOnThisBus;
        if (std::chrono::steady_clock::now() >= deadline)
            return Obstacle::runsElsewhere;
        std::this_thread::sleep_for(lookInterval);
        lock = std::make_unique<InstanceLock>(dataFolder);
    }
    if (bus.isConnected() && !QDBusConnection(bus).registerService(RemoteNames::service))
        return Obstacle::runsOnThisBus;
    return std::unique_ptr<SingleInstance>(new SingleInstance(bus, std::move(lock)));
}

SingleInstance::SingleInstance(const QDBusConnection& bus, std::unique_ptr<InstanceLock> lock)
    : m_bus(bus)
    , m_lock(std::move(lock)) {}

SingleInstance::~SingleInstance() {
    if (m_bus.isConnected())
        m_bus.unregisterService(RemoteNames::service);
}

} // namespace tolvar
