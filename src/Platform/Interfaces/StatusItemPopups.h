#pragma once

#include "Platform/Interfaces/StatusItem.h"

#include <functional>
#include <vector>

namespace tolvar {

/// What opens beside a status item whose host opens nothing itself. Places are device pixels of the
/// root window.
class StatusItemPopups {
public:
    virtual ~StatusItemPopups() = default;

    /// Opens the menu beside `item`; `chosen` is called when an entry is chosen, if ever,
    /// which may be after the item has gone.
    virtual void showMenu(const std::vector<StatusMenuEntry>& entries, const QRect& item,
                          std::function<void(StatusCommand)> chosen) = 0;
    /// Opens the tooltip, or changes its text.
    virtual void showToolTip(const QString& text, const QRect& item) = 0;
    virtual void hideToolTip() = 0;
};

} // namespace tolvar
