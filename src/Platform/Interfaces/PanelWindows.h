#pragma once

#include <QFlags>
#include <QRect>

namespace tolvar {

/// What a panel of ours is to be beside an ordinary window.
enum class PanelTrait {
    /// Seen on every desktop (workspace) at once.
    onEveryDesktop = 1,
    /// Left out of taskbars and pagers.
    outOfTaskbar = 2,
    /// Above ordinary windows; above one that fills the screen as soon as it is activated.
    aboveOthers = 4,
    /// It has a shadow drawn within it: compositors are to add none.
    ownShadow = 8,
};
Q_DECLARE_FLAGS(PanelTraits, PanelTrait)
Q_DECLARE_OPERATORS_FOR_FLAGS(PanelTraits)

/// What this desktop can be asked for about our own windows, beyond what the toolkit asks for.
class PanelWindows {
public:
    /// The desktop's own id of a window, as the toolkit tells it.
    using NativeWindow = quintptr;

    virtual ~PanelWindows() = default;

    /// Gives a window the traits, beside those that it has. A window that is hidden loses them:
    /// to be called before each time that it is shown.
    virtual void setTraits(NativeWindow window, PanelTraits traits) = 0;
    /// Brings a shown window forward and hands it the keyboard, whoever has it. The toolkit has
    /// sent off its request to show the window by now.
    virtual void activate(NativeWindow window) = 0;
    /// Whether what is behind a window is seen where the window is not opaque.
    virtual bool showsTranslucency() const = 0;
    /// The part of a screen that panels and docks leave free. Both in device pixels of the whole
    /// desktop.
    virtual QRect freeArea(const QRect& screen) const = 0;
};

} // namespace tolvar
