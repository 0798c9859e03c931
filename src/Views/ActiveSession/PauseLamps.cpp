#include "Views/ActiveSession/PauseLamps.h"

#include "Views/Paint/Paint.h"

#include <algorithm>

namespace tolvar {

namespace {

struct LampsStyle {
    double spacing = 4;
    /// The part of its size that a lamp comes from and goes to.
    double least = 0.2;
};
constexpr LampsStyle style;

} // namespace

PauseLamps::Place::Place(AnimationDriver& driver, const std::function<void()>& changed)
    : light(driver, changed)
    , presence(driver, 0, changed) {
    light.setOn(true);
    light.rest();
}

PauseLamps::PauseLamps(AnimationDriver& driver, std::function<void()> changed)
    : m_driver(driver)
    , m_changed(std::move(changed)) {}

void PauseLamps::setCount(int count) {
    m_count = std::max(count, 0);
    while (static_cast<int>(m_places.size()) < m_count)
        m_places.push_back(std::make_unique<Place>(m_driver, m_changed));
    for (std::size_t i = 0; i < m_places.size(); ++i)
        m_places[i]->presence.animateTo(static_cast<int>(i) < m_count ? 1 : 0,
                                        Instrument::Motion::scene);
}

void PauseLamps::finish() {
    for (const auto& place : m_places)
        place->presence.finish();
}

void PauseLamps::paint(QPainter& painter, const QPointF& trailing,
                       Qt::LayoutDirection direction) const {
    const double inward = direction == Qt::RightToLeft ? 1 : -1;
    double aside = Lamp::standardSize / 2;
    for (const auto& place : m_places) {
        if (const double presence = place->presence.value(); presence > 0) {
            const Paint::Saved saved(painter);
            painter.setOpacity(painter.opacity() * std::min(presence, 1.0));
            place->light.paint(painter, trailing + QPointF(inward * aside, 0),
                               Lamp::standardSize * (style.least + (1 - style.least) * presence));
        }
        aside += Lamp::standardSize + style.spacing;
    }
}

} // namespace tolvar
