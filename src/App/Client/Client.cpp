#include "App/Client/Client.h"

#include "App/Client/BrowserCommands.h"
#include "App/Client/CommandLine.h"
#include "App/Client/Follower.h"
#include "App/Client/ListFormat.h"
#include "App/Client/StatusFormat.h"
#include "App/Client/TextTable.h"
#include "App/Protocol/RemoteError.h"
#include "App/Protocol/RemoteNames.h"
#include "App/Protocol/RemoteRecords.h"
#include "ApplicationInterface.h"
#include "TolvarInterface.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QJsonArray>

#include <algorithm>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// Sessions asked for at a time: an answer of some hundred kilobytes, made in a few milliseconds.
constexpr quint32 historyPage = 1000;

ExitStatus exitStatusOf(RemoteError::Kind kind) {
    using Kind = RemoteError::Kind;
    switch (kind) {
    case Kind::noSession:
    case Kind::sessionRunning:
    case Kind::alreadyPaused:
    case Kind::notPaused:
    case Kind::noPausesLeft:
    case Kind::unknownSession:
        return ExitStatus::notApplicable;
    case Kind::emptyGoal:
    case Kind::invalidDuration:
    case Kind::unknownCategory:
    case Kind::unknownPreset:
    case Kind::ambiguousName:
    case Kind::invalidApplication:
    case Kind::invalidWebsite:
        return ExitStatus::wrongUsage;
    }
    Q_UNREACHABLE();
}

/// Of these the bus library's own words say only what they might mean.
bool isSilence(QDBusError::ErrorType type) {
    return type == QDBusError::NoReply || type == QDBusError::Timeout ||
           type == QDBusError::TimedOut || type == QDBusError::Disconnected;
}

} // namespace

Client::Client(const QDBusConnection& bus, Program program, BrowserCompanions& browsers,
               Terminal& terminal)
    : m_running(bus)
    , m_program(std::move(program))
    , m_browsers(browsers)
    , m_terminal(terminal) {
    registerRemoteRecords();
}

ExitStatus Client::run(const Command::Any& command) {
    return std::visit([this](const auto& known) { return execute(known); }, command);
}

ExitStatus Client::execute(const Command::Open&) {
    return ask([this](const QString& address) {
        return settle(m_running.application(address)->Activate({}));
    });
}

ExitStatus Client::execute(const Command::Start& start) {
    if (const auto address = m_running.address())
        return begin(start, *address);
    if (!m_running.bus().isConnected())
        return notRunning();
    if (const auto address = m_running.start(m_program.executable))
        return begin(start, *address);
    m_terminal.complain(u"Tolvar could not be started"_s);
    return ExitStatus::unreachable;
}

ExitStatus Client::begin(const Command::Start& start, const QString& address) {
    const auto control = m_running.control(address);
    QDBusPendingReply<QStringList> warnings =
        start.preset
            ? control->StartPreset(start.goal, *start.preset, start.duration.value_or(0))
            : control->Start(start.goal, start.duration.value_or(Command::Start::defaultDuration),
                             start.categories, start.apps, start.sites);
    const ExitStatus status = settle(warnings);
    if (status == ExitStatus::done)
        for (const QString& warning : warnings.value())
            m_terminal.complain(warning);
    return status;
}

ExitStatus Client::execute(const Command::Pause&) {
    return ask(
        [this](const QString& address) { return settle(m_running.control(address)->Pause()); });
}

ExitStatus Client::execute(const Command::Resume&) {
    return ask(
        [this](const QString& address) { return settle(m_running.control(address)->Resume()); });
}

ExitStatus Client::execute(const Command::Extend& extend) {
    return ask([&](const QString& address) {
        return settle(m_running.control(address)->Extend(extend.by));
    });
}

ExitStatus Client::execute(const Command::Stop&) {
    return ask(
        [this](const QString& address) { return settle(m_running.control(address)->Stop()); });
}

ExitStatus Client::execute(const Command::Status& status) {
    if (status.follow && m_running.bus().isConnected())
        return Follower(m_running, status.format, m_terminal).follow();
    return ask([&](const QString& address) { return showStatus(address, status.format); });
}

ExitStatus Client::execute(const Command::List& list) {
    using What = Command::List::What;
    return ask([&](const QString& address) {
        const auto control = m_running.control(address);
        const auto shown = [&](auto entries, auto table, const QString& whenEmpty) {
            const ExitStatus status = settle(entries);
            return status == ExitStatus::done ? show(entries.value(), list, table, whenEmpty)
                                              : status;
        };
        switch (list.what) {
        case What::history:
            return showHistory(address, list);
        case What::presets:
            return shown(control->Presets(), presetTable, u"There are no presets."_s);
        case What::categories:
            return shown(control->Categories(), categoryTable, u"There are no categories."_s);
        case What::apps:
            return shown(control->Applications(), applicationTable,
                         u"No applications are installed."_s);
        case What::browsers:
            return showBrowsers(address, list);
        }
        Q_UNREACHABLE();
    });
}

