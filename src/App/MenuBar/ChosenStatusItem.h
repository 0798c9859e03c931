#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Interfaces/StatusItemPlace.h"
#include "Platform/Interfaces/TimerService.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <vector>

namespace tolvar {

/// The status item in the best place that there is at the moment. It moves, with all it shows, when
/// a better one comes or its own goes.
///
/// A program that offers two places is given the lesser one: a panel with a tray of its own makes
/// more of a window that draws castle and countdown itself than of an item that it draws (some show
/// no label at all, and some the label in place of the castle).
class ChosenStatusItem final : public StatusItem {
public:
    /// How long a place may take to come, when the session starts or a panel starts anew, before
    /// the last resort is taken.
    static constexpr std::chrono::milliseconds grace{2500};

    /// `places` from best to worst; the last is the last resort, which is always there. `timers`
    /// outlives the item.
    ChosenStatusItem(std::vector<std::unique_ptr<StatusItemPlace>> places, TimerService& timers);
    ~ChosenStatusItem() override;

    void show(const StatusItemContent& content) override;
    int iconOnlyLength() const override;
    double iconWidth() const override;
    double labelWidth(const QString& label) const override;
    std::optional<QRect> anchor() const override;
    Subscription observe(Observer observer) override {
        return m_observers.add(std::move(observer));
    }

private:
    void choose();
    bool isLastResort(std::size_t place) const { return place + 1 == m_places.size(); }
    bool isOutdone(std::size_t place) const;
    /// The best place that there is or may be in a moment.
    std::size_t bestPlace() const;
    void moveTo(std::size_t place);
    void takeLastResort();
    Observer relay();

    std::vector<std::unique_ptr<StatusItemPlace>> m_places;
    TimerService& m_timers;
    StatusItemContent m_content;
    ObserverList<Observer> m_observers;
    std::unique_ptr<StatusItem> m_item; ///< never null
    Subscription m_itemSubscription;
    std::size_t m_place;
    std::unique_ptr<Timer> m_grace;
    std::vector<Subscription> m_presences;
};

} // namespace tolvar
