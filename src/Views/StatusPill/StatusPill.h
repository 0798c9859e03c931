#pragma once

#include "Motion/AnimatedValue.h"
#include "Platform/Interfaces/Preferences.h"
#include "Platform/Interfaces/StatusItem.h"
#include "Views/StatusPill/PillPlacement.h"

#include <QPushButton>

#include <optional>

namespace tolvar {

/// The status item where there is no panel to take it: a small pill in a corner of the screen,
/// above other windows and on every desktop. It can be dragged anywhere and stays there. It never
/// has the keyboard; to assistive technology it is a button that can be pressed.
class StatusPill final : public QPushButton {
    Q_OBJECT

public:
    /// The preference that remembers where it was dragged to (see PillPlacement::text).
    inline static const QString placeKey = QStringLiteral("statusPillPlace");
    /// Of the pill, and of the item within, across; points.
    static constexpr int height = 32;
    static constexpr int thickness = 24;

    /// How its round ends meet what lies behind.
    enum class Ends {
        smooth, ///< blended, where a compositing manager does that
        cut,    ///< pixel by pixel
    };

    /// Both outlive the pill.
    StatusPill(Preferences& preferences, AnimationDriver& motion, Ends ends);

    void setContent(const StatusItemContent& content);

    /// Where the castle stands, in points of the desktop.
    QRect castle() const;
    QSize sizeHint() const override;

Q_SIGNALS:
    /// It is somewhere else on the screen.
    void moved();
    void menuWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Drag {
        QPoint from;   ///< of the pointer, on the desktop
        QPoint origin; ///< of the pill
        bool hasBegun = false;
    };

    void watchScreens();
    void place();
    void remember();
    QRectF itemRect() const;

    Preferences& m_preferences;
    const Ends m_ends;
    StatusItemContent m_content;
    PillPlacement m_placement;
    std::optional<Drag> m_drag;
    AnimatedValue m_hover;
};

} // namespace tolvar
