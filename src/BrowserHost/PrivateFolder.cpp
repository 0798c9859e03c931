#include "BrowserHost/PrivateFolder.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tolvar::PrivateFolder {

namespace {

constexpr mode_t others = S_IRWXG | S_IRWXO;

/// The folder that an environment variable names; relative ones are invalid and count as unset.
std::string folderIn(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : "";
}

bool isUsable(const std::string& folder) {
    struct stat facts = {};
    return ::stat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
           ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string dataHome() {
    if (std::string data = folderIn("XDG_DATA_HOME"); !data.empty())
        return data;
    const std::string home = folderIn("HOME");
    return home.empty() ? "" : home + "/.local/share";
}

} // namespace

std::string path() {
    if (const std::string runtime = folderIn("XDG_RUNTIME_DIR"); isUsable(runtime))
        return runtime + "/tolvar";
    const std::string data = dataHome();
    return data.empty() ? "" : data + "/tolvar/browser";
}

void make(const std::string& path) {
    if (path.empty() || ::mkdir(path.c_str(), S_IRWXU) == 0 || errno != ENOENT)
        return;
    make(path.substr(0, path.rfind('/')));
    ::mkdir(path.c_str(), S_IRWXU);
}

Descriptor open(const std::string& path) {
    Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts = {};
    if (folder && ::fstat(folder.number(), &facts) == 0 && facts.st_uid != ::geteuid()) {
        folder.reset();
        errno = EPERM;
    }
    return folder;
}

bool isClosed(const Descriptor& folder) {
    struct stat facts = {};
    return ::fstat(folder.number(), &facts) == 0 && (facts.st_mode & others) == 0;
}

std::optional<struct stat> privateSocket(const Descriptor& folder, const char* name) {
    struct stat facts = {};
    const bool isPrivate = ::fstatat(folder.number(), name, &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
                           S_ISSOCK(facts.st_mode) && facts.st_uid == ::geteuid() &&
                           (facts.st_mode & others) == 0;
    return isPrivate ? std::optional(facts) : std::nullopt;
}

std::string pathIn(const Descriptor& folder, const char* name) {
    return "/proc/self/fd/" + std::to_string(folder.number()) + "/" + name;
}

bool isPeerOurs(int socket) {
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

} // namespace tolvar::PrivateFolder
