#include "Platform/AppleScript/BrowserScripts.h"

#include <QStringList>

#include <optional>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// The elements of a list; none for what is no list.
const std::vector<ScriptDescriptor>& itemsOf(const ScriptDescriptor& descriptor) {
    static const std::vector<ScriptDescriptor> none;
    return descriptor.type == DescriptorType::list ? descriptor.items : none;
}

QString quoted(QString text) {
    text.replace(u'\\', "\\\\"_L1).replace(u'"', "\\\""_L1);
    return u'"' + text + u'"';
}

/// An id or an index as it is written in a script.
std::optional<QString> literalOf(const ScriptDescriptor& key) {
    switch (key.type) {
    case DescriptorType::shortInteger:
    case DescriptorType::longInteger:
    case DescriptorType::hugeInteger:
        return QString::number(key.int32Value());
    case DescriptorType::unicodeText:
    case DescriptorType::utf8Text:
    case DescriptorType::plainText:
        return key.text ? std::optional(quoted(*key.text)) : std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<ActiveTab> tabOf(const ScriptDescriptor& window, const ScriptDescriptor& key,
                               const ScriptDescriptor& url, TabAddress address) {
    const auto windowLiteral = literalOf(window);
    const auto keyLiteral = literalOf(key);
    if (!windowLiteral || !keyLiteral || !url.text)
        return std::nullopt;
    const auto tab = address == TabAddress::byId ? u"tab id"_s : u"tab"_s;
    return ActiveTab{
        .specifier = u"%1 %2 of window id %3"_s.arg(tab, *keyLiteral, *windowLiteral),
        .url = *url.text,
    };
}

} // namespace

QString readingScript(const ScriptedBrowser& browser) {
    const auto key = browser.address == TabAddress::byId ? u"id"_s : u"index"_s;
    return u"tell application id \"%1\"\n"
           "    if not running then return {}\n"
           "    return {id of every window, %2 of %3 of every window, \u00ac\n"
           "        URL of %3 of every window}\n"
           "end tell"_s.arg(browser.identifier(), key, QString::fromUtf16(browser.activeTab));
}

std::vector<ActiveTab> tabsOfReply(const ScriptDescriptor& reply, TabAddress address) {
    const auto& lists = itemsOf(reply);
    if (lists.size() != 3)
        return {};
    const auto& windows = itemsOf(lists[0]);
    const auto& keys = itemsOf(lists[1]);
    const auto& urls = itemsOf(lists[2]);
    if (keys.size() != windows.size() || urls.size() != windows.size())
        return {};

    std::vector<ActiveTab> tabs;
    for (std::size_t i = 0; i < windows.size(); ++i)
        if (auto tab = tabOf(windows[i], keys[i], urls[i], address))
            tabs.push_back(*std::move(tab));
    return tabs;
}

QString redirectingScript(const std::vector<ActiveTab>& tabs, const QString& browser) {
    QStringList lines;
    for (const auto& tab : tabs)
        lines.append(u"set URL of %1 to \"about:blank\""_s.arg(tab.specifier));
    return u"tell application id \"%1\"\n    %2\nend tell"_s.arg(browser, lines.join(u'\n'));
}

} // namespace tolvar
