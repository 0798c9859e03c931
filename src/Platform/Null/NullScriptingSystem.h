#pragma once

#include "Platform/Interfaces/ScriptingSystem.h"

namespace tolvar {

/// A desktop without scripts: it has nothing to tell of its applications, and no script works.
class NullScriptingSystem final : public ScriptingSystem {
public:
    std::set<QString> runningApplications() const override { return {}; }
    std::variant<std::unique_ptr<Script>, ScriptError> compile(const QString&) override {
        return ScriptError();
    }
    ScriptResult execute(const QString&) override { return ScriptError(); }
};

} // namespace tolvar
