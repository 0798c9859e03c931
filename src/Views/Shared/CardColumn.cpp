#include "Views/Shared/CardColumn.h"

#include <algorithm>
#include <utility>

namespace tolvar {

void CardColumn::setIds(std::vector<QUuid> ids) {
    m_rows.clear();
    m_rows.reserve(static_cast<qsizetype>(ids.size()));
    m_ids = std::move(ids);
    int row = 0;
    std::erase_if(m_ids, [&](const QUuid& id) {
        const bool isKnown = m_rows.contains(id);
        if (!isKnown)
            m_rows.insert(id, row++);
        return isKnown;
    });
}

int CardColumn::height() const {
    const int cards = m_ids.empty() ? 0 : count() * pitch() - m_measures.spacing;
    return m_measures.top + cards + m_measures.bottom;
}

CardColumn::Range CardColumn::between(int top, int bottom) const {
    const int first = (top - m_measures.top + m_measures.spacing) / pitch();
    const int end = (bottom - m_measures.top + pitch() - 1) / pitch();
    return {std::clamp(first, 0, count()), std::clamp(end, 0, count())};
}

int CardColumn::rowAt(int y) const {
    const int row = y < m_measures.top ? -1 : (y - m_measures.top) / pitch();
    return row >= 0 && row < count() && y < topOf(row) + cardHeight() ? row : -1;
}

int CardColumn::scrollShowing(int row, int scroll, int viewHeight) const {
    const int top = topOf(row) - m_measures.top;
    const int bottom = topOf(row) + cardHeight() + m_measures.bottom;
    if (top < scroll)
        return top;
    return std::min(top, std::max(scroll, bottom - viewHeight));
}

} // namespace tolvar
