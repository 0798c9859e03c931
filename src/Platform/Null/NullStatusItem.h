#pragma once

#include "Platform/Interfaces/StatusItem.h"

namespace tolvar {

/// A desktop without any place for a status item.
class NullStatusItem final : public StatusItem {
public:
    void show(const StatusItemContent&) override {}
    int iconOnlyLength() const override { return 0; }
    double iconWidth() const override { return 0; }
    double labelWidth(const QString&) const override { return 0; }
    std::optional<QRect> anchor() const override { return std::nullopt; }
    Subscription observe(Observer) override { return {}; }
};

} // namespace tolvar
