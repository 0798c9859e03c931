#include "Views/StatusPill/StatusPopups.h"

#include "Views/Shared/DevicePixels.h"

#include <QApplication>
#include <QScreen>
#include <QToolTip>

#include <algorithm>

namespace tolvar {

namespace {

/// Points between an item and its tooltip.
constexpr int toolTipGap = 4;

/// Below the item, or above it in the lower half of the screen; wholly on the screen where it fits.
QPoint placeBeside(const QRect& item, QSize size, int gap) {
    const QScreen* found = QGuiApplication::screenAt(item.center());
    const QScreen* screen = found ? found : QGuiApplication::primaryScreen();
    if (!screen)
        return item.bottomLeft();
    const QRect area = screen->geometry();
    const bool isLow = item.center().y() > area.center().y();
    return {std::max(area.left(), std::min(item.left(), area.right() + 1 - size.width())),
            isLow ? item.top() - gap - size.height() : item.bottom() + 1 + gap};
}

/// What QToolTip shows; null while it shows nothing.
QWidget* toolTipWindow() {
    const auto widgets = QApplication::topLevelWidgets();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [](const QWidget* widget) {
        return widget->inherits("QTipLabel") && widget->isVisible();
    });
    return found != widgets.end() ? *found : nullptr;
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
    m_menu->popup(placeBeside(DevicePixels::toPoints(item), m_menu->sizeHint(), 0));
}

void StatusPopups::showToolTip(const QString& text, const QRect& item) {
    const QRect rect = DevicePixels::toPoints(item);
    QToolTip::showText(rect.bottomLeft(), text);
    // It would stand beside a pointer, and over the panel.
    if (QWidget* window = toolTipWindow())
        window->move(placeBeside(rect, window->size(), toolTipGap));
}

void StatusPopups::hideToolTip() {
    QToolTip::hideText();
}

} // namespace tolvar
