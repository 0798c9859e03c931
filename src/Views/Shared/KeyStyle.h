#pragma once

#include "Views/Theme/Bevel.h"
#include "Views/Theme/Symbol.h"

#include <QFont>
#include <QMarginsF>

namespace tolvar {

/// The look of a key. Lengths in points.
struct KeyStyle {
    Bevel bevel = Bevel::key;
    Bevel latchedBevel = Bevel::latched;
    double radius = 7;
    QFont font;
    QColor ink;
    QColor latchedInk;
    QColor disabledInk;
    /// Around symbol and text.
    QMarginsF padding{13, 12, 13, 12};
    double symbolSize = 12;
    SymbolWeight symbolWeight = SymbolWeight::regular;
    /// Between symbol and text.
    double spacing = 7;
    /// Whether the trackpad taps when it goes down.
    bool taps = true;

    /// An ordinary key of the panel.
    static KeyStyle standard();
    /// A key that stands on a card.
    static KeyStyle card();
    /// A key on a card that does what cannot be undone.
    static KeyStyle destructive();
    /// The amber key of the main action.
    static KeyStyle primary();
    /// A small key within a row of settings.
    static KeyStyle inlineKey();
    /// A small flat key for secondary actions: it lies in the panel and rises under the pointer.
    static KeyStyle nudge();
};

} // namespace tolvar
