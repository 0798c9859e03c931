#include "App/MenuBar/ChosenStatusItem.h"

#include "Platform/Null/NullStatusItem.h"

#include <algorithm>
#include <utility>

namespace tolvar {

using Presence = StatusItemPlace::Presence;

ChosenStatusItem::ChosenStatusItem(std::vector<std::unique_ptr<StatusItemPlace>> places,
                                   TimerService& timers)
    : m_places(std::move(places))
    , m_timers(timers)
    , m_item(std::make_unique<NullStatusItem>())
    , m_place(m_places.size()) {
    for (const auto& place : m_places)
        m_presences.push_back(place->observePresence([this] { choose(); }));
    choose();
}

ChosenStatusItem::~ChosenStatusItem() = default;

bool ChosenStatusItem::isOutdone(std::size_t place) const {
    const qint64 process = m_places[place]->hostProcess();
    return process != 0 && std::any_of(m_places.begin() + static_cast<std::ptrdiff_t>(place) + 1,
                                       m_places.end(), [process](const auto& other) {
                                           return other->presence() == Presence::present &&
                                                  other->hostProcess() == process;
                                       });
}

std::size_t ChosenStatusItem::bestPlace() const {
    std::size_t place = 0;
    while (!isLastResort(place) &&
           (m_places[place]->presence() == Presence::absent || isOutdone(place)))
        ++place;
    return place;
}

void ChosenStatusItem::choose() {
    const std::size_t best = bestPlace();
    const bool isWaiting = isLastResort(best) || m_places[best]->presence() == Presence::unknown;
    if (!isWaiting || best == m_place) {
        m_grace.reset();
        if (best != m_place)
            moveTo(best);
    } else if (!m_grace) {
        m_grace = m_timers.once(grace, [this] { takeLastResort(); });
    }
}

/// What is still unknown by now is not waited for any longer: the best that is surely there will
/// do.
void ChosenStatusItem::takeLastResort() {
    m_grace.reset();
    std::size_t place = 0;
    while (!isLastResort(place) && m_places[place]->presence() != Presence::present)
        ++place;
    if (place != m_place)
        moveTo(place);
}

void ChosenStatusItem::moveTo(std::size_t place) {
    m_itemSubscription.reset();
    m_place = place;
    // The former item leaves first: the castle is never seen twice.
    m_item = std::make_unique<NullStatusItem>();
    m_item = m_places[place]->makeItem();
    m_itemSubscription = m_item->observe(relay());
    m_item->show(m_content);
    m_observers.call(&Observer::measuresChanged);
}

StatusItem::Observer ChosenStatusItem::relay() {
    return {
        .clicked = [this](auto claimed) { m_observers.call(&Observer::clicked, claimed); },
        .chosen = [this](StatusCommand command) { m_observers.call(&Observer::chosen, command); },
        .moved = [this] { m_observers.call(&Observer::moved); },
        .measuresChanged = [this] { m_observers.call(&Observer::measuresChanged); },
    };
}

void ChosenStatusItem::show(const StatusItemContent& content) {
    m_content = content;
    m_item->show(content);
}

int ChosenStatusItem::iconOnlyLength() const {
    return m_item->iconOnlyLength();
}

double ChosenStatusItem::iconWidth() const {
    return m_item->iconWidth();
}

double ChosenStatusItem::labelWidth(const QString& label) const {
    return m_item->labelWidth(label);
}

std::optional<QRect> ChosenStatusItem::anchor() const {
    return m_item->anchor();
}

} // namespace tolvar
