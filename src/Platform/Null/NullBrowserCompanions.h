#pragma once

#include "Platform/Interfaces/BrowserCompanions.h"

namespace tolvar {

/// No browser can be reached here.
class NullBrowserCompanions final : public BrowserCompanions {
public:
    QStringList known() const override { return {}; }
    std::optional<BrowserCompanion> find(const QString&) const override { return std::nullopt; }
    std::vector<BrowserCompanion> found() const override { return {}; }
    std::optional<QString> setUp(const QString&) override {
        return QStringLiteral("browsers cannot be reached here");
    }
    std::optional<QString> remove(const QString&) override { return std::nullopt; }
};

} // namespace tolvar
