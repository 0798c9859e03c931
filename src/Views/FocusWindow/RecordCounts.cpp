#include "Views/FocusWindow/RecordCounts.h"

#include "Models/FocusManager.h"
#include "Views/Shared/Labels.h"

#include <QVBoxLayout>

#include <functional>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

using Make = std::function<EmptyState*()>;

EmptyState* presets(std::size_t count) {
    if (count == 0)
        return new EmptyState(Symbol::bookmarkSlash, u"No presets yet"_s,
                              u"Save any past focus session as a preset from the History tab."_s);
    return new EmptyState(Symbol::bookmark, count == 1 ? u"1 preset"_s : u"%1 presets"_s.arg(count),
                          u"To start one, type “tolvar start GOAL --preset NAME” in a terminal."_s);
}

EmptyState* history(std::size_t count) {
    if (count == 0)
        return new EmptyState(Symbol::clock, u"No sessions yet"_s,
                              u"Start your first focus session to see your history here."_s);
    return new EmptyState(Symbol::clock, count == 1 ? u"1 session"_s : u"%1 sessions"_s.arg(count),
                          u"To read them, type “tolvar history” in a terminal."_s);
}

/// What `make` makes, and what it makes whenever the manager sends `signal`.
QWidget* following(FocusManager& focusManager, void (FocusManager::*signal)(), const Make& make) {
    auto* screen = new QWidget;
    auto* column = new QVBoxLayout(screen);
    column->addWidget(make());
    QObject::connect(&focusManager, signal, screen, [column, make] {
        delete column->takeAt(0)->widget();
        column->addWidget(make());
    });
    return screen;
}

} // namespace

QWidget* makePresetCount(FocusManager& focusManager) {
    return following(focusManager, &FocusManager::savedPresetsChanged,
                     [&focusManager] { return presets(focusManager.savedPresets().size()); });
}

QWidget* makeHistoryCount(FocusManager& focusManager) {
    return following(focusManager, &FocusManager::sessionHistoryChanged,
                     [&focusManager] { return history(focusManager.sessionHistory().size()); });
}

} // namespace tolvar
