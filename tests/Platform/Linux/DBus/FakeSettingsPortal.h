#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>

#include <map>
#include <utility>

namespace tolvar::test {

/// A settings portal whose user sets things by hand. Functions and signals have the names that
/// D-Bus gives them.
class FakeSettingsPortal final : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    /// The first one has no ReadOne.
    enum class Version { one, two };

    /// Answers on `bus`, but is no portal before `appear` is called.
    explicit FakeSettingsPortal(const QDBusConnection& bus);
    ~FakeSettingsPortal() override;
    /// Takes its place on the bus.
    void appear();
    void leave();

    /// A setting is there from now on; nobody is told.
    void put(const QString& group, const QString& key, const QVariant& value);
    /// The user changes a setting; everyone is told.
    void change(const QString& group, const QString& key, const QVariant& value);
    void remove(const QString& group, const QString& key);
    /// Every call is answered with the error of this name from now on; with none when empty.
    void setError(const QString& error) { m_error = error; }
    void setVersion(Version version) { m_version = version; }

    /// How many questions came in so far.
    int questions() const { return m_questions; }
    QString uniqueName() const { return m_bus.baseService(); }

    QDBusVariant Read(const QString& group, const QString& key);
    QDBusVariant ReadOne(const QString& group, const QString& key);

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusVariant answer(const QString& group, const QString& key);

    QDBusConnection m_bus;
    Version m_version = Version::two;
    QString m_error;
    int m_questions = 0;
    std::map<std::pair<QString, QString>, QVariant> m_settings;
};

} // namespace tolvar::test
