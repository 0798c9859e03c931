#pragma once

#include "Platform/Linux/StatusNotifier/StatusNotifierTypes.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

namespace tolvar::test {

/// A panel, as far as it talks to one status item on the bus.
class StatusHost final : public QObject {
    Q_OBJECT

public:
    /// `service` is the item's name.
    StatusHost(const QDBusConnection& bus, QString service);

    /// Waits for the answer to a call.
    QDBusMessage callItem(const QString& method, const QVariantList& arguments = {});
    QDBusMessage callMenu(const QString& method, const QVariantList& arguments = {});
    QVariant itemProperty(const QString& name);
    QVariant menuProperty(const QString& name);
    tolvar::MenuLayout menu();
    /// The menu's lines: labels, disabled ones in parentheses, "-" for a line.
    QStringList menuLines();
    /// Clicks the entry with this label.
    void choose(const QString& label);

    /// The item's signals since the last call, as "NAME" or "NAME(arguments)".
    QStringList takeSignals();

private Q_SLOTS:
    void noteIcon() { m_signals += QStringLiteral("NewIcon"); }
    void noteToolTip() { m_signals += QStringLiteral("NewToolTip"); }
    void noteLabel(const QString& label, const QString& guide) {
        m_signals += QStringLiteral("XAyatanaNewLabel(%1, %2)").arg(label, guide);
    }
    void noteLayout(uint, int) { m_signals += QStringLiteral("LayoutUpdated"); }
    void noteProperties(const QDBusMessage& message);

private:
    QDBusMessage call(const QString& path, const QString& interface, const QString& method,
                      const QVariantList& arguments);
    void connectTo(const QString& path, const QString& interface, const QString& signal,
                   const char* slot);

    QDBusConnection m_bus;
    QString m_service;
    QStringList m_signals;
};

} // namespace tolvar::test
