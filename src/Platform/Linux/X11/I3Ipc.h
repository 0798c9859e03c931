#pragma once

#include "Platform/Linux/X11/WindowFacts.h"

#include <QByteArray>
#include <QString>

#include <map>
#include <optional>

namespace tolvar {

/// Where and how i3 keeps a window.
struct I3Placement {
    QString workspace;
    bool isSticky = false;

    bool operator==(const I3Placement&) const = default;
};

/// The interprocess interface of i3: questions and commands over a local socket.
class I3Ipc {
public:
    /// `socketPath`: as in the root window's I3_SOCKET_PATH.
    explicit I3Ipc(QString socketPath);

    /// Whether somebody answers there.
    bool isAvailable() const;
    /// Where all windows are; empty when there is no answer.
    std::map<WindowId, I3Placement> placements() const;
    /// Runs commands that are separated by ";", with one update of the screen after the last.
    /// False when there is no answer.
    bool run(const QString& commands) const;

    /// The placements in the answer to GET_TREE.
    static std::map<WindowId, I3Placement> placementsInTree(const QByteArray& json);
    /// The text as one argument of a command.
    static QString quoted(const QString& text);

private:
    enum class Message : std::uint32_t { runCommand = 0, getTree = 4, getVersion = 7 };
    std::optional<QByteArray> request(Message type, const QByteArray& payload) const;

    QString m_socketPath;
};

} // namespace tolvar
