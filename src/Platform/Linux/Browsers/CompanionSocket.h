#pragma once

#include "BrowserHost/Descriptor.h"

#include <QString>

#include <string>
#include <variant>

namespace tolvar {

/// The socket at which the companions of browsers are awaited. The folder is closed to others, the
/// socket can be seen only once it is ready, and it is gone when this is.
///
/// The folder is locked meanwhile: a socket without a lock is what a dead program left behind, and
/// is replaced; with one, it belongs to another program, and is left alone.
class CompanionSocket {
public:
    /// Listens in a folder, which is made where it is absent, or tells why that is not possible.
    static std::variant<CompanionSocket, QString> listen(const std::string& folderPath);
    ~CompanionSocket();
    CompanionSocket(CompanionSocket&&) = default;
    CompanionSocket& operator=(CompanionSocket&&) = delete;

    /// Readable while somebody waits to be let in.
    int descriptor() const { return m_socket.number(); }
    /// Lets the next one in; empty when nobody waits.
    Descriptor accept() const;

private:
    CompanionSocket(Descriptor folder, Descriptor socket);

    Descriptor m_folder;
    Descriptor m_socket;
};

} // namespace tolvar
