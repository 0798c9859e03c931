#include "App/Client/BrowserStatus.h"

#include "App/Client/TextTable.h"

#include <QRegularExpression>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;
using State = BrowserCompanion::State;

namespace {

QStringList processNames(QStringList connections) {
    static const QRegularExpression number(u" \\d+$"_s);
    for (QString& connection : connections)
        connection.remove(number);
    connections.removeDuplicates();
    return connections;
}

/// A browser that Tolvar does not know and that is connected all the same.
BrowserStatus stranger(const QString& process) {
    return {.companion = {.id = process,
                          .name = process,
                          .state = State::notSetUp,
                          .processes = {process},
                          .obstacle = std::nullopt,
                          .remainder = {},
                          .leftover = {}},
            .isConnected = true};
}

/// One that is connected is reached, whatever seems to stand in the way.
bool isUnreachable(const BrowserStatus& browser) {
    return browser.companion.obstacle && !browser.isConnected;
}

QString stateText(State state) {
    switch (state) {
    case State::notSetUp:
        return u"not set up"_s;
    case State::setUp:
        return u"set up"_s;
    case State::outOfDate:
        return u"out of date"_s;
    }
    Q_UNREACHABLE();
}

QString stateText(const BrowserStatus& browser) {
    if (isUnreachable(browser))
        return u"cannot be reached: "_s + *browser.companion.obstacle;
    if (browser.isConnected)
        return browser.companion.state == State::setUp
                   ? u"connected"_s
                   : u"connected, but "_s + stateText(browser.companion.state);
    return stateText(browser.companion.state);
}

QString stateWord(const BrowserStatus& browser) {
    if (isUnreachable(browser))
        return u"unreachable"_s;
    switch (browser.companion.state) {
    case State::notSetUp:
        return u"notSetUp"_s;
    case State::setUp:
        return browser.isConnected ? u"connected"_s : u"setUp"_s;
    case State::outOfDate:
        return u"outOfDate"_s;
    }
    Q_UNREACHABLE();
}

/// What is left for people to do; nothing for one that is connected, and before it is set up.
QString remainder(const BrowserStatus& browser) {
    if (browser.isConnected || browser.companion.obstacle ||
        browser.companion.state != State::setUp)
        return {};
    return browser.companion.remainder;
}

} // namespace

std::vector<BrowserStatus> browserStatus(const std::vector<BrowserCompanion>& found,
                                         const QStringList& connected) {
    QStringList processes = processNames(connected);
    std::vector<BrowserStatus> browsers;
    for (const BrowserCompanion& companion : found) {
        const auto removed = processes.removeIf(
            [&](const QString& process) { return companion.processes.contains(process); });
        browsers.push_back({companion, removed > 0});
    }
    for (const QString& process : processes)
        browsers.push_back(stranger(process));
    return browsers;
}

QString browserTable(const std::vector<BrowserStatus>& browsers) {
    if (browsers.empty())
        return u"No browser that Tolvar knows is installed.\n"_s;
    std::vector<QStringList> rows = {{u"NAME"_s, u"BROWSER"_s, u"STATE"_s}};
    QString remainders;
    for (const BrowserStatus& browser : browsers) {
        rows.push_back({browser.companion.id, browser.companion.name, stateText(browser)});
        if (const QString left = remainder(browser); !left.isEmpty())
            remainders += u"%1: %2\n"_s.arg(browser.companion.name, singleLine(left));
    }
    return textTable(rows) + remainders;
}

QJsonObject toJson(const BrowserStatus& browser) {
    QJsonObject object = {
        {u"browser"_s, browser.companion.id},
        {u"name"_s, browser.companion.name},
        {u"state"_s, stateWord(browser)},
        {u"connected"_s, browser.isConnected},
    };
    if (isUnreachable(browser))
        object.insert(u"reason"_s, *browser.companion.obstacle);
    if (const QString left = remainder(browser); !left.isEmpty())
        object.insert(u"remainder"_s, left);
    return object;
}

} // namespace tolvar
