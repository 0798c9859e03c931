#pragma once

#include "Views/Shared/FloatingPanel.h"

namespace tolvar {

class BlockAlertView;

/// The window that a BlockAlertView stands in, in front of other windows.
class BlockAlertPanel final : public FloatingPanel {
    Q_OBJECT

public:
    /// Owns the view, and is as large as it wishes.
    BlockAlertPanel(BlockAlertView* view, Surroundings surroundings);

Q_SIGNALS:
    /// Escape was pressed, or the window manager was asked to close it.
    void cancelled();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
};

} // namespace tolvar
