#pragma once

#include "App/Client/Command.h"
#include "App/Client/ExitStatus.h"
#include "App/Client/Terminal.h"
#include "Platform/Interfaces/BrowserCompanions.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tolvar {

/// Sets browsers up, frees them again and tells how they stand, without a running program. A name
/// that is none of a browser is wrong usage. Of several browsers each has its turn, also when
/// another failed.
class BrowserCommands {
public:
    /// Both outlive it.
    BrowserCommands(BrowserCompanions& browsers, Terminal& terminal)
        : m_browsers(browsers)
        , m_terminal(terminal) {}

    /// Without a name: all that are installed and can be reached.
    ExitStatus setUp(const std::optional<QString>& name);
    /// Without a name: all, installed or not.
    ExitStatus remove(const std::optional<QString>& name);
    /// `connected` as the running program names its connections.
    ExitStatus showStatus(Command::Browsers::Format format, const QStringList& connected);

private:
    ExitStatus setUpAll();
    ExitStatus setUpOne(const BrowserCompanion& browser);
    ExitStatus removeAll();
    ExitStatus removeOne(const BrowserCompanion& browser);
    ExitStatus tell(const QString& name, const QString& news, const QString& toDo);
    ExitStatus unknown(const QString& name);

    BrowserCompanions& m_browsers;
    Terminal& m_terminal;
};

} // namespace tolvar
