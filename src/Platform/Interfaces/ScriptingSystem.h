#pragma once

#include "Platform/Interfaces/ScriptDescriptor.h"

#include <QJsonObject>
#include <QString>

#include <memory>
#include <set>
#include <variant>

namespace tolvar {

/// What a scripting system says of a failure, by its own keys; empty when it says nothing.
using ScriptError = QJsonObject;
using ScriptResult = std::variant<ScriptDescriptor, ScriptError>;

/// A compiled script.
class Script {
public:
    virtual ~Script() = default;

    /// Runs the script to its end, however long that takes.
    virtual ScriptResult execute() = 0;
};

/// A desktop's language for telling its applications what to do (AppleScript).
class ScriptingSystem {
public:
    virtual ~ScriptingSystem() = default;

    /// The bundle identifiers of all running applications.
    virtual std::set<QString> runningApplications() const = 0;

    /// A script to be executed often.
    virtual std::variant<std::unique_ptr<Script>, ScriptError> compile(const QString& source) = 0;
    /// Runs a script that is needed only once. A text that does not compile fails as a script that
    /// does not run.
    virtual ScriptResult execute(const QString& source) = 0;
};

} // namespace tolvar
