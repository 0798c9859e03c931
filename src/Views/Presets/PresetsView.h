#pragma once

#include "Models/FocusPreset.h"
#include "Views/Presets/BlockedSummary.h"
#include "Views/Presets/CardScreen.h"

namespace tolvar {

class ApplicationIcons;
class CategoryStore;

/// The presets, oldest first, each to be started with a goal of its own.
class PresetsView final : public CardScreen {
    Q_OBJECT

public:
    /// All outlive the view.
    struct Records {
        CategoryStore& categoryStore;
        ApplicationIcons& icons;
    };

    PresetsView(const Environment& environment, const Records& records, QWidget* parent = nullptr);

private:
    QWidget* makeCard() override;
    void fillCard(QWidget& card, const QUuid& id) override;
    std::vector<SwipeAction> actions(const QUuid& id) override;
    QString cardName(const QUuid& id) const override;
    std::optional<QString> recordName(const QUuid& id) const override;
    void deleteRecord(const QUuid& id) override;
    void startRecord(const QString& goal) override;

    const FocusPreset* find(const QUuid& id) const;
    void select(const QUuid& id);
    void showPresets();

    const ControlContext m_context;
    FocusManager& m_focusManager;
    const Records m_records;
    /// What they block; asked for a name, too.
    mutable BlockedSummaries m_summaries;
    /// The one whose goal is asked for.
    std::optional<FocusPreset> m_selected;
};

} // namespace tolvar
