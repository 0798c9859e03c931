#include "App/Client/Follower.h"

#include "App/Client/StatusFormat.h"
#include "App/Protocol/RemoteNames.h"
#include "App/Protocol/StatusReport.h"
#include "TolvarInterface.h"

#include <QDBusPendingCallWatcher>

#include <unistd.h>

namespace tolvar {

using namespace Qt::StringLiterals;

Follower::Follower(const RunningProgram& program, Command::Status::Format format,
                   Terminal& terminal)
    : m_program(program)
    , m_format(format)
    , m_terminal(terminal)
    , m_programWatcher(RemoteNames::service, program.bus())
    , m_hangUp(STDOUT_FILENO, QSocketNotifier::Exception) {
    connect(
        &m_programWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& owner) { programChanged(owner); });
    connect(&m_hangUp, &QSocketNotifier::activated, this, [this] { end(ExitStatus::done); });
    // The bus library tells of a lost bus by this signal alone, from nobody and by its text.
    QDBusConnection(program.bus())
        .connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                 u"Disconnected"_s, this, SLOT(busEnded()));
}

Follower::~Follower() = default;

ExitStatus Follower::follow() {
    programChanged(m_program.address().value_or(QString()));
    return m_end ? *m_end : static_cast<ExitStatus>(m_loop.exec());
}

void Follower::attach(const QString& address) {
    m_control = m_program.control(address);
    connect(m_control.get(), &TolvarInterface::Followed, this, &Follower::show);
    auto* following = new QDBusPendingCallWatcher(m_control->Follow(), m_control.get());
    connect(following, &QDBusPendingCallWatcher::finished, this, [this, following] {
        if (following->isError())
            show(toProperties({}));
    });
}

void Follower::programChanged(const QString& address) {
    m_control.reset();
    if (address.isEmpty())
        show(toProperties({}));
    else
        attach(address);
}

void Follower::show(const QVariantMap& properties) {
    const QString line = formatStatus(statusFromProperties(properties), m_format) + u'\n';
    if (line == std::exchange(m_lastLine, line))
        return;
    const auto printed = m_terminal.print(line);
    if (printed != Terminal::Printed::all)
        end(printed == Terminal::Printed::failed ? ExitStatus::notApplicable : ExitStatus::done);
}

void Follower::busEnded() {
    m_terminal.complain(u"the session bus is gone"_s);
    end(ExitStatus::unreachable);
}

/// The loop may not run yet.
void Follower::end(ExitStatus status) {
    m_end = status;
    m_loop.exit(static_cast<int>(status));
}

} // namespace tolvar
