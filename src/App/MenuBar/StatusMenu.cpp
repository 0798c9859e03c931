#include "App/MenuBar/StatusMenu.h"

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

int pausesLeft(const FocusSession& session) {
    return FocusSession::maximumPauseCount - session.pauseCount.value_or(0);
}

StatusMenuEntry pauseEntry(const FocusSession* session) {
    const bool isPaused = session && session->isPaused;
    return {.command = StatusCommand::pauseOrResume,
            .text = isPaused ? u"Resume"_s : u"Pause"_s,
            .isEnabled = isPaused || (session && pausesLeft(*session) > 0),
            .group = StatusMenuEntry::Group::begins};
}

} // namespace

std::vector<StatusMenuEntry> statusMenu(const std::optional<FocusSession>& session,
                                        Seconds remaining, UpdateCheck updateCheck) {
    const bool isRunning = session && session->isActive && remaining > 0;
    const auto begins = StatusMenuEntry::Group::begins;
    return {
        {.command = StatusCommand::open, .text = u"Open Tolvar"_s},
        pauseEntry(isRunning ? &*session : nullptr),
        {.command = StatusCommand::stop, .text = u"Stop"_s, .isEnabled = isRunning},
        // There is no settings window yet.
        {.command = StatusCommand::settings,
         .text = u"Settings…"_s,
         .isEnabled = false,
         .group = begins},
        {.command = StatusCommand::checkForUpdates,
         .text = u"Check for Updates…"_s,
         .isEnabled = updateCheck == UpdateCheck::possible},
        {.command = StatusCommand::quit, .text = u"Quit"_s, .group = begins},
    };
}

} // namespace tolvar
