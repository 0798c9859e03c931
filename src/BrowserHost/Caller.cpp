#include "BrowserHost/Caller.h"

#include "BrowserExtensionIds.h"
#include "BrowserHost/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>

namespace tolvar::Caller {

namespace {

constexpr std::size_t longestName = 64;
/// What the kernel adds when the program was replaced by a newer one while it runs.
constexpr std::string_view replaced = " (deleted)";

std::string executable(const std::string& process) {
    std::array<char, PATH_MAX> path;
    const ssize_t size =
        ::readlink(("/proc/" + process + "/exe").c_str(), path.data(), path.size());
    std::string name(path.data(), size < 0 ? 0 : static_cast<std::size_t>(size));
    if (name.ends_with(replaced))
        name.resize(name.size() - replaced.size());
    return name.substr(name.rfind('/') + 1);
}

/// What the process calls itself, which may be read of every process.
std::string calledName(const std::string& process) {
    const Descriptor file(::open(("/proc/" + process + "/comm").c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, longestName> name;
    const ssize_t size = ::read(file.number(), name.data(), name.size());
    return {name.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
}

bool isOrdinary(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') ||
           std::string_view("._+-").find(letter) != std::string_view::npos;
}

} // namespace

bool isOurExtension(const std::vector<std::string_view>& arguments) {
    if (arguments.empty())
        return false;
    if (arguments[0] == std::string("chrome-extension://") + chromiumExtensionId + "/")
        return true;
    return arguments.size() == 2 && arguments[0].starts_with('/') &&
           arguments[1] == firefoxExtensionId;
}

std::string browserName(int process) {
    const std::string number = std::to_string(process);
    std::string name = executable(number);
    if (name.empty())
        name = calledName(number);
    std::erase_if(name, [](char letter) { return !isOrdinary(letter); });
    name.resize(std::min(name.size(), longestName));
    return name.empty() ? "browser" : name;
}

} // namespace tolvar::Caller
