#pragma once

#include "Views/Shared/Lamp.h"

#include <functional>
#include <memory>
#include <vector>

namespace tolvar {

/// A row of lamps that are on, one for each pause left. They are counted from the trailing edge, so
/// that none moves when one comes or goes: it grows and shrinks in its place.
class PauseLamps {
public:
    /// `driver` outlives the lamps; `changed` is called at every change of what `paint` draws.
    PauseLamps(AnimationDriver& driver, std::function<void()> changed);

    int count() const { return m_count; }
    /// None for a negative number.
    void setCount(int count);
    /// Ends comings and goings at once, as when nobody can see them.
    void finish();

    /// Draws the row with its trailing edge at `trailing`, the middle of that edge.
    void paint(QPainter& painter, const QPointF& trailing, Qt::LayoutDirection direction) const;

private:
    struct Place {
        Place(AnimationDriver& driver, const std::function<void()>& changed);

        LampLight light;
        AnimatedValue presence;
    };

    AnimationDriver& m_driver;
    const std::function<void()> m_changed;
    int m_count = 0;
    /// Also those that are going, and those that went.
    std::vector<std::unique_ptr<Place>> m_places;
};

} // namespace tolvar
