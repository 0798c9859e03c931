#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace tolvar::test {

/// Collects the properties of the remote control that were said to have changed.
class ChangeListener final : public QObject {
    Q_OBJECT

public:
    explicit ChangeListener(QDBusConnection bus);

    /// What was told since the last time, one map for each signal.
    QList<QVariantMap> take();

private Q_SLOTS:
    void changed(const QString& interface, const QVariantMap& values, const QStringList& invalid);

private:
    QList<QVariantMap> m_changes;
};

} // namespace tolvar::test
