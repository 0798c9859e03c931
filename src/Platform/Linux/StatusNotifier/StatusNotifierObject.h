#pragma once

#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Interfaces/StatusItemArt.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierTypes.h"

#include <QDBusObjectPath>
#include <QObject>

#include <map>
#include <optional>

namespace tolvar {

/// The item as its host sees it: org.kde.StatusNotifierItem. Functions, properties and signals have
/// the names that D-Bus gives them.
class StatusNotifierObject final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconThemePath READ iconThemePath)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(tolvar::StatusIconPixmaps IconPixmap READ iconPixmap)
    Q_PROPERTY(QString IconAccessibleDesc READ iconAccessibleDesc)
    Q_PROPERTY(QString OverlayIconName READ nothing)
    Q_PROPERTY(QString AttentionIconName READ nothing)
    Q_PROPERTY(tolvar::StatusToolTip ToolTip READ toolTip)
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)
    Q_PROPERTY(uint XAyatanaOrderingIndex READ orderingIndex)

public:
    struct Identity {
        QString id;
        QString title;
        /// A folder with icons beside those of the desktop's theme; may be empty.
        QString iconThemePath;
        QDBusObjectPath menu;
    };

    StatusNotifierObject(Identity identity, StatusItemArt art);
    ~StatusNotifierObject() override;

    /// Tells the host what differs. The label and its guide go by themselves; for everything else
    /// the host asks.
    void show(const StatusItemContent& content);

    QString category() const { return QStringLiteral("ApplicationStatus"); }
    QString id() const { return m_identity.id; }
    QString title() const { return m_identity.title; }
    QString status() const { return QStringLiteral("Active"); }
    int windowId() const { return 0; }
    QString iconThemePath() const { return m_identity.iconThemePath; }
    QDBusObjectPath menu() const { return m_identity.menu; }
    bool itemIsMenu() const { return false; }
    QString iconName() const;
    StatusIconPixmaps iconPixmap() const;
    QString iconAccessibleDesc() const { return m_content.accessibleLabel; }
    QString nothing() const { return {}; }
    StatusToolTip toolTip() const { return {{}, {}, m_content.toolTip, {}}; }
    QString label() const { return m_content.isLabelHidden ? QString() : m_content.label; }
    /// The widest text of the same form, so that the host keeps as much room for every second.
    QString labelGuide() const;
    uint orderingIndex() const { return 0; }

    void Activate(int x, int y) { Q_EMIT activated(QPoint(x, y)); }
    void SecondaryActivate(int x, int y) { Q_EMIT activated(QPoint(x, y)); }
    void XAyatanaSecondaryActivate(uint) { Q_EMIT activated(std::nullopt); }
    void ContextMenu(int x, int y) { Q_EMIT menuWanted(QPoint(x, y)); }
    void Scroll(int, const QString&) {}

Q_SIGNALS:
    void NewTitle();
    void NewIcon();
    void NewAttentionIcon();
    void NewOverlayIcon();
    void NewToolTip();
    void NewStatus(const QString& status);
    void XAyatanaNewLabel(const QString& label, const QString& guide);

    void activated(std::optional<QPoint> claimed);
    void menuWanted(QPoint place);

private:
    int step() const;

    Identity m_identity;
    StatusItemArt m_art;
    StatusItemContent m_content;
    /// By step; drawn when first asked for, for a pulse asks again and again.
    mutable std::map<int, StatusIconPixmaps> m_pixmaps;
};

} // namespace tolvar
