#include "Views/ActiveSession/PauseKeyFace.h"

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

PauseKeyFace PauseKeyFace::of(const FocusSession& session) {
    if (session.isPaused)
        return {u"Resume"_s, Symbol::play, Action::resume, true, 0};
    constexpr qint64 allowed = FocusSession::maximumPauseCount;
    const qint64 left = allowed - session.pauseCount.value_or(0);
    if (left < 1)
        return {u"No pauses left"_s, Symbol::pause, Action::pause, false, 0};
    return {u"Pause, %1 left"_s.arg(left), Symbol::pause, Action::pause, session.isActive,
            static_cast<int>(std::min(left, allowed))};
}

} // namespace tolvar
