#include "Views/Shared/CardRow.h"

#include <QGraphicsOpacityEffect>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvar {

namespace {

/// More than a view can be short of at once are not worth their memory.
constexpr std::size_t mostSpares = 16;

} // namespace

CardRow::CardRow(AnimationDriver& motion, std::unique_ptr<SwipeActionsContainer> container,
                 const std::function<void(CardRow&)>& moved)
    : shift(motion, 0, [this, moved] { moved(*this); })
    , presence(motion, 1, [this, moved] { moved(*this); })
    , m_container(std::move(container)) {}

/// What is wholly there paints itself without a way round.
void CardRow::showPresence() {
    const double amount = std::clamp(presence.value(), 0.0, 1.0);
    auto* effect = qobject_cast<QGraphicsOpacityEffect*>(m_container->graphicsEffect());
    if (amount == 1 && !presence.isMoving()) {
        if (effect)
            m_container->setGraphicsEffect(nullptr);
        return;
    }
    if (!effect) {
        effect = new QGraphicsOpacityEffect;
        m_container->setGraphicsEffect(effect);
    }
    effect->setOpacity(amount);
}

void CardRow::finish() {
    shift.finish();
    presence.finish();
    showPresence();
}

CardRow* CardRows::find(const QUuid& id) const {
    const auto found = m_live.find(id);
    return found == m_live.end() ? nullptr : found->second.get();
}

CardRow* CardRows::of(const QWidget* widget) const {
    for (const auto& [id, row] : m_live)
        if (widget && (widget == &row->container() || row->container().isAncestorOf(widget)))
            return row.get();
    return nullptr;
}

CardRow& CardRows::take(const QUuid& id) {
    std::unique_ptr<CardRow> row;
    if (m_spare.empty()) {
        row = m_make();
    } else {
        row = std::move(m_spare.back());
        m_spare.pop_back();
    }
    row->id = id;
    return *(m_live[id] = std::move(row));
}

void CardRows::giveBack(const QUuid& id) {
    if (auto node = m_live.extract(id))
        keep(std::move(node.mapped()));
}

void CardRows::letLeave(const QUuid& id, const Curve& curve) {
    auto node = m_live.extract(id);
    if (!node)
        return;
    m_leaving.push_back(std::move(node.mapped()));
    SwipeActionsContainer& container = m_leaving.back()->container();
    container.endInteraction();
    container.setTakesTab(false);
    container.setAttribute(Qt::WA_TransparentForMouseEvents);
    container.lower();
    m_leaving.back()->presence.animateTo(0, curve);
}

void CardRows::collect(bool evenIfSeen) {
    const auto stays = [evenIfSeen](const auto& row) {
        return !evenIfSeen && row->presence.isMoving();
    };
    const auto firstGone = std::stable_partition(m_leaving.begin(), m_leaving.end(), stays);
    std::vector<std::unique_ptr<CardRow>> gone(std::make_move_iterator(firstGone),
                                               std::make_move_iterator(m_leaving.end()));
    m_leaving.erase(firstGone, m_leaving.end());
    for (auto& row : gone)
        keep(std::move(row));
}

/// As it was made, unseen.
void CardRows::keep(std::unique_ptr<CardRow> row) {
    SwipeActionsContainer& container = row->container();
    container.rest();
    container.hide();
    container.setAttribute(Qt::WA_TransparentForMouseEvents, false);
    row->id = {};
    row->shift.jumpTo(0);
    row->presence.jumpTo(1);
    row->showPresence();
    if (m_spare.size() < mostSpares)
        m_spare.push_back(std::move(row));
}

} // namespace tolvar
