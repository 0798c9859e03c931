#pragma once

#include "Extensions/ObserverList.h"
#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Interfaces/StatusItemArt.h"
#include "Platform/Interfaces/StatusItemPopups.h"
#include "Platform/Linux/SystemTray/TrayWindow.h"

#include <QColor>
#include <QTimer>

#include <memory>

namespace tolvar {

/// The status item in an X11 system tray, drawn by ourselves: as wide as it wants to be where the
/// tray grants that, the castle alone where it keeps every icon square. A tooltip tells the rest.
///
/// The window is a plain one of our own connection to the server rather than one of the toolkit:
/// visual and background have to be the tray's, the size is the tray's to decide, and nothing of
/// what the toolkit does for windows of its own (hints for the window manager, focus, activation,
/// input methods) is of use in there.
class SystemTrayItem final : public StatusItem {
public:
    struct Options {
        StatusItemArt art;
        /// Opens menu and tooltip; outlives the item.
        StatusItemPopups& popups;
        /// Device pixels of a point.
        double scale = 1;
    };

    /// In the tray that `connection` knows, now or later.
    SystemTrayItem(std::shared_ptr<TrayConnection> connection, const Options& options);
    ~SystemTrayItem() override;

    void show(const StatusItemContent& content) override;
    int iconOnlyLength() const override;
    double iconWidth() const override { return m_options.art.iconWidth(thickness()); }
    double labelWidth(const QString& label) const override {
        return m_options.art.labelWidth(label, thickness());
    }
    std::optional<QRect> anchor() const override;
    Subscription observe(Observer observer) override {
        return m_observers.add(std::move(observer));
    }

private:
    void enterNewTray();
    void enterTray();
    void leaveTraySoon();
    void tellMovedSoon();
    QSize wantedSize() const;
    double thickness() const;
    QSizeF grantedSize() const;
    bool hasRoomForLabel() const;
    StatusItemContent fitting() const;
    void awaitSize();
    void remindOfSize();
    void measure();
    void paint();
    void hover(bool isInside);
    void showToolTip();
    void click(int button, QPoint place);

    std::shared_ptr<TrayConnection> m_connection;
    Options m_options;
    StatusItemContent m_content;
    std::unique_ptr<TrayWindow> m_window;
    std::optional<QColor> m_offeredInk;
    double m_toldThickness;
    QTimer m_patience;  ///< runs until the tray shows the item
    int m_attempts = 0; ///< to get into this tray
    QTimer m_answer;    ///< runs until the tray ought to have given the size
    int m_reminders = 0;
    QTimer m_rest; ///< runs while the pointer is about to have rested on the item
    bool m_isToolTipShown = false;
    bool m_isMoveUntold = false;
    ObserverList<Observer> m_observers;
    Subscription m_trays;
};

} // namespace tolvar
