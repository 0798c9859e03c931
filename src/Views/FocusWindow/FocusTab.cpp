#include "Views/FocusWindow/FocusTab.h"

namespace tolvar {

using namespace Qt::StringLiterals;

QString title(FocusTab tab) {
    switch (tab) {
    case FocusTab::start:
        return u"Start"_s;
    case FocusTab::presets:
        return u"Presets"_s;
    case FocusTab::history:
        return u"History"_s;
    }
    return {};
}

Symbol symbol(FocusTab tab) {
    switch (tab) {
    case FocusTab::start:
        return Symbol::playCircle;
    case FocusTab::presets:
        return Symbol::bookmark;
    case FocusTab::history:
        return Symbol::clock;
    }
    return Symbol::playCircle;
}

} // namespace tolvar
