#include "BrowserHost/Host.h"

#include "BrowserHost/Commands.h"

#include <fcntl.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace tolvar {

namespace {

constexpr int endOfStream = POLLHUP | POLLERR | POLLNVAL;

short eventsIf(bool condition, short events) {
    return condition ? events : short{0};
}

} // namespace

Host::Host(std::string browser, AppFinder finder, int input, int output)
    : m_browser(std::move(browser))
    , m_finder(std::move(finder))
    , m_input(input)
    , m_output(output) {
    ::fcntl(m_output, F_SETFL, ::fcntl(m_output, F_GETFL) | O_NONBLOCK);
}

Host::Outcome Host::run() {
    do {
        if (!m_app && (m_app = m_finder.connect()))
            greet();
    } while (wait() == Step::goOn);
    return m_outcome;
}

void Host::greet() {
    m_toApp.send(R"({"browser":")" + m_browser + R"("})");
}

/// Milliseconds for poll(2): for ever, unless the finder wants to try again.
int Host::waitingTime() const {
    using std::chrono::milliseconds;
    if (m_app || !m_finder.retryTime())
        return -1;
    const auto rest =
        std::chrono::ceil<milliseconds>(*m_finder.retryTime() - AppFinder::Clock::now());
    return static_cast<int>(std::max(rest, milliseconds(0)).count());
}

Host::Step Host::wait() {
    if (!m_app && m_finder.watch() < 0)
        return end(Outcome::nowhereToWait);
    const int app = m_app ? m_app.number() : m_finder.watch();
    const short appEvents = eventsIf(!m_app || m_toBrowser.isIdle(), POLLIN);
    std::array<pollfd, 3> watched = {{
        {m_input, POLLIN, 0},
        {m_output, eventsIf(!m_toBrowser.isIdle(), POLLOUT), 0},
        {app, static_cast<short>(appEvents | eventsIf(!m_toApp.isIdle(), POLLOUT)), 0},
    }};
    if (::poll(watched.data(), watched.size(), waitingTime()) < 0)
        return Step::goOn;
    if (watched[0].revents != 0 && hearBrowser() == Step::end)
        return Step::end;
    if (watched[1].revents != 0 && speakToBrowser(watched[1].revents) == Step::end)
        return Step::end;
    if (m_app && watched[2].revents != 0)
        hearApp(watched[2].revents);
    return Step::goOn;
}

Host::Step Host::hearBrowser() {
    if (readOnce(m_input, m_fromBrowser) == ReadResult::ended)
        return end(Outcome::browserLeft);
    while (const auto frame = m_fromBrowser.take())
        if (m_app)
            m_toApp.send(*frame);
    if (m_fromBrowser.isBroken())
        return end(Outcome::wrongFrame);
    if (m_app)
        speakToApp();
    return Step::goOn;
}

Host::Step Host::speakToBrowser(int events) {
    if ((events & endOfStream) != 0 || !m_toBrowser.flush(m_output))
        return end(Outcome::browserLeft);
    relayCommands();
    return Step::goOn;
}

/// Commands are read only while the browser takes them, so that none have to be kept here.
void Host::hearApp(int events) {
    if ((events & POLLIN) != 0) {
        if (readOnce(m_app.number(), m_fromApp) == ReadResult::ended)
            return leaveApp();
        relayCommands();
    } else if ((events & endOfStream) != 0) {
        return leaveApp();
    }
    if (m_app)
        speakToApp();
}

void Host::relayCommands() {
    while (m_toBrowser.isIdle()) {
        const auto frame = m_fromApp.take();
        if (!frame)
            break;
        if (!isPermittedCommand(*frame))
            return leaveApp();
        m_toBrowser.send(*frame);
        m_toBrowser.flush(m_output);
    }
    if (m_fromApp.isBroken())
        leaveApp();
}

void Host::speakToApp() {
    if (!m_toApp.flush(m_app.number()))
        leaveApp();
}

void Host::leaveApp() {
    m_app.reset();
    m_fromApp = {};
    m_toApp = {};
    m_finder.noteEnd();
}

Host::Step Host::end(Outcome outcome) {
    m_outcome = outcome;
    return Step::end;
}

} // namespace tolvar
