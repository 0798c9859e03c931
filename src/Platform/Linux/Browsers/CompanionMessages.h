#pragma once

#include "Platform/Interfaces/BrowserChannel.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the program and a browser's companion, the extension behind its host, say to each other.
/// What comes in is read strictly: any other member, type or range makes a message wrong.
namespace tolvar::CompanionMessages {

/// The tab that a window shows.
struct ShownTab {
    /// How the browser numbers its windows and tabs; from 0 to 10^15 - 1. -1 for a window that
    /// has no number.
    qint64 window = 0;
    qint64 tab = 0;
    QString url;

    bool operator==(const ShownTab&) const = default;
};

/// No browser shows more windows.
inline constexpr int mostTabs = 1000;

/// The browser's name in {"browser":"firefox-esr"}, which a host says first: 1 to 64 letters,
/// digits, '.', '_', '+' or '-'. Nothing when the message is wrong.
std::optional<QString> browserName(std::string_view message);

/// The shown tabs in {"shown":[{"window":4711,"tab":93,"url":"https://example.com/"}]}, at most
/// `mostTabs`. A tab without a number, -1, cannot be sent away and is left out. Nothing when the
/// message is wrong.
std::optional<std::vector<ShownTab>> shownTabs(std::string_view message);

/// Asks for the shown tabs.
std::string listCommand();
/// Sends tabs to "about:blank"; `tabs` holds at least one and at most `mostTabs`.
std::string blankCommand(const std::vector<qint64>& tabs);

/// The tab as the engine knows it: "tab 93 of window 4711".
ActiveTab activeTab(const ShownTab& shown);

} // namespace tolvar::CompanionMessages
