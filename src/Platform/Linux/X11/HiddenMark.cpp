#include "Platform/Linux/X11/HiddenMark.h"

#include <QStringList>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// The parts of the text: run, user time, stickiness, and the workspace as all the rest.
constexpr int partCount = 4;

} // namespace

QString HiddenMark::toText() const {
    const QString time = userTime ? QString::number(*userTime) : u"-"_s;
    const QString stickiness = wasSticky ? u"sticky"_s : u"-"_s;
    return QStringList{run, time, stickiness, workspace}.join(u' ');
}

std::optional<HiddenMark> HiddenMark::fromText(const QString& text) {
    const QStringList parts = text.split(u' ');
    if (parts.size() < partCount || parts[0].isEmpty())
        return std::nullopt;
    HiddenMark mark;
    mark.run = parts[0];
    if (parts[1] != u"-") {
        bool isNumber = false;
        mark.userTime = parts[1].toUInt(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    mark.wasSticky = parts[2] == u"sticky";
    mark.workspace = parts.sliced(partCount - 1).join(u' ');
    return mark;
}

} // namespace tolvar
