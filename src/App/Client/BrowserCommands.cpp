#include "App/Client/BrowserCommands.h"

#include "App/Client/BrowserStatus.h"
#include "App/Client/TextTable.h"

#include <QJsonArray>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;
using State = BrowserCompanion::State;

namespace {

ExitStatus worse(ExitStatus one, ExitStatus other) {
    return std::max(one, other);
}

} // namespace

ExitStatus BrowserCommands::setUp(const std::optional<QString>& name) {
    if (!name)
        return setUpAll();
    const auto browser = m_browsers.find(*name);
    return browser ? setUpOne(*browser) : unknown(*name);
}

ExitStatus BrowserCommands::setUpAll() {
    ExitStatus status = ExitStatus::done;
    bool isAnyReachable = false;
    for (const BrowserCompanion& browser : m_browsers.found()) {
        if (browser.obstacle) {
            m_terminal.complain(u"%1 cannot be reached: %2"_s.arg(browser.name, *browser.obstacle));
            continue;
        }
        isAnyReachable = true;
        status = worse(status, setUpOne(browser));
    }
    if (isAnyReachable)
        return status;
    m_terminal.complain(u"there is no browser here that can be reached; Tolvar knows "_s +
                        m_browsers.known().join(u", "_s));
    return ExitStatus::notApplicable;
}

ExitStatus BrowserCommands::setUpOne(const BrowserCompanion& browser) {
    if (const auto failure = m_browsers.setUp(browser.id)) {
        m_terminal.complain(u"%1 cannot be set up: %2"_s.arg(browser.name, *failure));
        return ExitStatus::notApplicable;
    }
    return tell(browser.name, u"is set up"_s, browser.remainder);
}

ExitStatus BrowserCommands::remove(const std::optional<QString>& name) {
    if (!name)
        return removeAll();
    const auto browser = m_browsers.find(*name);
    return browser ? removeOne(*browser) : unknown(*name);
}

ExitStatus BrowserCommands::removeAll() {
    const auto found = m_browsers.found();
    if (found.empty())
        return exitStatusOf(m_terminal.print(u"There is nothing to remove.\n"_s));
    ExitStatus status = ExitStatus::done;
    for (const BrowserCompanion& browser : found)
        status = worse(status, removeOne(browser));
    return status;
}

ExitStatus BrowserCommands::removeOne(const BrowserCompanion& browser) {
    if (const auto failure = m_browsers.remove(browser.id)) {
        m_terminal.complain(
            u"what belongs to %1 cannot be removed: %2"_s.arg(browser.name, *failure));
        return ExitStatus::notApplicable;
    }
    if (browser.state == State::notSetUp)
        return exitStatusOf(m_terminal.print(browser.name + u" was not set up\n"_s));
    return tell(browser.name, u"is no longer set up"_s, browser.leftover);
}

ExitStatus BrowserCommands::tell(const QString& name, const QString& news, const QString& toDo) {
    QString lines = u"%1 %2; if it runs, quit it and start it again\n"_s.arg(name, news);
    if (!toDo.isEmpty())
        lines += u"%1: %2\n"_s.arg(name, toDo);
    return exitStatusOf(m_terminal.print(lines));
}

ExitStatus BrowserCommands::showStatus(Command::Browsers::Format format,
                                       const QStringList& connected) {
    const auto rows = browserStatus(m_browsers.found(), connected);
    if (format == Command::Browsers::Format::text)
        return exitStatusOf(m_terminal.print(browserTable(rows)));
    QJsonArray array;
    for (const BrowserStatus& row : rows)
        array.append(toJson(row));
    return exitStatusOf(m_terminal.print(jsonText(array)));
}

ExitStatus BrowserCommands::unknown(const QString& name) {
    m_terminal.complain(
        u"there is no browser “%1”; Tolvar knows %2"_s.arg(name, m_browsers.known().join(u", "_s)));
    return ExitStatus::wrongUsage;
}

} // namespace tolvar
