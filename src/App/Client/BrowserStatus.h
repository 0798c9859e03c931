#pragma once

#include "Platform/Interfaces/BrowserCompanions.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

namespace tolvar {

/// How a browser stands: what lies beside it, and whether the running program hears from it.
struct BrowserStatus {
    BrowserCompanion companion;
    bool isConnected = false;

    bool operator==(const BrowserStatus&) const = default;
};

/// The found browsers, then the connected ones that are none of them, once each. `connected` are
/// the names of processes; " 2" and so on behind one tells several connections apart.
std::vector<BrowserStatus> browserStatus(const std::vector<BrowserCompanion>& found,
                                         const QStringList& connected);

/// For people: a table, and below it what is left for them to do.
QString browserTable(const std::vector<BrowserStatus>& browsers);
/// "state" is "connected" for a browser that is set up and heard from.
QJsonObject toJson(const BrowserStatus& browser);

} // namespace tolvar
