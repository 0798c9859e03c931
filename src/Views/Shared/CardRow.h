#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Shared/SwipeActionsContainer.h"

#include <QUuid>

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

class QGraphicsOpacityEffect;

namespace tolvar {

/// One row of a CardList that exists as a widget.
class CardRow {
public:
    /// `moved` is called when `shift` or `presence` has changed. The row owns the container.
    CardRow(AnimationDriver& motion, std::unique_ptr<SwipeActionsContainer> container,
            const std::function<void(CardRow&)>& moved);

    SwipeActionsContainer& container() const { return *m_container; }
    /// The record it shows.
    QUuid id;
    /// How far it is from its place, in points, while rows move over.
    AnimatedValue shift;
    /// How far it is there, 0 to 1.
    AnimatedValue presence;

    /// Makes the container look as `presence` says.
    void showPresence();
    /// Ends its movements.
    void finish();

private:
    std::unique_ptr<SwipeActionsContainer> m_container;
};

/// The rows that exist as widgets: those that show a record, those on their way out, and some that
/// wait for a record to show.
class CardRows {
public:
    using Make = std::function<std::unique_ptr<CardRow>()>;
    using Live = std::map<QUuid, std::unique_ptr<CardRow>>;

    explicit CardRows(Make make)
        : m_make(std::move(make)) {}

    const Live& live() const { return m_live; }
    /// nullptr if the record is not shown.
    CardRow* find(const QUuid& id) const;
    /// The row that the widget, or what it stands in, is of; nullptr for none.
    CardRow* of(const QWidget* widget) const;
    /// A row for a record that is not shown yet; to be filled.
    CardRow& take(const QUuid& id);
    /// The row shows its record no more.
    void giveBack(const QUuid& id);
    /// The same, once it has faded out.
    void letLeave(const QUuid& id, const Curve& curve);
    /// Takes back those that have faded out; all that are on their way out if `evenIfSeen`.
    void collect(bool evenIfSeen);

    std::size_t used() const { return m_live.size() + m_leaving.size(); }
    std::size_t spare() const { return m_spare.size(); }
    const std::vector<std::unique_ptr<CardRow>>& leaving() const { return m_leaving; }

private:
    void keep(std::unique_ptr<CardRow> row);

    Make m_make;
    Live m_live;
    std::vector<std::unique_ptr<CardRow>> m_leaving;
    std::vector<std::unique_ptr<CardRow>> m_spare;
};

} // namespace tolvar
