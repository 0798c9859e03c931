#pragma once

#include "Platform/Interfaces/PanelWindows.h"

namespace tolvar {

/// A desktop that cannot be asked for anything, and composites, as all do that are no X server.
class NullPanelWindows final : public PanelWindows {
public:
    void setTraits(NativeWindow, PanelTraits) override {}
    void activate(NativeWindow) override {}
    bool showsTranslucency() const override { return true; }
    QRect freeArea(const QRect& screen) const override { return screen; }
};

} // namespace tolvar
