#pragma once

#include "Motion/KeyframePlayer.h"

#include <QFocusFrame>

namespace tolvar {

/// How the floater stands at one moment.
struct FloaterFrame {
    /// Points, negative is up.
    double y = 0;
    double opacity = 0;
    double scale = 0.8;

    bool operator==(const FloaterFrame&) const = default;
};

/// "+5 min", sent up out of the extend key at each increase of a counter. Lies over what it flies
/// across, and is nothing to the pointer and to assistive technology: it is a focus frame because
/// these alone Qt does not tell of.
class ExtendFloater final : public QFocusFrame {
    Q_OBJECT

public:
    ExtendFloater(AnimationDriver& driver, QWidget* parent);

    /// Flies when `trigger` is greater than before; the first call only takes note of it.
    void setTrigger(int trigger);
    FloaterFrame frame() const;
    /// Puts it over the middle of the top edge of what it rises from, in the parent's coordinates.
    void placeOver(const QRect& origin);

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    KeyframePlayer m_flight;
};

} // namespace tolvar
