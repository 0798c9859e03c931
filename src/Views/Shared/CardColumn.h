#pragma once

#include <QHash>
#include <QUuid>

#include <vector>

namespace tolvar {

/// Where the rows of a column lie that are all of one height. Points from the column's top.
class CardColumn {
public:
    struct Measures {
        int cardHeight = 0;
        int spacing = 0;
        /// Above the first and below the last card.
        int top = 0;
        int bottom = 0;
    };
    /// Rows from `first` up to, but without, `end`.
    struct Range {
        int first = 0;
        int end = 0;

        bool contains(int row) const { return row >= first && row < end; }
        bool operator==(const Range&) const = default;
    };

    explicit CardColumn(const Measures& measures)
        : m_measures(measures) {}

    const std::vector<QUuid>& ids() const { return m_ids; }
    /// Of an id that comes again only the first one counts.
    void setIds(std::vector<QUuid> ids);
    int count() const { return static_cast<int>(m_ids.size()); }
    /// -1 for none.
    int rowOf(const QUuid& id) const { return m_rows.value(id, -1); }
    const QUuid& id(int row) const { return m_ids[static_cast<std::size_t>(row)]; }

    int cardHeight() const { return m_measures.cardHeight; }
    /// From one row to the next.
    int pitch() const { return m_measures.cardHeight + m_measures.spacing; }
    int topOf(int row) const { return m_measures.top + row * pitch(); }
    int height() const;
    /// The rows that show something between these heights.
    Range between(int top, int bottom) const;
    /// The row at a height; -1 between rows and beyond them.
    int rowAt(int y) const;
    /// The least change of `scroll` that shows all of a row, and the space around it, in a view of
    /// this height.
    int scrollShowing(int row, int scroll, int viewHeight) const;

private:
    Measures m_measures;
    std::vector<QUuid> m_ids;
    QHash<QUuid, int> m_rows;
};

} // namespace tolvar
