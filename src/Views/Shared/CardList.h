#pragma once

#include "Views/Shared/CardColumn.h"
#include "Views/Shared/CardRow.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/ScrollHand.h"
#include "Views/Shared/SwipeAction.h"
#include "Views/Shared/SwipeActionsContainer.h"
#include "Views/Theme/Instrument.h"

#include <QAbstractScrollArea>
#include <QMenu>
#include <QPointer>
#include <QUuid>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tolvar {

/// What a CardList shows: the cards of records that are known by their ids.
class CardSource {
public:
    virtual ~CardSource() = default;

    /// A card that shows nothing yet, for the list to own. It shows one record after another.
    virtual QWidget* makeCard() = 0;
    /// Shows a record on a card that `makeCard` made.
    virtual void fillCard(QWidget& card, const QUuid& id) = 0;
    /// Asked for rows in view, and for one that assistive technology looks at.
    virtual std::vector<SwipeAction> actions(const QUuid& id) = 0;
    /// What the row is called to those who do not see it; also asked for rows out of view.
    virtual QString cardName(const QUuid& id) const = 0;
};

/// Cards of one height, one below the other, each of which can be swiped aside. However many there
/// are, only those in view exist as widgets, and one card shows record after record.
///
/// It scrolls by wheel, touchpad, finger and keyboard (Up, Down, Page Up, Page Down, Home, End);
/// what goes beyond an edge fades into the panel. To Tab it is one stop, the row that the keyboard
/// was on last, and what is in that row. At most one row is open. To assistive technology it is a
/// list of all rows: one that is asked to do something is brought into view first.
class CardList final : public QAbstractScrollArea, public HasFocusRim {
    Q_OBJECT

public:
    /// Lengths in points.
    struct Style {
        int cardHeight = 64;
        int spacing = 8;
        /// Around all cards together; what scrolls goes through the upper and lower ones.
        QMargins margins{20, 22, 20, 20};
        SwipeActionsContainer::Style swipe;
    };
    enum class Change { atOnce, animated };
    using Hand = ScrollHand::Hand;

    /// `source` and `timers` outlive the list.
    CardList(const ControlContext& context, TimerService& timers, CardSource& source,
             const Style& style, QWidget* parent = nullptr);
    ~CardList() override;

    const std::vector<QUuid>& ids() const { return m_column.ids(); }
    /// The records from top to bottom, each once. Rows that stay keep their widgets, and their
    /// place under the eye if what comes or goes is above them. Animated, rows in view that come
    /// fade in, those that go fade out, and the others move over. If the row with the keyboard
    /// goes, the one that takes its place gets it. Cards that stay are not filled afresh: see
    /// `refresh`.
    void setIds(std::vector<QUuid> ids, Change change,
                const Spring& spring = Instrument::Motion::listEdit);
    /// Fills the cards in view afresh and asks for their actions again, because records have
    /// changed or a day has gone by.
    void refresh();

    /// The one row whose actions are revealed.
    std::optional<QUuid> openId() const { return m_openId; }
    void setOpenId(const std::optional<QUuid>& id);
    /// What concerns the whole list: its own context menu, and the end of that of each row.
    void setCommonActions(std::vector<SwipeAction> actions);
    /// Whether the list can be pulled down beyond its top, by a drag or a touchpad; not so at
    /// first.
    void setPullable(bool isPullable) { m_hand.setPullable(isPullable); }
    /// How far it is pulled down, in points, as it is seen.
    double pull() const { return m_hand.pull(); }

    /// The row of a record; -1 for none.
    int rowOf(const QUuid& id) const;
    /// The place of a row in the viewport where it rests; it may be out of view.
    QRect rowRect(int row) const;
    /// The row at a point of the viewport; -1 for none.
    int rowAt(const QPoint& point) const;
    /// Scrolls as little as is necessary, at once.
    void bringIntoView(int row);
    /// The row that the keyboard is on, or was on last; -1 for none.
    int currentRow() const;
    void setCurrentRow(int row);
    /// The row's widgets; nullptr for one that has none, being out of view.
    SwipeActionsContainer* containerOf(int row) const;
    /// Brings the row into view, then the same.
    SwipeActionsContainer& containerInView(int row);
    /// How many rows have widgets, and how many are kept for rows to come.
    struct Widgets {
        std::size_t used = 0;
        std::size_t spare = 0;
    };
    Widgets widgets() const;
    QString rowName(int row) const;
    std::vector<SwipeAction> actionsOf(int row) const;
    /// The row that a widget stands in; -1 for none.
    int rowOfWidget(const QWidget* widget) const;

    /// None: the rows have rims of their own.
    QRectF focusRim() const override { return {}; }
    double focusRadius() const override { return 0; }

Q_SIGNALS:
    void openIdChanged(const std::optional<QUuid>& id);
    /// Delete was pressed on a row, which ought to be confirmed.
    void deleteRequested(const QUuid& id);
    /// It is pulled down by this many points as it is seen, while a hand holds it and on its way
    /// back.
    void pulled(double points, tolvar::ScrollHand::Hand hand);
    /// The hand has let go at this many points. Not after a pull that was broken off.
    void pullReleased(double points);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// Where everything was before the records changed.
    struct Before {
        CardColumn column;
        int scroll = 0;
    };
    /// How rows go to their places; nothing for at once.
    using Motion = std::optional<Spring>;

    int scroll() const;
    std::unique_ptr<CardRow> makeRow();
    CardRow& rowFor(int row);
    void orderTabs(SwipeActionsContainer& made);
    void fill(CardRow& row);
    void watchKeyboard(SwipeActionsContainer& container);
    bool isKept(const CardRow& row) const;
    QRect shownRect(const CardRow& row) const;
    void showRows();
    void placeRow(CardRow& row);
    void rowMoved(CardRow& row);
    void updateScrollRange();

    void layOut();
    /// Where the rows are seen, by their ids.
    using Tops = std::map<QUuid, int>;
    Tops shownTops() const;
    void handOnCurrent(const Before& before);
    void keepPlaceUnderTheEye(const Before& before);
    void removeRows(const Tops& tops, const Motion& motion);
    void moveOver(const Before& before, const Tops& tops, const Motion& motion);
    void moveOver(CardRow& row, const std::optional<double>& from, const Spring& spring);

    void makeCurrent(const QUuid& id);
    void focusRow(int row);
    bool leaveByTab(QWidget& from, bool next);
    int keyTarget(int key) const;

    const ControlContext m_context;
    TimerService& m_timers;
    CardSource& m_source;
    const Style m_style;
    CardColumn m_column;
    CardRows m_rows;
    std::vector<SwipeAction> m_commonActions;
    std::optional<QUuid> m_openId;
    QUuid m_current;
    QPointer<QMenu> m_menu;
    bool m_isChanging = false;
    ScrollHand& m_hand;
};

} // namespace tolvar
