#include "App/Remote/ChangeListener.h"

#include "App/Protocol/RemoteNames.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <utility>

namespace tolvar::test {

using namespace Qt::StringLiterals;

ChangeListener::ChangeListener(QDBusConnection bus) {
    bus.connect(RemoteNames::service, RemoteNames::objectPath, u"org.freedesktop.DBus.Properties"_s,
                u"PropertiesChanged"_s, this, SLOT(changed(QString, QVariantMap, QStringList)));
}

QList<QVariantMap> ChangeListener::take() {
    return std::exchange(m_changes, {});
}

void ChangeListener::changed(const QString& interface, const QVariantMap& values,
                             const QStringList& invalid) {
    EXPECT_EQ(interface, RemoteNames::controlInterface);
    EXPECT_TRUE(invalid.isEmpty());
    m_changes.append(values);
}

} // namespace tolvar::test
