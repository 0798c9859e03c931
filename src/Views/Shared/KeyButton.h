#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/FocusRing.h"
#include "Views/Shared/KeyStyle.h"
#include "Views/Theme/Symbol.h"

#include <QPushButton>

#include <optional>

namespace tolvar {

/// A key that sinks when it is pressed, clicks on the way down and up, and springs back. A latched
/// one is held half way down until it is told otherwise: pressing it does not release it by itself.
class KeyButton : public QPushButton, public HasFocusRim {
    Q_OBJECT

public:
    /// How far the label of a key goes down, in points, and the key's size then.
    static constexpr double pressedDepth = 1.5;
    static constexpr double latchedDepth = 0.5;
    static constexpr double pressedScale = 0.975;

    /// `name` is the text on the key and what it is called to those who do not see it, also on one
    /// that shows a symbol alone (`setShowsText`).
    KeyButton(const ControlContext& context, KeyStyle style, const QString& name,
              QWidget* parent = nullptr);

    const QString& name() const { return m_name; }
    void setName(const QString& name);
    void setSymbol(Symbol symbol);
    void setShowsText(bool shows);
    /// To assistive technology it is a button that is checked.
    void setLatched(bool latched);
    bool isLatched() const { return m_isLatched; }
    /// Whether it clicks; a container whose keys are quiet says no.
    void setClicks(bool clicks) { m_clicks = clicks; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    QRectF focusRim() const override { return rect(); }
    double focusRadius() const override { return m_style.radius; }

protected:
    /// Paints what stands on the face into `label`, which moves with the key.
    virtual void paintLabel(QPainter& painter, const QRectF& label, const QColor& ink);
    /// The size of what `paintLabel` paints.
    virtual QSizeF labelSize() const;
    const KeyStyle& keyStyle() const { return m_style; }
    /// Where the label stands while the key is up.
    QRectF labelPlace() const;

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void bring(AnimatedValue& value, double target, const Curve& curve);
    void settle(const Spring& spring);
    void moveTo(bool isHeld);
    void updateHover();
    double depth() const;
    QColor ink() const;
    bool isHeld() const { return isDown() && isEnabled(); }

    const ControlContext m_context;
    const KeyStyle m_style;
    QString m_name;
    bool m_isLatched = false;
    std::optional<Symbol> m_symbol;
    bool m_showsText = true;
    bool m_clicks = true;
    AnimatedValue m_depth;
    AnimatedValue m_scale;
    AnimatedValue m_latch;
    AnimatedValue m_hover;
};

} // namespace tolvar
