#pragma once

#include "BrowserHost/Descriptor.h"

#include <sys/stat.h>

#include <optional>
#include <string>

/// Where the program and the hosts of its browsers meet: a socket in a folder that nobody else can
/// enter. Both sides look for it by the same rule.
namespace tolvar::PrivateFolder {

/// The name of the socket in the folder.
inline constexpr char socketName[] = "browser.sock";

/// "tolvar" in XDG_RUNTIME_DIR; where that is not set, or is no folder in which we may write,
/// "tolvar/browser" in XDG_DATA_HOME (XDG Base Directory Specification). Empty when there is no
/// home either. Whether the folder is to be trusted is for the opening to tell.
std::string path();

/// Makes the folder, and those above it, with mode 0700 where they are absent. What cannot be made
/// is left for the opening to tell.
void make(const std::string& path);

/// The folder, opened for reading; empty, with errno telling why, when it is absent, a symbolic
/// link, or somebody else's (EPERM).
Descriptor open(const std::string& path);

/// Whether the folder is closed to everybody but its owner.
bool isClosed(const Descriptor& folder);

/// The file of that name in the folder, if it is a socket of ours that is closed to others. A
/// symbolic link is none.
std::optional<struct stat> privateSocket(const Descriptor& folder, const char* name);

/// A path to a name in the folder that stays true when the folder is moved, and is short enough for
/// the address of a socket.
std::string pathIn(const Descriptor& folder, const char* name);

/// Whether the process at the other end of a connected local socket is ours.
bool isPeerOurs(int socket);

} // namespace tolvar::PrivateFolder
