#include "Views/Presets/PresetsView.h"

#include "Models/CategoryStore.h"
#include "Models/FocusManager.h"
#include "Views/Presets/CardLook.h"
#include "Views/Presets/PresetCard.h"

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

CardList::Style listStyle() {
    return {.cardHeight = PresetCard::fixedHeight,
            .swipe = {.keySize = 56, .rowRadius = cardLook.radius}};
}

CardScreen::Texts texts() {
    return {.emptySymbol = Symbol::bookmarkSlash,
            .emptyTitle = u"No presets yet"_s,
            .emptyMessage = u"Save any past focus session as a preset from the History tab."_s,
            .deleteTitle = u"Delete Preset?"_s,
            .deleteMessage = u"This will permanently delete “%1”."_s};
}

} // namespace

PresetsView::PresetsView(const Environment& environment, const Records& records, QWidget* parent)
    : CardScreen(environment, listStyle(), texts(), parent)
    , m_context(environment.context)
    , m_focusManager(environment.focusManager)
    , m_records(records) {
    list().setAccessibleName(u"Presets"_s);
    connect(&m_focusManager, &FocusManager::savedPresetsChanged, this, &PresetsView::showPresets);
    connect(&records.categoryStore, &CategoryStore::categoriesChanged, &list(), &CardList::refresh);
    showPresets();
}

void PresetsView::showPresets() {
    std::vector<QUuid> ids;
    for (const FocusPreset& preset : m_focusManager.savedPresets())
        ids.push_back(preset.id);
    setRecords(std::move(ids));
}

const FocusPreset* PresetsView::find(const QUuid& id) const {
    const auto& presets = m_focusManager.savedPresets();
    const auto found = std::ranges::find(presets, id, &FocusPreset::id);
    return found == presets.end() ? nullptr : &*found;
}

QWidget* PresetsView::makeCard() {
    auto* card = new PresetCard(m_context, m_records.icons);
    connect(card, &PresetCard::selected, this, &PresetsView::select);
    return card;
}

void PresetsView::fillCard(QWidget& card, const QUuid& id) {
    if (const FocusPreset* preset = find(id))
        static_cast<PresetCard&>(card).setContent(
            PresetCardContent::of(*preset, m_summaries, m_records.categoryStore.categories()), id);
}

std::vector<SwipeAction> PresetsView::actions(const QUuid& id) {
    return {deletion(id)};
}

QString PresetsView::cardName(const QUuid& id) const {
    const FocusPreset* preset = find(id);
    if (!preset)
        return {};
    const PresetCardContent content =
        PresetCardContent::of(*preset, m_summaries, m_records.categoryStore.categories());
    return u"%1. %2"_s.arg(content.name, content.spokenText());
}

std::optional<QString> PresetsView::recordName(const QUuid& id) const {
    const FocusPreset* preset = find(id);
    return preset ? std::optional(preset->name) : std::nullopt;
}

/// A copy: the preset may be deleted while its goal is being written, and starts all the same.
void PresetsView::select(const QUuid& id) {
    const FocusPreset* preset = find(id);
    if (!preset)
        return;
    m_selected = *preset;
    askForGoal(preset->name, preset->duration);
}

void PresetsView::startRecord(const QString& goal) {
    m_focusManager.startSession(m_selected->session(goal, m_records.categoryStore.categories()));
}

void PresetsView::deleteRecord(const QUuid& id) {
    if (const FocusPreset* preset = find(id))
        m_focusManager.deletePreset(*preset);
}

} // namespace tolvar
