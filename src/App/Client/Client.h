#pragma once

#include "App/Client/Command.h"
#include "App/Client/ExitStatus.h"
#include "App/Client/RunningProgram.h"
#include "App/Client/Terminal.h"

#include <QDBusError>
#include <QDBusPendingCall>
#include <QString>
#include <QStringList>

#include <optional>

class QJsonArray;

namespace tolvar {

class BrowserCompanions;

/// Carries out commands by asking the running program, and tells the shell how it went.
class Client {
public:
    /// The program that `start` starts when none runs.
    struct Program {
        QString executable;
        QString version;
    };

    /// `browsers` and `terminal` outlive it.
    Client(const QDBusConnection& bus, Program program, BrowserCompanions& browsers,
           Terminal& terminal);

    ExitStatus run(const Command::Any& command);

private:
    ExitStatus execute(const Command::Open& open);
    ExitStatus execute(const Command::Start& start);
    ExitStatus execute(const Command::Pause& pause);
    ExitStatus execute(const Command::Resume& resume);
    ExitStatus execute(const Command::Extend& extend);
    ExitStatus execute(const Command::Stop& stop);
    ExitStatus execute(const Command::Status& status);
    ExitStatus execute(const Command::List& list);
    ExitStatus execute(const Command::Browsers& browsers);
    ExitStatus execute(const Command::Quit& quit);
    ExitStatus execute(const Command::Version& version);
    ExitStatus execute(const Command::Help& help);

    ExitStatus begin(const Command::Start& start, const QString& address);
    ExitStatus showStatus(const QString& address, Command::Status::Format format);
    ExitStatus showHistory(const QString& address, const Command::List& list);
    /// What the running program is connected to; nothing where none runs or answers.
    QStringList connectedBrowsers() const;
    ExitStatus showBrowsers(const QString& address, const Command::List& list);
    template<typename Entries, typename Table>
    ExitStatus show(const Entries& entries, const Command::List& list, Table table,
                    const QString& whenEmpty);
    ExitStatus showJson(const QJsonArray& array);
    ExitStatus print(const QString& text);

    /// Asks the running program with `question`, a function of its address.
    template<typename Question>
    ExitStatus ask(Question question);
    /// Waits for the answer to a call and tells what went wrong.
    ExitStatus settle(QDBusPendingCall call);
    ExitStatus explain(const QDBusError& error);
    ExitStatus notRunning();

    RunningProgram m_running;
    Program m_program;
    BrowserCompanions& m_browsers;
    Terminal& m_terminal;
};

} // namespace tolvar
