#include "Platform/Linux/Audio/PulseServer.h"

#include <gtest/gtest.h>
#include <signal.h>

namespace tolvar::test {

using namespace Qt::StringLiterals;

PulseServer::PulseServer() {
    qputenv("PULSE_SERVER", "unix:" + socket().toUtf8());
    qputenv("PULSE_RUNTIME_PATH", m_folder.path().toUtf8());
    qputenv("PULSE_COOKIE", m_folder.filePath(u"cookie"_s).toUtf8());
    start();
}

PulseServer::~PulseServer() {
    kill();
    for (const char* name : {"PULSE_SERVER", "PULSE_RUNTIME_PATH", "PULSE_COOKIE"})
        qunsetenv(name);
}

QString PulseServer::socket() const {
    return m_folder.filePath(u"native"_s);
}

void PulseServer::start() {
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    m_daemon.start(u"pulseaudio"_s,
                   {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
                    u"--load=module-null-sink"_s,
                    u"--load=module-native-protocol-unix auth-anonymous=1 socket="_s + socket()});
    ASSERT_TRUE(m_daemon.waitForStarted());
    for (int attempt = 0; attempt < 100 && !ask({u"info"_s}).contains(u"Server Name"_s); ++attempt)
        ASSERT_FALSE(m_daemon.waitForFinished(50)) << "pulseaudio ends at once";
}

void PulseServer::kill() {
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PulseServer::hang() {
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP);
}

void PulseServer::wakeUp() {
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT);
}

qsizetype PulseServer::streams() const {
    return ask({u"list"_s, u"short"_s, u"sink-inputs"_s}).count(u'\n');
}

QString PulseServer::ask(const QStringList& words) const {
    QProcess pactl;
    pactl.start(u"pactl"_s, words);
    pactl.waitForFinished();
    return QString::fromUtf8(pactl.readAllStandardOutput());
}

} // namespace tolvar::test
