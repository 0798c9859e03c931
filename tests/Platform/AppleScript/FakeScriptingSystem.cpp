#include "Platform/AppleScript/FakeScriptingSystem.h"

#include <functional>

namespace tolvar::test {

namespace {

class FakeScript final : public Script {
public:
    explicit FakeScript(std::function<ScriptResult()> run)
        : m_run(std::move(run)) {}

    ScriptResult execute() override { return m_run(); }

private:
    std::function<ScriptResult()> m_run;
};

} // namespace

std::variant<std::unique_ptr<Script>, ScriptError>
FakeScriptingSystem::compile(const QString& source) {
    compiled.push_back(source);
    if (const auto mistake = mistakes.find(source); mistake != mistakes.end())
        return mistake->second;
    return std::make_unique<FakeScript>([this, source] {
        executed.push_back(source);
        return answerTo(source);
    });
}

ScriptResult FakeScriptingSystem::execute(const QString& source) {
    executedOnce.push_back(source);
    return answerTo(source);
}

ScriptResult FakeScriptingSystem::answerTo(const QString& source) const {
    const auto answer = answers.find(source);
    return answer == answers.end() ? ScriptDescriptor::ofList({}) : answer->second;
}

ScriptDescriptor integers(std::initializer_list<qint64> values) {
    auto list = ScriptDescriptor::ofList({});
    for (const auto value : values)
        list.items.push_back(ScriptDescriptor::ofInteger(value));
    return list;
}

ScriptDescriptor strings(std::initializer_list<const char16_t*> values) {
    auto list = ScriptDescriptor::ofList({});
    for (const auto* value : values)
        list.items.push_back(ScriptDescriptor::ofText(QString::fromUtf16(value)));
    return list;
}

} // namespace tolvar::test
