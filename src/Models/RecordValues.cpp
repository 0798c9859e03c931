#include "Models/RecordValues.h"

#include "Models/RecordFields.h"

#include <QUtf8StringView>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <limits>
#include <system_error>

namespace tolvar::RecordCoding {

namespace {

/// Nothing when a double cannot hold the number.
std::optional<double> parsed(const NumberValue& value) {
    const auto* end = value.digits.data() + value.digits.size();
    double number = 0;
    const auto result = std::from_chars(value.digits.data(), end, number);
    return result.ec == std::errc() ? std::optional(number) : std::nullopt;
}

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

std::optional<QUuid> parsedUuid(std::string_view text) {
    constexpr std::string_view pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    const auto fits = [](char c, char wanted) { return wanted == 'x' ? isHexDigit(c) : c == '-'; };
    if (!std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), fits))
        return std::nullopt;
    return QUuid::fromString(QLatin1StringView(text.data(), static_cast<qsizetype>(text.size())));
}

/// Moves what was parsed into the field of a record.
template<typename Field, typename Parsed>
bool take(Field& field, std::optional<Parsed> parsed) {
    if (!parsed)
        return false;
    field = *std::move(parsed);
    return true;
}

} // namespace

bool isValidText(std::string_view utf8) {
    return QUtf8StringView(utf8.data(), static_cast<qsizetype>(utf8.size())).isValidUtf8();
}

std::optional<QString> SharedTexts::text(std::string_view utf8) {
    auto& slot = m_slots[std::hash<std::string_view>()(utf8) % m_slots.size()];
    if (slot.utf8 != utf8) {
        if (!isValidText(utf8))
            return std::nullopt;
        const auto size = static_cast<qsizetype>(utf8.size());
        slot = {utf8, m_decoder.decode({utf8.data(), size})};
    }
    return slot.text;
}

bool assign(bool& field, const bool& value) {
    field = value;
    return true;
}

bool assign(Seconds& field, const NumberValue& value) {
    return take(field, parsed(value));
}

bool assign(std::optional<Seconds>& field, const NumberValue& value) {
    return take(field, parsed(value));
}

bool assign(std::optional<Date>& field, const NumberValue& value) {
    field.emplace();
    return assign(field->sinceReference, value);
}

bool assign(std::optional<int>& field, const NumberValue& value) {
    using Limits = std::numeric_limits<int>;
    const auto number = parsed(value);
    if (!number || *number != std::trunc(*number) || *number < Limits::min() ||
        *number > Limits::max())
        return false;
    field = static_cast<int>(*number);
    return true;
}

bool assign(QString& field, const TextValue& value) {
    return take(field, value.texts.text(value.utf8));
}

bool assign(QUuid& field, const TextValue& value) {
    return take(field, parsedUuid(value.utf8));
}

bool assign(std::optional<QUuid>& field, const TextValue& value) {
    return take(field, parsedUuid(value.utf8));
}

bool assign(std::optional<SessionOutcome>& field, const TextValue& value) {
    const auto* found = std::find_if(outcomes.begin(), outcomes.end(), [&](const auto& outcome) {
        return outcome.first == value.utf8;
    });
    if (found == outcomes.end())
        return false;
    field = found->second;
    return true;
}

bool assign(BlockCategory& category, const TextValue& value) {
    const auto name = value.texts.text(value.utf8);
    if (name)
        category = BlockCategory::fromBareName(*name);
    return name.has_value();
}

bool assign(UnknownField&, const TextValue& value) {
    return isValidText(value.utf8);
}

} // namespace tolvar::RecordCoding
