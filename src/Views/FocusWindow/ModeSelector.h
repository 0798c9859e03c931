#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/FocusWindow/FocusTab.h"
#include "Views/FocusWindow/SlotGeometry.h"
#include "Views/Shared/ControlContext.h"

#include <QWidget>

#include <vector>

namespace tolvar {

class ModeButton;

/// The sunken bar with one slot for each tab, and a highlight that flies to the selected one: the
/// edge in the direction of travel leads, the other catches up. Left and Right change the tab for
/// those who use the keyboard.
class ModeSelector final : public QWidget {
    Q_OBJECT

public:
    ModeSelector(const ControlContext& context, FocusTab selection, QWidget* parent = nullptr);

    FocusTab selection() const { return m_selection; }
    /// Without feedback: the program's own doing.
    void setSelection(FocusTab tab);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user chose another tab.
    void selected(tolvar::FocusTab tab);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void select(FocusTab tab);
    void selectNeighbour(int step);
    void flyIndicator(FocusTab from, FocusTab to);
    SlotGeometry geometry() const;
    QRectF placed(const QRectF& fromTheLeft) const;
    void placeButtons();

    const ControlContext m_context;
    FocusTab m_selection;
    std::vector<ModeButton*> m_buttons;
    /// The slots, fractional on the way, at which the highlight's two edges stand.
    AnimatedValue m_leadingEdge;
    AnimatedValue m_trailingEdge;
};

} // namespace tolvar
