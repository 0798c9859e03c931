#pragma once

#include "Motion/AnimatedValue.h"
#include "Motion/KeyframePlayer.h"
#include "Views/FocusWindow/FocusTab.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/FocusRing.h"

#include <QAbstractButton>

namespace tolvar {

/// One slot of the mode selector: the symbol of a tab, lit while the tab is selected. The whole
/// slot can be pressed. To assistive technology it is a page tab.
class ModeButton final : public QAbstractButton, public HasFocusRim {
    Q_OBJECT

public:
    ModeButton(const ControlContext& context, FocusTab tab, QWidget* parent = nullptr);

    FocusTab tab() const { return m_tab; }
    /// Its symbol pops when it becomes selected. The selected one alone is where Tab leads.
    void setSelected(bool selected);
    bool isSelected() const { return m_isSelected; }

    QSize sizeHint() const override;
    QRectF focusRim() const override { return rect(); }
    double focusRadius() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    const FocusTab m_tab;
    bool m_isSelected = false;
    AnimatedValue m_light;
    AnimatedValue m_hover;
    KeyframePlayer m_pop;
};

} // namespace tolvar
