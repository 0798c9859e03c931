#include "Views/StatusPill/StatusPopups.h"

#include "Views/Shared/DevicePixels.h"

#include <QGuiApplication>
#include <QScreen>
#include <QToolTip>

namespace tolvar {

namespace {

/// Below the item, or above it in the lower half of the screen.
QPoint placeBeside(const QRect& item, QSize menu) {
    const QScreen* screen = QGuiApplication::screenAt(item.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const bool isLow = screen && item.center().y() > screen->geometry().center().y();
    return {item.left(), isLow ? item.top() - menu.height() : item.bottom() + 1};
}

} // namespace

StatusPopups::StatusPopups() = default;
StatusPopups::~StatusPopups() = default;

void StatusPopups::showMenu(const std::vector<StatusMenuEntry>& entries, const QRect& item,
                            std::function<void(StatusCommand)> chosen) {
    m_menu = std::make_unique<QMenu>();
    for (const StatusMenuEntry& entry : entries) {
        if (entry.group == StatusMenuEntry::Group::begins)
            m_menu->addSeparator();
        QAction* action = m_menu->addAction(entry.text);
        action->setEnabled(entry.isEnabled);
        QObject::connect(action, &QAction::triggered, action,
                         [chosen, command = entry.command] { chosen(command); });
    }
    m_menu->popup(placeBeside(DevicePixels::toPoints(item), m_menu->sizeHint()));
}

void StatusPopups::showToolTip(const QString& text, const QRect& item) {
    const QRect rect = DevicePixels::toPoints(item);
    QToolTip::showText(rect.bottomLeft(), text);
}

void StatusPopups::hideToolTip() {
    QToolTip::hideText();
}

} // namespace tolvar
