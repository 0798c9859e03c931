#include "Platform/Linux/Browsers/CompanionMessages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvar::CompanionMessages {

namespace {

using namespace Qt::StringLiterals;

constexpr double greatestNumber = 1e15 - 1;
/// What browsers give for a window or a tab that has none.
constexpr double noNumber = -1;
constexpr int longestName = 64;

/// The value of the only member; undefined, which is of no type, when there are others.
QJsonValue onlyMember(std::string_view message, QLatin1StringView name) {
    const auto bytes =
        QByteArray::fromRawData(message.data(), static_cast<qsizetype>(message.size()));
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    return object.size() == 1 ? object[name] : QJsonValue(QJsonValue::Undefined);
}

std::optional<qint64> number(const QJsonValue& value) {
    const double found = value.toDouble(noNumber - 1);
    const bool isRight = found >= noNumber && found <= greatestNumber && std::floor(found) == found;
    return isRight ? std::optional(static_cast<qint64>(found)) : std::nullopt;
}

std::optional<ShownTab> shownTab(const QJsonObject& object) {
    const auto window = number(object["window"_L1]);
    const auto tab = number(object["tab"_L1]);
    const QJsonValue url = object["url"_L1];
    if (object.size() != 3 || !window || !tab || !url.isString())
        return std::nullopt;
    return ShownTab{.window = *window, .tab = *tab, .url = url.toString()};
}

bool isOrdinary(QChar letter) {
    return letter < u'\x80' && (letter.isLetterOrNumber() || u"._+-"_s.contains(letter));
}

} // namespace

std::optional<QString> browserName(std::string_view message) {
    const QString name = onlyMember(message, "browser"_L1).toString();
    const bool isRight = !name.isEmpty() && name.size() <= longestName &&
                         std::all_of(name.begin(), name.end(), isOrdinary);
    return isRight ? std::optional(name) : std::nullopt;
}

std::optional<std::vector<ShownTab>> shownTabs(std::string_view message) {
    const QJsonValue list = onlyMember(message, "shown"_L1);
    if (!list.isArray() || list.toArray().size() > mostTabs)
        return std::nullopt;
    std::vector<ShownTab> tabs;
    for (const auto& value : list.toArray())
        if (auto tab = shownTab(value.toObject()); !tab)
            return std::nullopt;
        else if (tab->tab >= 0)
            tabs.push_back(*std::move(tab));
    return tabs;
}

std::string listCommand() {
    return R"({"command":"list"})";
}

std::string blankCommand(const std::vector<qint64>& tabs) {
    std::string command = R"({"command":"blank","tabs":[)";
    for (const qint64 tab : tabs) {
        command += std::to_string(tab);
        command += ',';
    }
    if (!tabs.empty())
        command.pop_back();
    return command += "]}";
}

ActiveTab activeTab(const ShownTab& shown) {
    return {.specifier = u"tab %1 of window %2"_s.arg(shown.tab).arg(shown.window),
            .url = shown.url};
}

} // namespace tolvar::CompanionMessages
