#pragma once

#include "Platform/Interfaces/IconThemeSettings.h"

namespace tolvar {

/// Nothing is known of the desktop's icons.
class NullIconThemeSettings final : public IconThemeSettings {
public:
    QString themeName() const override { return {}; }
    QStringList themeFolders() const override { return {}; }
};

} // namespace tolvar
