#pragma once

#include "Motion/AnimatedValue.h"

#include <QChar>
#include <QFont>
#include <QHash>
#include <QPainterPath>
#include <QRectF>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

class QPainter;

namespace tolvar {

/// A clock whose digits stand in cells of one width and roll when they change: each on a drum of
/// its own, which carries the old one out and the new one in. Cells are counted from the right, so
/// that seconds stay seconds when the hours come or go.
class RollingClock {
public:
    /// Which way the drums turn: a clock that counts down lets its digits fall.
    enum class Direction { down, up };
    /// Called with the part of the picture that changes, seen from its middle.
    using Changed = std::function<void(const QRectF& area)>;

    /// The smallest part of its size that it shrinks to.
    static constexpr double leastScale = 0.7;

    /// `driver` outlives the clock. `room` is the width, in points, that it shrinks to fit.
    RollingClock(AnimationDriver& driver, const QFont& font, double room, Changed changed);

    const QString& text() const { return m_text; }
    /// Digits that differ roll to their new ones.
    void roll(const QString& text, Direction direction);
    /// Stands at once.
    void show(const QString& text);
    /// Ends all rolling at once, as when nobody can see it.
    void finish();
    bool isRolling() const;

    /// Draws it around `center`, which is the middle of its digits' height.
    void paint(QPainter& painter, const QPointF& center, const QColor& color) const;

private:
    /// What stands on it at each place of its rim. A place without a character is blank.
    struct Drum {
        Drum(AnimationDriver& driver, AnimatedValue::Changed changed);

        /// What it shows, or will show when it has rolled.
        QChar shown() const;
        void put(QChar character);
        void bring(QChar character, Direction direction);

        std::map<int, QChar> faces;
        AnimatedValue position;
    };
    struct Letter {
        QPainterPath outline; ///< on the baseline, from the left edge of its cell
        double cell = 0;      ///< with the tracking behind it
    };

    const Letter& letter(QChar character) const;
    double cellOf(const Drum& drum) const;
    /// Seen from the middle, at full size.
    QRectF cellArea(std::size_t fromRight) const;
    double scale() const;
    void ensureDrums(qsizetype count);
    /// `area` is seen from the middle, at full size.
    void tellOf(const QRectF& area) const;
    void paintDrum(QPainter& painter, const Drum& drum, const QRectF& cell) const;
    void paintLetter(QPainter& painter, QChar character, const QPointF& place) const;

    AnimationDriver& m_driver;
    const QFont m_font;
    const double m_room;
    const Changed m_changed;
    QString m_text;
    double m_capHeight;
    double m_lineHeight;
    mutable QHash<QChar, Letter> m_letters;
    AnimatedValue m_width;
    /// From the right.
    std::vector<std::unique_ptr<Drum>> m_drums;
};

} // namespace tolvar
