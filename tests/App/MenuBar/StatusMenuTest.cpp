#include "App/MenuBar/StatusMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

/// "Text", with parentheses around what is disabled and a bar before what begins a group.
std::vector<QString> lines(const std::vector<StatusMenuEntry>& menu) {
    std::vector<QString> lines;
    for (const StatusMenuEntry& entry : menu) {
        const QString text = entry.isEnabled ? entry.text : u"(%1)"_s.arg(entry.text);
        lines.push_back(entry.group == StatusMenuEntry::Group::begins ? u"| "_s + text : text);
    }
    return lines;
}

FocusSession runningSession() {
    FocusSession session;
    session.isActive = true;
    return session;
}

TEST(StatusMenu, OffersNothingAboutASessionWhereThereIsNone) {
    EXPECT_THAT(lines(statusMenu({}, 0, UpdateCheck::impossible)),
                ElementsAre(u"Open Tolvar"_s, u"| (Pause)"_s, u"(Stop)"_s, u"| (Settings…)"_s,
                            u"(Check for Updates…)"_s, u"| Quit"_s));
}

TEST(StatusMenu, OffersToPauseAndStopARunningSession) {
    EXPECT_THAT(lines(statusMenu(runningSession(), 10, UpdateCheck::possible)),
                ElementsAre(u"Open Tolvar"_s, u"| Pause"_s, u"Stop"_s, u"| (Settings…)"_s,
                            u"Check for Updates…"_s, u"| Quit"_s));
}

TEST(StatusMenu, OffersToResumeAPausedSessionAlsoInItsLastPause) {
    FocusSession session = runningSession();
    session.isPaused = true;
    session.pauseCount = FocusSession::maximumPauseCount;
    EXPECT_EQ(lines(statusMenu(session, 10, UpdateCheck::impossible))[1], u"| Resume"_s);
}

TEST(StatusMenu, OffersNoPauseWhenNoneIsLeft) {
    FocusSession session = runningSession();
    session.pauseCount = FocusSession::maximumPauseCount;
    EXPECT_EQ(lines(statusMenu(session, 10, UpdateCheck::impossible))[1], u"| (Pause)"_s);
}

TEST(StatusMenu, TakesASessionThatIsOverForNone) {
    FocusSession inactive;
    const auto none = statusMenu({}, 0, UpdateCheck::impossible);
    EXPECT_EQ(statusMenu(inactive, 10, UpdateCheck::impossible), none);
    EXPECT_EQ(statusMenu(runningSession(), 0, UpdateCheck::impossible), none);
}

} // namespace
} // namespace tolvar
