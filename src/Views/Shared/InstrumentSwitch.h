#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/FocusRing.h"

#include <QCheckBox>

namespace tolvar {

/// A switch with a knob that slides in a groove, lit while it is on. It shows no name: the label
/// beside it does.
class InstrumentSwitch final : public QCheckBox, public HasFocusRim {
    Q_OBJECT

public:
    /// `name` is what it is called to those who do not see it.
    InstrumentSwitch(const ControlContext& context, const QString& name, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    QRectF focusRim() const override;
    double focusRadius() const override;

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void nextCheckState() override;
    void checkStateSet() override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void follow();

    const ControlContext m_context;
    AnimatedValue m_position;
    AnimatedValue m_squeeze;
};

} // namespace tolvar
