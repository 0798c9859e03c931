#pragma once

#include <QDBusConnection>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

class TolvarInterface;
class ApplicationInterface;

namespace tolvar {

/// The way to the running program on a session bus. Nothing here makes the bus start it.
class RunningProgram {
public:
    /// How long to wait for an answer. A program that runs answers in milliseconds.
    static constexpr std::chrono::seconds answerPatience{3};
    /// How long to wait for the program to come or go.
    static constexpr std::chrono::seconds patience{10};

    explicit RunningProgram(const QDBusConnection& bus)
        : m_bus(bus) {}

    const QDBusConnection& bus() const { return m_bus; }
    /// The unique bus name of the running program; nothing when none runs or there is no bus.
    std::optional<QString> address() const;
    /// The remote control of the program at `address`. Calls block for at most `answerPatience`.
    std::unique_ptr<TolvarInterface> control(const QString& address) const;
    std::unique_ptr<ApplicationInterface> application(const QString& address) const;

    /// Starts the program detached from this one and waits until it runs; its address, or nothing
    /// when it could not be started.
    std::optional<QString> start(const QString& executable) const;
    /// Waits until the program at `oldAddress` has ended; false when it did not.
    bool waitForEnd(const QString& oldAddress) const;

private:
    QDBusConnection m_bus;
};

} // namespace tolvar
