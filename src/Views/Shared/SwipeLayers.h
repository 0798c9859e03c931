#pragma once

#include <QWidget>

#include <functional>

namespace tolvar {

/// Lies unseen over a row that is open: a click on it closes the row and goes no further.
class ClosingLayer final : public QWidget {
    Q_OBJECT

public:
    ClosingLayer(std::function<void()> tapped, QWidget* parent);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    const std::function<void()> m_tapped;
};

/// Veils the leading edge of a row that slides beyond it.
class SlideFade final : public QWidget {
    Q_OBJECT

public:
    static constexpr int width = 28;

    explicit SlideFade(QWidget* parent);

    /// How far the row is aside, 0 to 1; nothing is veiled at 0.
    void setAmount(double amount);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double m_amount = 0;
};

} // namespace tolvar
