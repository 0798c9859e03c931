#pragma once

#include <QByteArray>
#include <QProcess>

namespace tolvar::test {

/// An X server without a window manager, which DISPLAY names while it lives.
class PrivateServer {
public:
    PrivateServer();
    ~PrivateServer();
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;

    void end();

private:
    QProcess m_server;
    QByteArray m_formerDisplay;
};

} // namespace tolvar::test
