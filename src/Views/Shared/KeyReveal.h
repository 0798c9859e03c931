#pragma once

#include <QGraphicsEffect>

namespace tolvar {

/// Lets a widget come out from behind something: it grows and brightens on the way.
class KeyReveal final : public QGraphicsEffect {
    Q_OBJECT

public:
    /// `owner` is the widget, which owns the effect.
    explicit KeyReveal(QWidget& owner);

    /// 0, not yet there, to 1, there: then the widget paints itself without a way round.
    void setProgress(double progress);

protected:
    void draw(QPainter* painter) override;

private:
    double m_progress = 1;
};

} // namespace tolvar
