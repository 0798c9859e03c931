#include "Views/Shared/KeyStyle.h"

#include "Views/Theme/Instrument.h"

namespace tolvar {

namespace Palette = Instrument::Palette;

KeyStyle KeyStyle::standard() {
    return {.font = Instrument::font(12, QFont::Medium, 0.24),
            .ink = Palette::labelSecondary,
            .latchedInk = Palette::label,
            .disabledInk = Palette::labelQuaternary};
}

KeyStyle KeyStyle::card() {
    KeyStyle style = standard();
    style.bevel = Bevel::cardKey;
    style.ink = Palette::label;
    style.padding = {13, 10, 13, 11};
    return style;
}

KeyStyle KeyStyle::destructive() {
    KeyStyle style = card();
    // The red itself is too dark to be read on a key.
    style.ink = style.latchedInk = mixedColor(Palette::stop, Palette::label, 0.35);
    return style;
}

KeyStyle KeyStyle::primary() {
    KeyStyle style = standard();
    style.bevel = Bevel::primary;
    style.latchedBevel = Bevel::primary;
    style.radius = 9;
    style.font = Instrument::font(14, QFont::Medium, 0.28);
    style.ink = style.latchedInk = Palette::amberInk;
    style.disabledInk = mixedColor(Palette::panel, Palette::amber, 0.62);
    style.padding = {16, 14, 16, 14};
    style.symbolSize = 14;
    style.spacing = 8;
    return style;
}

KeyStyle KeyStyle::inlineKey() {
    KeyStyle style = standard();
    style.bevel = Bevel::cardKey;
    style.radius = 6;
    style.font = Instrument::font(11, QFont::Medium, 0.22);
    style.ink = Palette::label;
    style.padding = {10, 5, 10, 6};
    style.symbolSize = 10;
    style.spacing = 5;
    return style;
}

KeyStyle KeyStyle::nudge() {
    KeyStyle style = standard();
    style.bevel.face = Bevel::well.face;
    for (auto& stop : style.bevel.face)
        stop.color = Palette::raisedFaint;
    style.bevel.top = {36, 36, 39};
    style.bevel.bottomWidth = 1;
    style.radius = 6;
    style.font = Instrument::font(11, QFont::Medium, 0.22);
    style.padding = {9, 5, 9, 5};
    style.symbolSize = 11;
    style.spacing = 5;
    return style;
}

} // namespace tolvar
