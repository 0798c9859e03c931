#pragma once

#include "Platform/Interfaces/BrowserChannel.h"
#include "Platform/Interfaces/ScriptDescriptor.h"

#include <QString>

#include <array>
#include <vector>

namespace tolvar {

/// How a browser wants its tabs to be addressed in AppleScript.
enum class TabAddress { byIndex, byId };

/// A browser that understands AppleScript.
struct ScriptedBrowser {
    const char16_t* bundleId;
    /// Its term for the tab that a window shows.
    const char16_t* activeTab;
    TabAddress address;

    QString identifier() const { return QString::fromUtf16(bundleId); }
};

/// In the order in which they are asked.
inline constexpr std::array scriptedBrowsers{
    ScriptedBrowser{u"com.apple.Safari", u"current tab", TabAddress::byIndex},
    ScriptedBrowser{u"com.google.Chrome", u"active tab", TabAddress::byId},
    ScriptedBrowser{u"company.thebrowser.Browser", u"active tab", TabAddress::byId},
    ScriptedBrowser{u"company.thebrowser.dia", u"active tab", TabAddress::byId},
    ScriptedBrowser{u"net.imput.helium", u"active tab", TabAddress::byId},
};

/// The script that asks for three lists, one element per window each: the ids of the windows, the
/// addresses of the tabs they show and the URLs of these. It does not start the browser.
QString readingScript(const ScriptedBrowser& browser);

/// The tabs in the answer to `readingScript`, in the order of the windows. A tab without a URL, or
/// whose address is neither integer nor text, is left out; an answer of any other form has none.
std::vector<ActiveTab> tabsOfReply(const ScriptDescriptor& reply, TabAddress address);

/// The script that sends the tabs to "about:blank".
QString redirectingScript(const std::vector<ActiveTab>& tabs, const QString& browser);

} // namespace tolvar
