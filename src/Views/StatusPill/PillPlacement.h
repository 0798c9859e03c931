#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>
#include <vector>

namespace tolvar {

/// Where the pill lies: how far from the nearest corner of which screen. So it stays in its corner
/// when it grows or when the screen does. Lengths are points.
struct PillPlacement {
    enum class Side { left, right };
    enum class Edge { top, bottom };

    /// A screen and the part of it that panels leave free.
    struct Screen {
        QString name;
        QRect available;
    };

    Side side = Side::right;
    Edge edge = Edge::bottom;
    /// From the corner of the free part to that of the pill.
    QPoint distance{16, 16};
    /// Empty, or one that is gone, stands for the first screen.
    QString screen = {};

    /// Of a pill at `rect`, by the screen that its middle is nearest to. `screens` is not empty.
    static PillPlacement of(const QRect& rect, const std::vector<Screen>& screens);
    /// A pill of that size, brought wholly onto its screen. `screens` is not empty.
    QRect rectFor(QSize size, const std::vector<Screen>& screens) const;

    /// "right bottom 16 16 SCREEN".
    QString text() const;
    /// Nothing where the text is not one of ours.
    static std::optional<PillPlacement> fromText(const QString& text);

    bool operator==(const PillPlacement&) const = default;
};

} // namespace tolvar
