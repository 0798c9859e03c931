#pragma once

#include "Extensions/Subscription.h"
#include "Views/Popover/ClosingPress.h"
#include "Views/Shared/FloatingPanel.h"

#include <QRect>

#include <functional>
#include <optional>

class QScreen;

namespace tolvar {

class PanelWindows;
class PointerPresses;

/// The window that opens beside the status item and stays for as long as it is used: a press
/// anywhere else, another window that takes the keyboard, Escape and a click on the item close it.
/// It is as large as its content, or as high as the screen allows, and keeps the content while it
/// is closed.
class PopoverWindow final : public FloatingPanel {
    Q_OBJECT

public:
    /// What it needs of the desktop; all outlive it.
    struct Environment {
        PanelWindows& panels;
        PointerPresses& presses;
        /// Seconds, monotonic.
        std::function<double()> mediaTime;
    };

    /// The window owns the content.
    PopoverWindow(const Environment& environment, QWidget* content);

    /// Closes the popover when it is open, and opens it otherwise: at `anchor`, in device pixels of
    /// the whole desktop, or else where the pointer is. A click whose press has closed it does not
    /// open it again.
    void toggle(const std::optional<QRect>& anchor);
    /// Opens it, if it is not open, and gives it the keyboard in any case.
    void open(const std::optional<QRect>& anchor);
    /// Keeps it beside its anchor, which has moved.
    void follow(const QRect& anchor);

    /// Takes note of whether an input method is composing in here.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void willShow();
    void didShow();
    void didClose();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QRect roomOn(const QScreen& screen) const;
    void place();
    void pressed(const QPoint& position);
    void closeUnlessOurs();

    Environment m_environment;
    /// Device pixels; nothing while it stands where the pointer was.
    std::optional<QRect> m_anchor;
    ClosingPress m_closingPress;
    Subscription m_presses;
    bool m_isComposing = false;
};

} // namespace tolvar
