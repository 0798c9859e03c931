#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/FocusRing.h"

#include <QLineEdit>

namespace tolvar {

/// A line to write on, sunk into the panel. It says by a warm rim that it has the keyboard.
class InstrumentField final : public QLineEdit, public HasFocusRim {
    Q_OBJECT

public:
    struct Style {
        double fontSize = 14;
        QMargins padding{15, 14, 15, 14};
        double radius = 8;
    };

    /// `placeholder` shows while the line is empty, and is what the line is called.
    InstrumentField(const ControlContext& context, const QString& placeholder, const Style& style,
                    QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// None: its own rim says it, also to those who came by the mouse.
    QRectF focusRim() const override { return {}; }
    double focusRadius() const override { return m_style.radius; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    const Style m_style;
    AnimatedValue m_focus;
};

} // namespace tolvar
