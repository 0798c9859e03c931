#include "App/TolvarApp.h"

#include "App/Adapters.h"
#include "App/AppDelegate.h"
#include "App/Client/Client.h"
#include "App/Client/CommandLine.h"
#include "App/QuitSignals.h"
#include "App/SingleInstance.h"
#include "Platform/Interfaces/BrowserCompanions.h"

#include <QCoreApplication>

namespace tolvar {

using namespace Qt::StringLiterals;

TolvarApp::TolvarApp(const BundleInfo& bundle, const QDBusConnection& bus)
    : m_bundle(bundle)
    , m_bus(bus) {}

ExitStatus TolvarApp::run(const QStringList& arguments) {
    const auto parsed = parseCommandLine(arguments);
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        m_terminal.complain(error->message);
        m_terminal.complain(u"try tolvar --help"_s);
        return ExitStatus::wrongUsage;
    }
    return execute(std::get<Command::Any>(parsed));
}

ExitStatus TolvarApp::execute(const Command::Any& command) {
    return std::holds_alternative<Command::Open>(command) ? open() : ask(command);
}

ExitStatus TolvarApp::ask(const Command::Any& command) {
    const auto browsers = Adapters::browserCompanions(m_bundle);
    return Client(m_bus, {m_bundle.executablePath, m_bundle.shortVersion}, *browsers, m_terminal)
        .run(command);
}

/// The bus keeps what it receives until the event loop runs, so that whoever sees the name finds
/// the remote control behind it, though that is made later.
ExitStatus TolvarApp::open() {
    const auto claim = SingleInstance::claim(m_bus, Adapters::dataFolder());
    const auto* obstacle = std::get_if<SingleInstance::Obstacle>(&claim);
    if (!obstacle)
        return runProgram();
    if (*obstacle == SingleInstance::Obstacle::runsOnThisBus)
        return ask(Command::Open{});
    m_terminal.complain(m_bus.isConnected()
                            ? u"Tolvar runs already in another session"_s
                            : u"Tolvar runs already, and there is no session bus to reach it by"_s);
    return ExitStatus::unreachable;
}

ExitStatus TolvarApp::runProgram() {
    const QuitSignals quitSignals;
    const AppDelegate delegate(m_bundle, m_bus);
    QObject::connect(&quitSignals, &QuitSignals::quitRequested, qApp, &QCoreApplication::quit);
    QObject::connect(&delegate, &AppDelegate::quitRequested, qApp, &QCoreApplication::quit);
    for (const QString& limitation : delegate.limitations())
        m_terminal.complain(limitation);
    return static_cast<ExitStatus>(QCoreApplication::exec());
}

} // namespace tolvar
