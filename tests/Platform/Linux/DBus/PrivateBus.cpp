#include "Platform/Linux/DBus/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QUuid>

#include <stdexcept>

namespace tolvar::test {

namespace {

using namespace Qt::StringLiterals;

const QString configuration =
    uR"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <servicedir>%1/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
    %2
  </policy>
</busconfig>
)"_s;

} // namespace

PrivateBus::PrivateBus(const QString& deniedService) {
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    m_daemon.start(u"dbus-daemon"_s, {u"--nofork"_s, u"--print-address"_s,
                                      u"--config-file="_s + writeConfiguration(deniedService)});
    if (!m_daemon.waitForReadyRead())
        throw std::runtime_error("dbus-daemon does not start");
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
}

PrivateBus::~PrivateBus() {
    for (const QString& name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    kill();
}

QDBusConnection PrivateBus::connect() {
    m_connections.append(QUuid::createUuid().toString());
    return QDBusConnection::connectToBus(m_address, m_connections.last());
}

void PrivateBus::offerService(const QString& service, const QString& command) {
    QFile file(m_folder.filePath(u"services/%1.service"_s.arg(service)));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("no place for a service of the bus");
    file.write(u"[D-BUS Service]\nName=%1\nExec=%2\n"_s.arg(service, command).toUtf8());
    file.close();
    connect().interface()->call(u"ReloadConfig"_s);
}

void PrivateBus::kill() {
    m_daemon.kill();
    m_daemon.waitForFinished();
}

QString PrivateBus::writeConfiguration(const QString& deniedService) const {
    const QString rule = deniedService.isEmpty()
                             ? QString()
                             : u"<deny send_destination=\"%1\"/>"_s.arg(deniedService);
    QDir(m_folder.path()).mkdir(u"services"_s);
    QFile file(m_folder.filePath(u"bus.conf"_s));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("no place for the bus's configuration");
    file.write(configuration.arg(m_folder.path(), rule).toUtf8());
    return file.fileName();
}

bool eventually(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10000);
}

} // namespace tolvar::test
