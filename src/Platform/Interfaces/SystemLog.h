#pragma once

#include <QString>

namespace tolvar {

/// The system's log, under the application's identifier.
class SystemLog {
public:
    virtual ~SystemLog() = default;

    /// Writes one error-level line. `category` is the part of the application that speaks, for
    /// example "WebsiteBlocker".
    virtual void error(const QString& category, const QString& message) = 0;
};

} // namespace tolvar
