#include "App/Client/DurationArgument.h"

#include "App/Protocol/RemoteLimits.h"

#include <QRegularExpression>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// Hours, minutes and seconds; or seconds alone without their unit.
const QRegularExpression& pattern() {
    static const QRegularExpression compiled(
        u"^(?:([0-9]+)h)?\\s*(?:([0-9]+)m)?\\s*(?:([0-9]+)s)?$|^([0-9]+)$"_s);
    return compiled;
}

} // namespace

std::optional<Seconds> parseDuration(const QString& text) {
    const auto match = pattern().match(text.trimmed());
    const auto seconds = [&](int group, Seconds unit) {
        return match.captured(group).toDouble() * unit;
    };
    const Seconds total = seconds(1, 3600) + seconds(2, 60) + seconds(3, 1) + seconds(4, 1);
    if (total <= 0 || total > RemoteLimits::maximumDuration)
        return std::nullopt;
    return total;
}

} // namespace tolvar
