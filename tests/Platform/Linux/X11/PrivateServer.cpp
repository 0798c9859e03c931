#include "Platform/Linux/X11/PrivateServer.h"

namespace tolvar::test {

using namespace Qt::StringLiterals;

PrivateServer::PrivateServer()
    : m_formerDisplay(qgetenv("DISPLAY")) {
    m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s, u"-screen"_s,
                               u"0"_s, u"800x600x24"_s});
    while (!m_server.canReadLine() && m_server.waitForReadyRead())
        continue;
    qputenv("DISPLAY", ':' + m_server.readLine().trimmed());
}

PrivateServer::~PrivateServer() {
    end();
    qputenv("DISPLAY", m_formerDisplay);
}

void PrivateServer::end() {
    m_server.kill();
    m_server.waitForFinished();
}

} // namespace tolvar::test
