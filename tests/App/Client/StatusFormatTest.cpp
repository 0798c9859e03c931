#include "App/Client/StatusFormat.h"

#include "Support/Texts.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using Format = Command::Status::Format;
using State = StatusReport::State;

StatusReport focusing() {
    return {.state = State::focusing,
            .goal = u"Write report"_s,
            .duration = 1500,
            .remaining = 1498.25,
            .elapsed = 1.75,
            .pauseRemaining = 0,
            .pausesLeft = 2,
            .blockedApps = {u"GIMP"_s, u"XTerm"_s},
            .blockedWebsites = {u"example.com"_s}};
}

StatusReport paused() {
    StatusReport report = focusing();
    report.state = State::paused;
    report.pauseRemaining = 65;
    report.pausesLeft = 1;
    return report;
}

StatusReport inState(State state) {
    StatusReport report;
    report.state = state;
    return report;
}

QJsonObject object(const QString& line) {
    EXPECT_FALSE(line.contains(u'\n')) << line.toStdString();
    return QJsonDocument::fromJson(line.toUtf8()).object();
}

TEST(StatusFormat, RoundsTheClockUpAndNeverBelowZero) {
    StatusReport report = focusing();
    const std::pair<Seconds, QString> clocks[] = {
        {1500, u"25:00"_s}, {1499.001, u"25:00"_s}, {0.4, u"0:01"_s},    {0, u"0:00"_s},
        {-3, u"0:00"_s},    {59.5, u"1:00"_s},      {3600, u"1:00:00"_s}};
    for (const auto& [remaining, clock] : clocks) {
        report.remaining = remaining;
        EXPECT_EQ(remainingClock(report), clock);
    }
}

TEST(StatusFormat, ShowsADashForATimeThatIsNone) {
    StatusReport report = focusing();
    report.remaining = report.duration = report.elapsed = 1e300;
    EXPECT_EQ(formatStatus(report, Format::text),
              u"Focusing on Write report: \u2014 left, 2 pauses left"_s);
    EXPECT_EQ(object(formatStatus(report, Format::json)).value(u"clock"_s), u"\u2014"_s);
    EXPECT_EQ(object(formatStatus(report, Format::waybar)).value(u"percentage"_s), 100);
}

TEST(StatusFormat, NeverCountsAPauseBelowZero) {
    StatusReport report = paused();
    report.pauseRemaining = -1808;
    EXPECT_TRUE(formatStatus(report, Format::text).contains(u"goes on in 0:00"_s));
}

TEST(StatusFormat, KeepsAGoalFromTurningTheLine) {
    StatusReport report = focusing();
    report.goal = u"a\u202Eb\u2066c\u200Dd\x9b"_s;
    EXPECT_EQ(formatStatus(report, Format::polybar), u"24:59 abc\u200Dd "_s);
    EXPECT_EQ(object(formatStatus(report, Format::json)).value(u"goal"_s), report.goal);
}

TEST(StatusFormat, TellsPeopleInASentence) {
    EXPECT_EQ(formatStatus(focusing(), Format::text),
              u"Focusing on Write report: 24:59 left, 2 pauses left"_s);
    EXPECT_EQ(formatStatus(paused(), Format::text),
              u"Paused on Write report: 24:59 left, goes on in 1:05, 1 pause left"_s);
    EXPECT_EQ(formatStatus(inState(State::ready), Format::text), u"Ready"_s);
    EXPECT_EQ(formatStatus(inState(State::off), Format::text), u"Not running"_s);
}

TEST(StatusFormat, LeavesOutAGoalThatIsEmpty) {
    StatusReport report = focusing();
    report.goal.clear();
    EXPECT_EQ(formatStatus(report, Format::text), u"Focusing: 24:59 left, 2 pauses left"_s);
    EXPECT_EQ(formatStatus(report, Format::polybar), u"24:59"_s);
}

