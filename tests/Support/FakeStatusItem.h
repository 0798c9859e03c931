#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Interfaces/StatusItemPlace.h"

#include <memory>
#include <vector>

namespace tolvar::test {

/// A status item that remembers everything it was to show. A character is 6 points wide.
class FakeStatusItem final : public StatusItem {
public:
    int thickness = 22;
    std::optional<QRect> place = std::nullopt;
    ObserverList<Observer> observers;
    std::vector<StatusItemContent> shown;

    const StatusItemContent& content() const { return shown.back(); }
    /// How often something else was shown than before.
    int changes() const {
        int changes = 0;
        for (std::size_t i = 1; i < shown.size(); ++i)
            changes += shown[i] != shown[i - 1] ? 1 : 0;
        return changes;
    }

    void show(const StatusItemContent& content) override { shown.push_back(content); }
    int iconOnlyLength() const override { return thickness; }
    double iconWidth() const override { return 15; }
    double labelWidth(const QString& label) const override {
        return 6.2 * static_cast<double>(label.size());
    }
    std::optional<QRect> anchor() const override { return place; }
    Subscription observe(Observer observer) override { return observers.add(std::move(observer)); }
};

/// A place that comes and goes by hand. It lends out the same item each time, and knows whether
/// somebody has it.
class FakeStatusItemPlace final : public StatusItemPlace {
public:
    explicit FakeStatusItemPlace(Presence presence)
        : m_presence(presence) {}

    Presence presence() const override { return m_presence; }
    qint64 hostProcess() const override { return process; }
    Subscription observePresence(std::function<void()> changed) override {
        return m_observers.add(std::move(changed));
    }
    std::unique_ptr<StatusItem> makeItem() override {
        ++made;
        return std::make_unique<Lent>(*this);
    }

    void become(Presence presence) {
        m_presence = presence;
        m_observers.tell([](const auto& changed) { changed(); });
    }
    bool isTaken() const { return taken > 0; }

    qint64 process = 0;
    FakeStatusItem item;
    int made = 0;
    int taken = 0;

private:
    class Lent final : public StatusItem {
    public:
        explicit Lent(FakeStatusItemPlace& place)
            : m_place(place) {
            ++m_place.taken;
        }
        ~Lent() override { --m_place.taken; }
        Lent(const Lent&) = delete;
        Lent& operator=(const Lent&) = delete;

        void show(const StatusItemContent& content) override { m_place.item.show(content); }
        int iconOnlyLength() const override { return m_place.item.iconOnlyLength(); }
        double iconWidth() const override { return m_place.item.iconWidth(); }
        double labelWidth(const QString& label) const override {
            return m_place.item.labelWidth(label);
        }
        std::optional<QRect> anchor() const override { return m_place.item.anchor(); }
        Subscription observe(Observer observer) override {
            return m_place.item.observe(std::move(observer));
        }

    private:
        FakeStatusItemPlace& m_place;
    };

    Presence m_presence;
    ObserverList<std::function<void()>> m_observers;
};

} // namespace tolvar::test
