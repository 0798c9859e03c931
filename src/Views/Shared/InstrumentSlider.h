#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/FocusRing.h"

#include <QSlider>

#include <optional>

namespace tolvar {

/// A fader for an amount between 0 and 1, in hundredths. While it is dragged it shows where the
/// hand is and keeps its amount; letting go sets the amount once and ends the editing. Escape, or
/// losing the control from under the hand, ends the drag without a change. Each step of the
/// keyboard or of assistive technology is an editing of its own.
class InstrumentSlider final : public QSlider, public HasFocusRim {
    Q_OBJECT

public:
    struct Style {
        double knobWidth = 18;
        double knobHeight = 22;
        double grooveHeight = 6;
        int preferredWidth = 160;
    };

    /// `name` is what it is called to those who do not see it.
    InstrumentSlider(const ControlContext& context, const QString& name, const Style& style,
                     QWidget* parent = nullptr);

    double amount() const;
    void setAmount(double amount);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QRectF focusRim() const override { return knob(); }
    double focusRadius() const override;

Q_SIGNALS:
    /// The user has chosen an amount, and it is set.
    void editingEnded();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// What it stands in may want to scroll.
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void dragTo(double x);
    void endDrag();
    void cancelDrag();
    QRectF groove() const;
    QRectF knob() const;
    bool isMirrored() const { return layoutDirection() == Qt::RightToLeft; }

    const Style m_style;
    bool m_isProgramSetting = false;
    /// Where the hand is while it drags, 0 to 1.
    std::optional<double> m_hand;
    AnimatedValue m_press;
};

} // namespace tolvar
