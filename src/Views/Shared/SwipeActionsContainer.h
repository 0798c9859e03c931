#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/DragWatch.h"
#include "Views/Shared/FocusRing.h"
#include "Views/Shared/ScrollSwipeTracker.h"
#include "Views/Shared/SwipeAction.h"
#include "Views/Shared/SwipeGesture.h"
#include "Views/Shared/WheelReader.h"

#include <QMenu>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <utility>
#include <vector>

class QWheelEvent;

namespace tolvar {

class KeyButton;
class SlideFade;

/// One row of a list that can be swiped aside, by a drag of the mouse or a sideways scroll, and
/// then shows a key for each of its actions behind its trailing edge. The same actions are in its
/// context menu, for the right button, the menu key and Shift+F10. A row that is open is closed by
/// a click on its content, which gets nothing of it, and by Escape. Where text runs from right to
/// left all of it is mirrored.
class SwipeActionsContainer final : public QWidget, public HasFocusRim {
    Q_OBJECT

public:
    /// Lengths in points.
    struct Style {
        /// The side of each square key.
        int keySize = 52;
        /// Of the keys' corners.
        double radius = 9;
        /// Between keys, and between the row and the first key.
        int gap = 8;
        /// Of the row's own corners, for the keyboard's ring.
        double rowRadius = 10;
        /// The row fades at its leading edge while it is aside.
        bool fadesAsItSlides = true;
    };

    /// The container owns the content and gives it its own size. Sideways swipes on wheels that
    /// tell of no phases end by `timers`, which outlives the container.
    SwipeActionsContainer(const ControlContext& context, TimerService& timers, const Style& style,
                          QWidget* content, QWidget* parent = nullptr);
    ~SwipeActionsContainer() override;

    QWidget& content() const { return *m_content; }
    /// In the order of the keys from the leading to the trailing side. Keys whose actions differ in
    /// nothing that is seen stay as they are; a key that has the keyboard and goes, or can no more
    /// be pressed, leaves it to the row.
    void setActions(std::vector<SwipeAction> actions);
    const std::vector<SwipeAction>& actions() const { return m_actions; }
    /// Stand in the context menu below the row's own, as what concerns the whole list.
    void setCommonActions(std::vector<SwipeAction> actions) {
        m_commonActions = std::move(actions);
    }
    /// Does what a press on the action's key does; nothing if there is none or it is disabled.
    void perform(int action);

    enum class Motion { animated, atOnce };
    bool isOpen() const { return m_gesture.isOpen(); }
    /// Opens or closes the row and says so to nobody. A gesture that is going on is broken off.
    void setOpen(bool open, Motion motion = Motion::animated);
    /// Where the content stands, in points from its closed place; less than 0 is aside.
    double offset() const;
    /// Whether a hand is at it, or its menu is open.
    bool isBusy() const;
    /// Closes the menu and breaks off a gesture, because its record has gone.
    void endInteraction();
    /// The same, and closes the row at once, as before it shows another record.
    void rest();

    /// Whether Tab comes to the row and what is in it.
    void setTakesTab(bool takes);
    /// What may take the keyboard in the row, in the order of Tab: the row itself, what is on the
    /// content, and its keys.
    std::vector<QWidget*> tabParts();
    /// Of them, those that take it now.
    std::vector<QWidget*> tabStops();
    /// Opens the menu of the row; `position` on the screen.
    void openMenu(const QPoint& position);

    QSize sizeHint() const override;
    QRectF focusRim() const override;
    double focusRadius() const override { return m_style.rowRadius; }

Q_SIGNALS:
    /// A hand has opened or closed the row: to tell the list, which may then close another.
    void openChanged(bool isOpen);
    /// Delete was pressed while the row had the keyboard, which ought to be confirmed.
    void deleteRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void openMenuByKey();
    void watchScrolling(QWindow* window);
    bool takeScroll(const QWheelEvent& event);
    void makeKeys();
    void addKey(const SwipeAction& action);
    void dragTo(const QPointF& way);
    void scrollBy(double delta);
    void letGo();
    void breakOff();
    void snap(bool open);
    void place();
    void placeKeys(double progress);
    void keepFocusOff(const QWidget& leaving);
    double inDirection(double length) const;

    const ControlContext m_context;
    const Style m_style;
    QWidget* m_content;
    std::vector<SwipeAction> m_actions;
    std::vector<SwipeAction> m_commonActions;
    std::vector<KeyButton*> m_keys;
    QWidget* m_closingLayer;
    SlideFade* m_slideFade;
    QPointer<QMenu> m_menu;
    QPointer<QWindow> m_window;
    SwipeGesture m_gesture;
    /// Where the row would be without a hand at it: on the way to where it rests.
    AnimatedValue m_rest;
    DragWatch m_drag;
    ScrollSwipeTracker m_scroll;
    WheelReader m_wheel;
    bool m_takesTab = true;
    /// What would take Tab, while the row does not.
    std::vector<std::pair<QPointer<QWidget>, Qt::FocusPolicy>> m_withheld;
};

} // namespace tolvar
