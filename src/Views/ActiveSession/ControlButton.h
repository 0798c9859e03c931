#pragma once

#include "Views/Shared/KeyButton.h"

#include <functional>

namespace tolvar {

/// One of the three keys below the dial, with any label on it.
class ControlButton : public KeyButton {
    Q_OBJECT

public:
    /// What a label is painted on.
    struct Canvas {
        QPainter& painter;
        /// Where the label stands, in the key's coordinates; it moves with the key.
        QRectF place;
        /// By the key's state.
        QColor ink;
    };
    using Label = std::function<void(const Canvas&)>;

    /// The height of the label, and what is above and below it.
    static constexpr double labelHeight = 17;
    static constexpr double verticalPadding = 13;

    /// `accessibilityLabel` is also its tooltip. `action` is called when it is pressed and let go,
    /// and may destroy the key.
    ControlButton(const ControlContext& context, const QString& accessibilityLabel,
                  std::function<void()> action, Label label, const QColor& ink,
                  QWidget* parent = nullptr);

    void setAccessibilityLabel(const QString& label);

protected:
    void paintLabel(QPainter& painter, const QRectF& label, const QColor& ink) override;
    QSizeF labelSize() const override { return {0, labelHeight}; }

private:
    const Label m_label;
};

} // namespace tolvar
