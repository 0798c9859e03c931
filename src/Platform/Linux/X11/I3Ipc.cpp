#include "Platform/Linux/X11/I3Ipc.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

constexpr char magic[] = {'i', '3', '-', 'i', 'p', 'c'};
/// No answer is this long; one that says so is not from i3.
constexpr std::uint32_t maximumAnswer = 64U << 20;
constexpr timeval timeout{0, 300'000};

/// What stands before each message, in the machine's byte order.
struct [[gnu::packed]] Header {
    char magic[6];
    std::uint32_t length;
    std::uint32_t type;
};

class LocalSocket {
public:
    explicit LocalSocket(const QByteArray& path)
        : m_descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const bool fits = path.size() < static_cast<qsizetype>(sizeof address.sun_path);
        if (fits)
            std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
        setsockopt(m_descriptor, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
        setsockopt(m_descriptor, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout);
        m_isConnected = fits && connect(m_descriptor, reinterpret_cast<const sockaddr*>(&address),
                                        sizeof address) == 0;
    }
    ~LocalSocket() { close(m_descriptor); }
    LocalSocket(const LocalSocket&) = delete;
    LocalSocket& operator=(const LocalSocket&) = delete;

    bool isConnected() const { return m_isConnected; }

    bool write(QByteArray bytes) const {
        while (!bytes.isEmpty()) {
            const ssize_t written = send(m_descriptor, bytes.constData(),
                                         static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
            if (written <= 0)
                return false;
            bytes.remove(0, written);
        }
        return true;
    }

    bool read(char* bytes, std::size_t count) const {
        while (count > 0) {
            const ssize_t got = recv(m_descriptor, bytes, count, 0);
            if (got <= 0)
                return false;
            bytes += got;
            count -= static_cast<std::size_t>(got);
        }
        return true;
    }

private:
    int m_descriptor;
    bool m_isConnected = false;
};

void collect(const QJsonObject& node, const QString& workspace,
             std::map<WindowId, I3Placement>& placements) {
    const bool isWorkspace = node["type"_L1] == "workspace"_L1;
    const QString place = isWorkspace ? node["name"_L1].toString() : workspace;
    if (const QJsonValue window = node["window"_L1]; window.isDouble())
        placements[static_cast<WindowId>(window.toInteger())] = {place, node["sticky"_L1].toBool()};
    for (const auto& children : {"nodes"_L1, "floating_nodes"_L1})
        for (const auto& child : node[children].toArray())
            collect(child.toObject(), place, placements);
}

} // namespace

I3Ipc::I3Ipc(QString socketPath)
    : m_socketPath(std::move(socketPath)) {}

bool I3Ipc::isAvailable() const {
    return request(Message::getVersion, {}).has_value();
}

std::map<WindowId, I3Placement> I3Ipc::placements() const {
    return placementsInTree(request(Message::getTree, {}).value_or(QByteArray()));
}

bool I3Ipc::run(const QString& commands) const {
    return request(Message::runCommand, commands.toUtf8()).has_value();
}

std::map<WindowId, I3Placement> I3Ipc::placementsInTree(const QByteArray& json) {
    std::map<WindowId, I3Placement> placements;
    collect(QJsonDocument::fromJson(json).object(), {}, placements);
    return placements;
}

QString I3Ipc::quoted(const QString& text) {
    QString escaped = text;
    escaped.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    return u'"' + escaped + u'"';
}

std::optional<QByteArray> I3Ipc::request(Message type, const QByteArray& payload) const {
    const LocalSocket socket(QFile::encodeName(m_socketPath));
    if (!socket.isConnected())
        return std::nullopt;
    Header header{};
    std::copy(std::begin(magic), std::end(magic), header.magic);
    header.length = static_cast<std::uint32_t>(payload.size());
    header.type = static_cast<std::uint32_t>(type);
    if (!socket.write(QByteArray(reinterpret_cast<const char*>(&header), sizeof header) + payload))
        return std::nullopt;
    if (!socket.read(reinterpret_cast<char*>(&header), sizeof header) ||
        std::memcmp(header.magic, magic, sizeof magic) != 0 || header.length > maximumAnswer)
        return std::nullopt;
    QByteArray answer(static_cast<qsizetype>(header.length), Qt::Uninitialized);
    return socket.read(answer.data(), header.length) ? std::optional(answer) : std::nullopt;
}

} // namespace tolvar
