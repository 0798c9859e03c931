#include "Support/SampleHistory.h"

#include <array>
#include <random>

namespace tolvar::test {

namespace {

using namespace Qt::StringLiterals;

/// The same numbers on every machine, which the standard's distributions do not promise.
class Dice {
public:
    quint32 below(quint32 limit) { return m_engine() % limit; }
    bool oneIn(quint32 chances) { return below(chances) == 0; }
    Seconds secondsBelow(quint32 limit) { return below(limit * 1000) / 1000.0; }
    template<typename List>
    const auto& oneOf(const List& list) {
        return list[below(static_cast<quint32>(std::size(list)))];
    }
    QUuid uuid() {
        const auto bits = [this] { return m_engine(); };
        const quint32 first = bits();
        const quint32 middle = bits();
        std::array<uchar, 8> rest{};
        for (auto& byte : rest)
            byte = static_cast<uchar>(bits());
        return {first,
                static_cast<ushort>(middle),
                static_cast<ushort>(middle >> 16),
                rest[0],
                rest[1],
                rest[2],
                rest[3],
                rest[4],
                rest[5],
                rest[6],
                rest[7]};
    }

private:
    std::mt19937 m_engine{20010101};
};

const std::array goals = {
    u"Write the quarterly report"_s,
    u"Prüfung der Übersetzung"_s,
    u"Read chapter"_s,
    u"Plan the \"big\" release / part"_s,
    u"Deep work 🏰"_s,
    u"論文を読む"_s,
    u"Answer mail"_s,
    u""_s,
};
const std::array apps = {u"Firefox"_s, u"Thunderbird"_s, u"Slack"_s, u"LibreOffice Writer"_s,
                         u"Dateien"_s};
const std::array websites = {u"news.ycombinator.com"_s, u"example.com"_s, u"lobste.rs"_s,
                             u"xn--mnchen-3ya.de"_s};
constexpr std::array<Seconds, 5> durations = {900, 1500, 2700, 3600, 5400};

void chooseBlocks(FocusSession& session, Dice& dice) {
    const auto& categories = BlockCategory::defaults();
    const auto first = dice.below(6);
    for (quint32 i = 0; i < 1 + dice.below(3); ++i)
        session.blockCategories.push_back(categories[(first + i) % categories.size()]);
    for (quint32 i = 0; i < dice.below(3); ++i)
        session.blockedApps.push_back(dice.oneOf(apps));
    if (dice.oneIn(3))
        session.blockedWebsites.push_back(dice.oneOf(websites));
}

/// Runs the session from `start` to its end.
void live(FocusSession& session, Date start, Dice& dice) {
    session.startTime = start;
    session.pauseCount = static_cast<int>(dice.below(3));
    if (session.pauseCount > 0)
        session.totalPausedTime = dice.secondsBelow(120);
    session.duration += dice.oneIn(5) ? 300 : 0;
    const bool isComplete = !dice.oneIn(4);
    session.focusedTime = isComplete ? session.duration : dice.secondsBelow(900);
    session.endTime = start + *session.focusedTime + session.totalPausedTime;
    session.outcome = isComplete ? SessionOutcome::completed : SessionOutcome::endedEarly;
    if (!isComplete && dice.oneIn(4)) {
        session.isPaused = true;
        session.pausedAt = *session.endTime - dice.secondsBelow(120);
    }
}

} // namespace

std::vector<FocusSession> sampleHistory(std::size_t count) {
    Dice dice;
    Date start{500'000'000};
    std::vector<FocusSession> history;
    history.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        FocusSession session;
        session.id = dice.uuid();
        session.goal = dice.oneOf(goals);
        if (!session.goal.isEmpty())
            session.goal += u" %1"_s.arg(i);
        session.duration = dice.oneOf(durations);
        chooseBlocks(session, dice);
        start = start + 3600 + dice.secondsBelow(4 * 3600);
        live(session, start, dice);
        history.push_back(std::move(session));
    }
    return history;
}

} // namespace tolvar::test
