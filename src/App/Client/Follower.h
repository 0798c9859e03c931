#pragma once

#include "App/Client/Command.h"
#include "App/Client/ExitStatus.h"
#include "App/Client/RunningProgram.h"
#include "App/Client/Terminal.h"

#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace tolvar {

/// Prints a line whenever the status changes, as the running program tells it. While the
/// program does not run, the line says so, and the following goes on when it comes. It ends quietly
/// when nobody reads the lines any more, and as unreachable when the bus ends.
class Follower final : public QObject {
    Q_OBJECT

public:
    Follower(const RunningProgram& program, Command::Status::Format format, Terminal& terminal);
    ~Follower() override;

    /// Follows the program until there is a reason to end. Needs a bus.
    ExitStatus follow();

private Q_SLOTS:
    void busEnded();

private:
    void attach(const QString& address);
    void programChanged(const QString& address);
    void show(const QVariantMap& properties);
    void end(ExitStatus status);

    const RunningProgram& m_program;
    Command::Status::Format m_format;
    Terminal& m_terminal;
    QDBusServiceWatcher m_programWatcher;
    QSocketNotifier m_hangUp;
    std::unique_ptr<TolvarInterface> m_control;
    QEventLoop m_loop;
    QString m_lastLine;
    std::optional<ExitStatus> m_end;
};

} // namespace tolvar
