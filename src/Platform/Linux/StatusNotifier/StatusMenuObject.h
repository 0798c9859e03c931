#pragma once

#include "Platform/Interfaces/StatusItem.h"
#include "Platform/Linux/StatusNotifier/StatusNotifierTypes.h"

#include <QDBusVariant>
#include <QObject>

#include <functional>
#include <vector>

namespace tolvar {

/// The menu as its host sees it: com.canonical.dbusmenu. Functions and signals have the names that
/// D-Bus gives them. An entry's number is its place in the menu, counted from 1; a line has the
/// number of the entry below it, and `separatorOffset` more.
class StatusMenuObject final : public QObject {
    Q_OBJECT
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    static constexpr int separatorOffset = 1000;

    /// `chosen` is called, not before the host has its answer, when an entry is clicked.
    explicit StatusMenuObject(std::function<void(StatusCommand)> chosen);
    ~StatusMenuObject() override;

    /// Tells the host what differs.
    void setEntries(const std::vector<StatusMenuEntry>& entries);

    uint version() const { return 3; }
    QString textDirection() const;
    QString status() const { return QStringLiteral("normal"); }
    QStringList iconThemePath() const { return {}; }

    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   tolvar::MenuLayout& layout) const;
    tolvar::MenuItems GetGroupProperties(const QList<int>& ids,
                                         const QStringList& propertyNames) const;
    QDBusVariant GetProperty(int id, const QString& name) const;
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const tolvar::MenuEvents& events);
    bool AboutToShow(int id) const;
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) const;

Q_SIGNALS:
    void ItemsPropertiesUpdated(const tolvar::MenuItems& updatedProps,
                                const tolvar::MenuRemovals& removedProps);
    void LayoutUpdated(uint revision, int parent);

private:
    const MenuItem* find(int id) const;

    std::function<void(StatusCommand)> m_chosen;
    std::vector<StatusMenuEntry> m_entries;
    /// Entries and lines, as they stand.
    MenuItems m_items;
    uint m_revision = 1;
};

} // namespace tolvar
