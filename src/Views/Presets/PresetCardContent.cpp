#include "Views/Presets/PresetCardContent.h"

#include "Extensions/DurationFormatting.h"
#include "Views/Presets/BlockedSummary.h"

#include <QStringList>

namespace tolvar {

using namespace Qt::StringLiterals;

PresetCardContent PresetCardContent::of(const FocusPreset& preset, BlockedSummaries& summaries,
                                        const std::vector<BlockCategory>& available) {
    return {.name = preset.name.simplified(),
            .blocked = BlockedSummaryRow::of(summaries.of(preset.customApps, preset.customWebsites,
                                                          preset.categories(available))),
            .duration =
                isShowable(preset.duration) ? formattedCompact(preset.duration) : QString()};
}

QString PresetCardContent::spokenText() const {
    QStringList parts{duration, blocked.spokenText()};
    parts.removeAll(QString());
    return parts.join(u". "_s);
}

} // namespace tolvar
