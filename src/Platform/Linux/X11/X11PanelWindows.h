#pragma once

#include "Platform/Interfaces/PanelWindows.h"

#include <memory>

namespace tolvar {

class XConnection;

/// Our own windows on an X11 desktop, by the Extended Window Manager Hints.
class X11PanelWindows final : public PanelWindows {
public:
    /// Connects to the X server of this session; null when there is none.
    static std::unique_ptr<X11PanelWindows> create();
    ~X11PanelWindows() override;

    void setTraits(NativeWindow window, PanelTraits traits) override;
    void activate(NativeWindow window) override;
    bool showsTranslucency() const override;
    QRect freeArea(const QRect& screen) const override;

private:
    explicit X11PanelWindows(std::unique_ptr<XConnection> connection);

    std::unique_ptr<XConnection> m_connection;
};

} // namespace tolvar
