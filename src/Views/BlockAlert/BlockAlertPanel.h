#pragma once

#include <QWidget>

namespace tolvar {

class BlockAlertView;

/// The window without a frame that a BlockAlertView stands in, in front of other windows.
class BlockAlertPanel final : public QWidget {
    Q_OBJECT

public:
    /// What lies around the card: a soft shadow through which the desktop is seen, or nothing,
    /// where nothing can be seen through windows; the corners are then cut out of the window.
    enum class Surroundings { shadow, none };

    /// Owns the view, and is as large as it wishes.
    BlockAlertPanel(BlockAlertView* view, Surroundings surroundings);

    /// Where the card stands within the window.
    QRect card() const;

Q_SIGNALS:
    /// Escape was pressed, or the window manager was asked to close it.
    void cancelled();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const Surroundings m_surroundings;
};

} // namespace tolvar
