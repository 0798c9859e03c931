#include "Views/History/FocusedOfPlanned.h"

#include "Extensions/DurationFormatting.h"

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

constexpr Seconds minute = 60;
constexpr Seconds hour = 3600;

QString wholeMinutes(Seconds duration) {
    return QString::number(static_cast<qint64>(duration / minute));
}

} // namespace

QString focusedOfPlanned(std::optional<Seconds> focused, Seconds planned) {
    if (!isShowable(planned) || !isShowable(focused.value_or(0)))
        return {};
    const bool isLong = planned >= hour;
    if (!focused)
        return isLong ? formattedCompact(planned) : u"%1 min"_s.arg(wholeMinutes(planned));
    if (isLong)
        return u"%1 of %2"_s.arg(formattedCompact(*focused), formattedCompact(planned));
    return u"%1 of %2 min"_s.arg(wholeMinutes(*focused), wholeMinutes(planned));
}

} // namespace tolvar