TEST(StatusFormat, KeepsAGoalOfSeveralLinesOnOne) {
    StatusReport report = focusing();
    report.goal = u"One\nTwo\x1b[31m"_s;
    EXPECT_EQ(formatStatus(report, Format::text),
              u"Focusing on One Two [31m: 24:59 left, 2 pauses left"_s);
    EXPECT_EQ(formatStatus(report, Format::polybar), u"24:59 One Two [31m"_s);
    EXPECT_EQ(object(formatStatus(report, Format::json)).value(u"goal"_s), report.goal);
}

TEST(StatusFormat, TellsProgramsEverythingAboutARunningSession) {
    const QJsonObject expected = QJsonDocument::fromJson(R"({
        "status": "focusing", "goal": "Write report", "duration": 1500, "remaining": 1498.25,
        "elapsed": 1.75, "pausesLeft": 2, "blockedApps": ["GIMP", "XTerm"],
        "blockedWebsites": ["example.com"], "clock": "24:59"})")
                                     .object();
    EXPECT_EQ(object(formatStatus(focusing(), Format::json)), expected);
}

TEST(StatusFormat, TellsProgramsOfAPauseOnlyWhileThereIsOne) {
    const auto report = object(formatStatus(paused(), Format::json));
    EXPECT_EQ(report.value(u"status"_s), u"paused"_s);
    EXPECT_EQ(report.value(u"pauseRemaining"_s), 65);
    EXPECT_FALSE(object(formatStatus(focusing(), Format::json)).contains(u"pauseRemaining"_s));
}

TEST(StatusFormat, TellsProgramsOnlyTheStatusWithoutASession) {
    EXPECT_EQ(formatStatus(inState(State::ready), Format::json), u"{\"status\":\"ready\"}"_s);
    EXPECT_EQ(formatStatus(inState(State::off), Format::json), u"{\"status\":\"off\"}"_s);
}

TEST(StatusFormat, GivesWaybarItsFields) {
    StatusReport report = paused();
    report.goal = u"<b> & co"_s;
    report.elapsed = 750;
    const auto fields = object(formatStatus(report, Format::waybar));
    EXPECT_EQ(fields.value(u"text"_s), u"24:59"_s);
    EXPECT_EQ(fields.value(u"class"_s), u"paused"_s);
    EXPECT_EQ(fields.value(u"alt"_s), u"paused"_s);
    EXPECT_EQ(fields.value(u"percentage"_s), 50);
    EXPECT_TRUE(fields.value(u"tooltip"_s).toString().contains(u"&lt;b&gt; &amp; co"_s));
}

TEST(StatusFormat, GivesWaybarAnEmptyTextWithoutASession) {
    const auto fields = object(formatStatus(inState(State::ready), Format::waybar));
    EXPECT_EQ(fields.value(u"text"_s), u""_s);
    EXPECT_EQ(fields.value(u"class"_s), u"ready"_s);
    EXPECT_EQ(fields.value(u"percentage"_s), 0);
}

TEST(StatusFormat, CountsPercentFromNothingToAll) {
    StatusReport report = focusing();
    const std::pair<Seconds, int> cases[] = {{0, 0}, {1499.99, 99}, {1500, 100}, {2000, 100}};
    for (const auto& [elapsed, percentage] : cases) {
        report.elapsed = elapsed;
        EXPECT_EQ(object(formatStatus(report, Format::waybar)).value(u"percentage"_s), percentage);
    }
}

TEST(StatusFormat, GivesPolybarAPlainLineOrNothing) {
    EXPECT_EQ(formatStatus(focusing(), Format::polybar), u"24:59 Write report"_s);
    EXPECT_EQ(formatStatus(paused(), Format::polybar), u"24:59 Write report (paused)"_s);
    EXPECT_EQ(formatStatus(inState(State::ready), Format::polybar), u""_s);
    EXPECT_EQ(formatStatus(inState(State::off), Format::polybar), u""_s);
}

TEST(StatusFormat, KeepsAGoalFromFormattingTheBar) {
    StatusReport report = focusing();
    report.goal = u"%{F#f00}red"_s;
    EXPECT_EQ(formatStatus(report, Format::polybar), u"24:59 % {F#f00}red"_s);
}

} // namespace
} // namespace tolvar
