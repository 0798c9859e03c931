#include "Models/LoginItem.h"

namespace tolvar {

bool LoginItem::isOn(LoginItemStatus status) {
    return status == LoginItemStatus::enabled || status == LoginItemStatus::requiresApproval;
}

std::optional<QString> LoginItem::setEnabled(LoginItemService& service, bool enabled) {
    if (isOn(service.status()) == enabled)
        return std::nullopt;
    return enabled ? service.registerItem() : service.unregisterItem();
}

} // namespace tolvar
