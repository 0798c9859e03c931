#pragma once

#include "Models/FocusPreset.h"
#include "Views/Presets/BlockedSummaryRow.h"

#include <QString>

namespace tolvar {

class BlockedSummaries;

/// What a preset card says of its preset.
struct PresetCardContent {
    /// On one line.
    QString name;
    BlockedSummaryRow blocked;
    QString duration;

    /// With those of the preset's categories that are among `available`.
    static PresetCardContent of(const FocusPreset& preset, BlockedSummaries& summaries,
                                const std::vector<BlockCategory>& available);

    /// All but the name, in words.
    QString spokenText() const;
};

} // namespace tolvar
