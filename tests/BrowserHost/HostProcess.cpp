#include "BrowserHost/HostProcess.h"

#include "BrowserExtensionIds.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <thread>
#include <utility>
#include <vector>

namespace tolvar::test {

namespace {

constexpr int patienceMilliseconds = 20'000;

bool isReadable(int descriptor, int milliseconds) {
    pollfd watched{descriptor, POLLIN, 0};
    return ::poll(&watched, 1, milliseconds) > 0;
}

[[noreturn]] void execute(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::execv(arguments.front(), arguments.data());
    ::_exit(127);
}

} // namespace

HostProcess::HostProcess(const std::string& runtimeFolder) {
    start(runtimeFolder, {std::string("chrome-extension://") + chromiumExtensionId + "/"});
}

HostProcess::HostProcess(const std::string& runtimeFolder,
                         std::initializer_list<std::string> arguments) {
    start(runtimeFolder, arguments);
}

HostProcess::~HostProcess() {
    kill();
}

void HostProcess::start(const std::string& runtimeFolder,
                        std::initializer_list<std::string> arguments) {
    std::signal(SIGPIPE, SIG_IGN);
    int input[2] = {-1, -1};
    int output[2] = {-1, -1};
    if (::pipe2(input, O_CLOEXEC) != 0 || ::pipe2(output, O_CLOEXEC) != 0)
        std::abort();
    std::vector<std::string> words{TOLVAR_BROWSER_HOST};
    words.insert(words.end(), arguments);
    m_process = ::fork();
    if (m_process == 0) {
        std::signal(SIGPIPE, SIG_DFL);
        ::setenv("XDG_RUNTIME_DIR", runtimeFolder.c_str(), 1);
        ::dup2(input[0], STDIN_FILENO);
        ::dup2(output[1], STDOUT_FILENO);
        execute(std::move(words));
    }
    ::close(input[0]);
    ::close(output[1]);
    m_input = Descriptor(input[1]);
    m_output = Descriptor(output[0]);
}

void HostProcess::say(std::string_view content) {
    const auto length = static_cast<std::uint32_t>(content.size());
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    sayBytes(bytes.append(content));
}

void HostProcess::sayBytes(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(m_input.number(), bytes.data(), bytes.size());
        if (count < 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::optional<std::string> HostProcess::heard() {
    while (true) {
        if (auto frame = m_reader.take())
            return frame;
        if (!isReadable(m_output.number(), patienceMilliseconds) ||
            readOnce(m_output.number(), m_reader) == ReadResult::ended)
            return std::nullopt;
    }
}

std::optional<std::string> HostProcess::heardByNow() {
    if (auto frame = m_reader.take())
        return frame;
    if (isReadable(m_output.number(), 0))
        readOnce(m_output.number(), m_reader);
    return m_reader.take();
}

void HostProcess::hangUp() {
    m_input.reset();
}

void HostProcess::kill() {
    if (m_process < 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(std::exchange(m_process, -1), nullptr, 0);
}

int HostProcess::status() {
    int status = 0;
    ::waitpid(std::exchange(m_process, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string HostProcess::fact(const char* file, const char* name) const {
    std::ifstream facts("/proc/" + std::to_string(m_process) + "/" + file);
    for (std::string word; facts >> word;)
        if (word == name && facts >> word)
            return word;
    return "0";
}

int HostProcess::wakeUps() const {
    return std::stoi(fact("status", "voluntary_ctxt_switches:"));
}

void HostProcess::awaitSleep() const {
    using namespace std::chrono_literals;
    const auto isAsleep = [this] {
        const int before = wakeUps();
        std::this_thread::sleep_for(20ms);
        return fact("status", "State:") == "S" && wakeUps() == before;
    };
    while (!isAsleep()) {
    }
}

} // namespace tolvar::test
