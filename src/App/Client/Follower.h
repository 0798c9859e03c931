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

namespace tolvar {

/// Prints a line whenever the status changes, as the running program tells it. When the program
/// quits, the line says so, and the following goes on when it returns. It ends quietly when nobody
/// reads the lines any more, and as unreachable when the bus ends.
class Follower final : public QObject {
    Q_OBJECT

public:
    Follower(const RunningProgram& program, Command::Status::Format format, Terminal& terminal);
    ~Follower() override;

    /// Follows the program at `address` until there is a reason to end.
    ExitStatus follow(const QString& address);

private Q_SLOTS:
    void busEnded();

private:
    void attach(const QString& address);
    void programChanged(const QString& address);
    void show(const QVariantMap& properties);

    const RunningProgram& m_program;
    Command::Status::Format m_format;
    Terminal& m_terminal;
    QDBusServiceWatcher m_programWatcher;
    QSocketNotifier m_hangUp;
    std::unique_ptr<TolvarInterface> m_control;
    QEventLoop m_loop;
    QString m_lastLine;
};

} // namespace tolvar
