#pragma once

#include "App/Client/Command.h"
#include "App/Client/ExitStatus.h"
#include "App/Client/Terminal.h"
#include "Platform/Interfaces/BundleInfo.h"

#include <QDBusConnection>
#include <QStringList>

namespace tolvar {

/// One start of the executable: a command for the running program, or the running program itself.
class TolvarApp {
public:
    TolvarApp(const BundleInfo& bundle, const QDBusConnection& bus);

    /// Does what the arguments behind the program's name say.
    ExitStatus run(const QStringList& arguments);

private:
    ExitStatus execute(const Command::Any& command);
    /// Asks the running program.
    ExitStatus ask(const Command::Any& command);
    /// Becomes the running program, or asks it to come forward.
    ExitStatus open();
    ExitStatus runProgram();

    BundleInfo m_bundle;
    QDBusConnection m_bus;
    Terminal m_terminal;
};

} // namespace tolvar
