#include "Platform/AppleScript/AppleScriptChannel.h"

#include <QJsonDocument>

#include <algorithm>
#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

const ScriptedBrowser* browserNamed(const QString& identifier) {
    const auto* found =
        std::find_if(scriptedBrowsers.begin(), scriptedBrowsers.end(),
                     [&](const auto& browser) { return browser.identifier() == identifier; });
    return found == scriptedBrowsers.end() ? nullptr : found;
}

} // namespace

AppleScriptChannel::AppleScriptChannel(const Environment& environment)
    : m_environment(environment) {}

std::vector<QString> AppleScriptChannel::runningBrowsers() const {
    const auto running = m_environment.scripting.runningApplications();
    std::vector<QString> browsers;
    for (const auto& browser : scriptedBrowsers)
        if (running.contains(browser.identifier()))
            browsers.push_back(browser.identifier());
    return browsers;
}

std::optional<std::vector<ActiveTab>> AppleScriptChannel::activeTabs(const QString& browser) {
    const auto* known = browserNamed(browser);
    auto* script = known ? activeTabScript(*known) : nullptr;
    if (!script)
        return std::nullopt;
    const auto reply = valueOf(script->execute(), u"Reading"_s, browser);
    return reply ? std::optional(tabsOfReply(*reply, known->address)) : std::nullopt;
}

void AppleScriptChannel::redirect(const std::vector<ActiveTab>& tabs, const QString& browser) {
    valueOf(m_environment.scripting.execute(redirectingScript(tabs, browser)), u"Redirecting"_s,
            browser);
}

Subscription AppleScriptChannel::observeChanges(std::function<void()>) {
    return {};
}

Script* AppleScriptChannel::activeTabScript(const ScriptedBrowser& browser) {
    auto& script = m_compiledScripts[browser.identifier()];
    if (script)
        return script.get();
    auto compiled = m_environment.scripting.compile(readingScript(browser));
    if (const auto* error = std::get_if<ScriptError>(&compiled))
        logFailure(u"Compiling %1 script"_s.arg(browser.identifier()), *error);
    else
        script = std::get<std::unique_ptr<Script>>(std::move(compiled));
    return script.get();
}

std::optional<ScriptDescriptor> AppleScriptChannel::valueOf(ScriptResult result,
                                                            const QString& verb,
                                                            const QString& browser) const {
    if (const auto* error = std::get_if<ScriptError>(&result)) {
        logFailure(u"%1 %2 tabs"_s.arg(verb, browser), *error);
        return std::nullopt;
    }
    return std::get<ScriptDescriptor>(std::move(result));
}

void AppleScriptChannel::logFailure(const QString& what, const ScriptError& error) const {
    // As JSON, so that one failure is one line whatever its texts hold.
    const auto reason = QJsonDocument(error).toJson(QJsonDocument::Compact);
    m_environment.log.error(u"WebsiteBlocker"_s, what + u" failed: "_s + QString::fromUtf8(reason));
}

} // namespace tolvar
