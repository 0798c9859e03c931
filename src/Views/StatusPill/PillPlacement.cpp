#include "Views/StatusPill/PillPlacement.h"

#include <QStringList>

#include <algorithm>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

const QString leftWord = u"left"_s;
const QString rightWord = u"right"_s;
const QString topWord = u"top"_s;
const QString bottomWord = u"bottom"_s;

/// How far a point is outside of a rectangle.
int distanceTo(const QRect& rect, QPoint point) {
    const QPoint inside(std::clamp(point.x(), rect.left(), rect.right()),
                        std::clamp(point.y(), rect.top(), rect.bottom()));
    return (point - inside).manhattanLength();
}

} // namespace

PillPlacement PillPlacement::of(const QRect& rect, const std::vector<Screen>& screens) {
    const Screen& screen = *std::min_element(screens.begin(), screens.end(),
                                             [&](const Screen& one, const Screen& other) {
                                                 return distanceTo(one.available, rect.center()) <
                                                        distanceTo(other.available, rect.center());
                                             });
    const QRect& area = screen.available;
    const bool isLeft = rect.center().x() < area.center().x();
    const bool isTop = rect.center().y() < area.center().y();
    return {.side = isLeft ? Side::left : Side::right,
            .edge = isTop ? Edge::top : Edge::bottom,
            .distance = {isLeft ? rect.left() - area.left() : area.right() - rect.right(),
                         isTop ? rect.top() - area.top() : area.bottom() - rect.bottom()},
            .screen = screen.name};
}

QRect PillPlacement::rectFor(QSize size, const std::vector<Screen>& screens) const {
    const auto named = std::find_if(screens.begin(), screens.end(),
                                    [this](const Screen& each) { return each.name == screen; });
    const QRect& area = (named != screens.end() ? *named : screens.front()).available;
    QRect rect(QPoint(0, 0), size);
    if (side == Side::left)
        rect.moveLeft(area.left() + distance.x());
    else
        rect.moveRight(area.right() - distance.x());
    if (edge == Edge::top)
        rect.moveTop(area.top() + distance.y());
    else
        rect.moveBottom(area.bottom() - distance.y());
    rect.moveLeft(std::max(area.left(), std::min(rect.left(), area.right() + 1 - size.width())));
    rect.moveTop(std::max(area.top(), std::min(rect.top(), area.bottom() + 1 - size.height())));
    return rect;
}

QString PillPlacement::text() const {
    return u"%1 %2 %3 %4 %5"_s
        .arg(side == Side::left ? leftWord : rightWord, edge == Edge::top ? topWord : bottomWord)
        .arg(distance.x())
        .arg(distance.y())
        .arg(screen);
}

std::optional<PillPlacement> PillPlacement::fromText(const QString& text) {
    const QString name = text.section(u' ', 4);
    const QStringList words = text.split(u' ');
    if (words.size() < 5)
        return std::nullopt;
    bool isX = false;
    bool isY = false;
    const QPoint distance(words[2].toInt(&isX), words[3].toInt(&isY));
    const bool isSide = words[0] == leftWord || words[0] == rightWord;
    const bool isEdge = words[1] == topWord || words[1] == bottomWord;
    if (!isSide || !isEdge || !isX || !isY)
        return std::nullopt;
    return PillPlacement{.side = words[0] == leftWord ? Side::left : Side::right,
                         .edge = words[1] == topWord ? Edge::top : Edge::bottom,
                         .distance = distance,
                         .screen = name};
}

} // namespace tolvar
