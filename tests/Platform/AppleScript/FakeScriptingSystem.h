#pragma once

#include "Platform/Interfaces/ScriptingSystem.h"
#include "Support/Texts.h"

#include <map>

namespace tolvar::test {

/// A scripting system whose applications answer what the test says.
class FakeScriptingSystem final : public ScriptingSystem {
public:
    /// Identifiers of what runs.
    std::set<QString> running;
    /// What a text answers when it is run, compiled before or not; an empty list when it is not
    /// among these.
    std::map<QString, ScriptResult> answers;
    /// The texts that do not compile, and why.
    std::map<QString, ScriptError> mistakes;
    /// The texts in the order in which they were compiled ahead, run after that, and run at once.
    Texts compiled;
    Texts executed;
    Texts executedOnce;

    std::set<QString> runningApplications() const override { return running; }
    std::variant<std::unique_ptr<Script>, ScriptError> compile(const QString& source) override;
    ScriptResult execute(const QString& source) override;

private:
    ScriptResult answerTo(const QString& source) const;
};

/// A list of integers, as one of the scripts' three lists.
ScriptDescriptor integers(std::initializer_list<qint64> values);
/// A list of texts.
ScriptDescriptor strings(std::initializer_list<const char16_t*> values);

} // namespace tolvar::test