ExitStatus Client::execute(const Command::Browsers& browsers) {
    BrowserCommands commands(m_browsers, m_terminal);
    switch (browsers.what) {
    case Command::Browsers::What::setUp:
        return commands.setUp(browsers.name);
    case Command::Browsers::What::remove:
        return commands.remove(browsers.name);
    case Command::Browsers::What::status:
        return commands.showStatus(browsers.format, connectedBrowsers());
    }
    Q_UNREACHABLE();
}

QStringList Client::connectedBrowsers() const {
    const auto address = m_running.address();
    if (!address)
        return {};
    QDBusPendingReply<QStringList> browsers = m_running.control(*address)->Browsers();
    browsers.waitForFinished();
    return browsers.isValid() ? browsers.value() : QStringList();
}

ExitStatus Client::execute(const Command::Quit&) {
    return ask([this](const QString& address) {
        const ExitStatus status = settle(m_running.control(address)->Quit());
        if (status != ExitStatus::done || m_running.waitForEnd(address))
            return status;
        m_terminal.complain(u"Tolvar does not quit"_s);
        return ExitStatus::unreachable;
    });
}

ExitStatus Client::execute(const Command::Version&) {
    return print(u"tolvar "_s + m_program.version + u'\n');
}

ExitStatus Client::execute(const Command::Help&) {
    return print(helpText());
}

/// All properties in one round trip, and of one moment.
ExitStatus Client::showStatus(const QString& address, Command::Status::Format format) {
    auto question = QDBusMessage::createMethodCall(
        address, RemoteNames::objectPath, u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s);
    question.setArguments({RemoteNames::controlInterface});
    const QDBusPendingReply<QVariantMap> properties = m_running.bus().asyncCall(
        question,
        static_cast<int>(std::chrono::milliseconds(RunningProgram::answerPatience).count()));
    const ExitStatus status = settle(properties);
    if (status != ExitStatus::done)
        return status;
    return print(formatStatus(statusFromProperties(properties.value()), format) + u'\n');
}

ExitStatus Client::showHistory(const QString& address, const Command::List& list) {
    const auto control = m_running.control(address);
    QList<HistoryEntry> sessions;
    for (quint32 left = list.limit.value_or(std::numeric_limits<quint32>::max()); left > 0;) {
        const quint32 wanted = std::min(left, historyPage);
        const QString before = sessions.isEmpty() ? QString() : sessions.last().id;
        const QDBusPendingReply<QList<HistoryEntry>> page = control->History(before, wanted);
        if (const ExitStatus status = settle(page); status != ExitStatus::done)
            return status;
        const QList<HistoryEntry> entries = page.value();
        sessions += entries;
        left = static_cast<quint32>(entries.size()) < wanted ? 0 : left - wanted;
    }
    return show(sessions, list, historyTable, u"No session has ended yet."_s);
}

ExitStatus Client::showBrowsers(const QString& address, const Command::List& list) {
    QDBusPendingReply<QStringList> browsers = m_running.control(address)->Browsers();
    if (const ExitStatus status = settle(browsers); status != ExitStatus::done)
        return status;
    if (list.format == Command::List::Format::json)
        return showJson(QJsonArray::fromStringList(browsers.value()));
    QString lines;
    for (const QString& browser : browsers.value())
        lines += singleLine(browser) + u'\n';
    return print(lines.isEmpty() ? u"No browser can be reached.\n"_s : lines);
}

template<typename Entries, typename Table>
ExitStatus Client::show(const Entries& entries, const Command::List& list, Table table,
                        const QString& whenEmpty) {
    if (list.format == Command::List::Format::json) {
        QJsonArray array;
        for (const auto& entry : entries)
            array.append(toJson(entry));
        return showJson(array);
    }
    return print(entries.isEmpty() ? whenEmpty + u'\n' : table(entries));
}

ExitStatus Client::showJson(const QJsonArray& array) {
    return print(jsonText(array));
}

ExitStatus Client::print(const QString& text) {
    return exitStatusOf(m_terminal.print(text));
}

template<typename Question>
ExitStatus Client::ask(Question question) {
    const auto address = m_running.address();
    return address ? question(*address) : notRunning();
}

ExitStatus Client::settle(QDBusPendingCall call) {
    call.waitForFinished();
    return call.isError() ? explain(call.error()) : ExitStatus::done;
}

ExitStatus Client::explain(const QDBusError& error) {
    const auto kind = remoteErrorKind(error.name());
    if (kind) {
        m_terminal.complain(error.message());
        return exitStatusOf(*kind);
    }
    m_terminal.complain(isSilence(error.type()) ? u"Tolvar does not answer"_s
                                                : u"Tolvar does not answer: "_s + error.message());
    return ExitStatus::unreachable;
}

ExitStatus Client::notRunning() {
    m_terminal.complain(m_running.bus().isConnected()
                            ? u"Tolvar is not running"_s
                            : u"there is no session bus to reach Tolvar by"_s);
    return ExitStatus::unreachable;
}

} // namespace tolvar
