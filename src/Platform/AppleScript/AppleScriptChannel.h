#pragma once

#include "Platform/AppleScript/BrowserScripts.h"
#include "Platform/Interfaces/BrowserChannel.h"
#include "Platform/Interfaces/ScriptingSystem.h"
#include "Platform/Interfaces/SystemLog.h"

#include <map>
#include <memory>

namespace tolvar {

/// The browsers of a desktop with AppleScript, named by their bundle identifiers.
///
/// Each call waits for the browser's answer. What fails is logged under "WebsiteBlocker" and tried
/// again at the next call; a browser refuses as long as its user does not permit automation.
class AppleScriptChannel final : public BrowserChannel {
public:
    /// What the channel needs; all outlive it.
    struct Environment {
        ScriptingSystem& scripting;
        SystemLog& log;
    };

    explicit AppleScriptChannel(const Environment& environment);
    AppleScriptChannel(const AppleScriptChannel&) = delete;
    AppleScriptChannel& operator=(const AppleScriptChannel&) = delete;

    std::vector<QString> runningBrowsers() const override;
    std::optional<std::vector<ActiveTab>> activeTabs(const QString& browser) override;
    void redirect(const std::vector<ActiveTab>& tabs, const QString& browser) override;
    /// Never calls: a browser can be asked, but does not tell by itself.
    Subscription observeChanges(std::function<void()> changed) override;

private:
    Script* activeTabScript(const ScriptedBrowser& browser);
    std::optional<ScriptDescriptor> valueOf(ScriptResult result, const QString& verb,
                                            const QString& browser) const;
    void logFailure(const QString& what, const ScriptError& error) const;

    Environment m_environment;
    /// The reading script of each browser that was asked.
    std::map<QString, std::unique_ptr<Script>> m_compiledScripts;
};

} // namespace tolvar
