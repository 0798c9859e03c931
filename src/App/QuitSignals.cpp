#include "App/QuitSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace tolvar {

namespace {

constexpr std::array quitSignals = {SIGTERM, SIGINT, SIGHUP};

/// What a signal handler may touch: nothing but a descriptor to write to.
volatile std::sig_atomic_t eventDescriptor = -1;

extern "C" void noteSignal(int) {
    const int savedError = errno;
    const eventfd_t one = 1;
    static_cast<void>(::write(eventDescriptor, &one, sizeof one));
    errno = savedError;
}

int openEventDescriptor() {
    eventDescriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return eventDescriptor;
}

/// A signal that the parent had ignored, as nohup does, stays ignored.
void handleQuitSignals(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : quitSignals) {
        struct sigaction present = {};
        ::sigaction(number, nullptr, &present);
        if (present.sa_handler != SIG_IGN)
            ::sigaction(number, &action, nullptr);
    }
}

} // namespace

QuitSignals::QuitSignals()
    : m_notifier(openEventDescriptor(), QSocketNotifier::Read) {
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        eventfd_t count = 0;
        ::eventfd_read(eventDescriptor, &count);
        Q_EMIT quitRequested();
    });
    handleQuitSignals(noteSignal);
}

QuitSignals::~QuitSignals() {
    handleQuitSignals(SIG_DFL);
    m_notifier.setEnabled(false);
    ::close(eventDescriptor);
}

} // namespace tolvar
