#pragma once

#include <QColor>
#include <QWidget>

namespace tolvar {

/// The castle by itself, in one colour. To assistive technology it is a picture, once it has a
/// name; without one it is left out.
class CastleView final : public QWidget {
    Q_OBJECT

public:
    /// `side` in points.
    CastleView(int side, const QColor& color, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QColor m_color;
};

} // namespace tolvar
