#pragma once

#include "App/Client/Command.h"

#include <QString>
#include <QStringList>

#include <variant>

namespace tolvar {

/// A command line that cannot be understood.
struct UsageError {
    /// One line for people, without a full stop.
    QString message;

    bool operator==(const UsageError&) const = default;
};

/// Reads the arguments behind the program's name.
std::variant<Command::Any, UsageError> parseCommandLine(const QStringList& arguments);

/// What `tolvar --help` prints.
QString helpText();

} // namespace tolvar
