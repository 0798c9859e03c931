#pragma once

#include <QColor>

#include <array>

namespace tolvar {

/// The look of one face under a soft lamp at twelve o'clock: what is raised catches light on its
/// top edge and loses it on its bottom edge, what is sunken the other way round.
struct Bevel {
    struct Stop {
        /// 0 at the top of the face to 1 at its bottom.
        double position = 0;
        QColor color;

        bool operator==(const Stop&) const = default;
    };

    /// Top, middle and bottom of the face.
    std::array<Stop, 3> face;
    QColor top;
    /// Points.
    double topWidth = 1;
    QColor bottom;
    double bottomWidth = 1;

    /// `amount` 0 is `from`, 1 is `to`; beyond that counts as the nearer of the two.
    static Bevel mixed(const Bevel& from, const Bevel& to, double amount);
    /// Lower relief, for a key that cannot be pressed: faces and edges nearer to the panel.
    Bevel flattened() const;

    bool operator==(const Bevel&) const = default;

    static const Bevel key;
    static const Bevel cardKey;
    static const Bevel card;
    static const Bevel modeIndicator;
    /// The inverse of a raised key: pressed in and held.
    static const Bevel latched;
    /// The amber key of the main action.
    static const Bevel primary;
    static const Bevel well;
    static const Bevel field;
};

/// `amount` 0 is `from`, 1 is `to`, mixed by components.
QColor mixedColor(const QColor& from, const QColor& to, double amount);

} // namespace tolvar
