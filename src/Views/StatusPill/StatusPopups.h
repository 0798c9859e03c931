#pragma once

#include "Platform/Interfaces/StatusItemPopups.h"

#include <QMenu>

#include <memory>

namespace tolvar {

/// The menu and the tooltip of a status item that we show ourselves. One menu at a time.
class StatusPopups final : public StatusItemPopups {
public:
    StatusPopups();
    ~StatusPopups() override;

    void showMenu(const std::vector<StatusMenuEntry>& entries, const QRect& item,
                  std::function<void(StatusCommand)> chosen) override;
    void showToolTip(const QString& text, const QRect& item) override;
    void hideToolTip() override;

    /// The menu that is or was last open; null before the first.
    QMenu* menu() const { return m_menu.get(); }

private:
    std::unique_ptr<QMenu> m_menu;
};

} // namespace tolvar
