#include "App/Client/ListFormat.h"

#include "App/Client/TextTable.h"
#include "Support/Texts.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

/// 2026-01-05 09:00:00.250 UTC.
constexpr double start = 1767603600.25;

HistoryEntry session() {
    return {.id = u"1FF267B3-E7C9-4F9F-9D4D-80418D255C59"_s,
            .goal = u"Write report"_s,
            .start = start,
            .end = start + 1500,
            .duration = 5400,
            .focusedTime = 1500,
            .outcome = u"endedEarly"_s,
            .blockedApps = {u"XTerm"_s},
            .blockedWebsites = {u"example.com"_s}};
}

/// Local time is that of `zone` while this lives.
class LocalTime {
public:
    explicit LocalTime(const char* zone) {
        qputenv("TZ", zone);
        tzset();
    }
    ~LocalTime() {
        qputenv("TZ", m_before);
        tzset();
    }

private:
    QByteArray m_before = qgetenv("TZ");
};

TEST(TextTable, AlignsItsColumnsAndLeavesNoBlanksBehind) {
    EXPECT_EQ(textTable({{u"A"_s, u"BB"_s, u"C"_s}, {u"long"_s, u"b"_s, u""_s}}),
              u"A     BB  C\nlong  b\n"_s);
}

TEST(TextTable, KeepsEveryRowOnOneLine) {
    EXPECT_EQ(textTable({{u"a\nb"_s, u"c\td\x1b\u2028e"_s}}), u"a b  c d  e\n"_s);
}

TEST(TextTable, AlignsWhatIsSeen) {
    EXPECT_EQ(textTable({{u"a\u202E\u2066"_s, u"b"_s}}), u"a  b\n"_s);
}

TEST(ListFormat, ShowsADashForLengthsAndMomentsThatAreNone) {
    HistoryEntry entry = session();
    entry.start = entry.duration = 1e300;
    entry.focusedTime = -1e300;
    EXPECT_TRUE(historyTable({entry}).endsWith(
        u"\n\u2014        \u2014        \u2014   ended early  Write report\n"_s))
        << historyTable({entry}).toStdString();
    EXPECT_EQ(toJson(entry).value(u"start"_s), u""_s);
    EXPECT_EQ(toJson(entry).value(u"duration"_s), 1e300);
}

TEST(ListFormat, TellsPeopleTheHistoryInTheirOwnTime) {
    const LocalTime zone("UTC-2");
    EXPECT_EQ(historyTable({session()}), u"STARTED           FOCUSED  OF      OUTCOME      GOAL\n"
                                         u"2026-01-05 11:00  25m      1h 30m  ended early  "
                                         u"Write report\n"_s);
}

TEST(ListFormat, NamesBothOutcomes) {
    HistoryEntry entry = session();
    entry.outcome = u"completed"_s;
    EXPECT_TRUE(historyTable({entry}).contains(u"  completed  "_s));
}

TEST(ListFormat, TellsProgramsTheHistoryInUniversalTime) {
    const LocalTime zone("UTC-2");
    const auto expected = QJsonDocument::fromJson(R"({
        "id": "1FF267B3-E7C9-4F9F-9D4D-80418D255C59", "goal": "Write report",
        "start": "2026-01-05T09:00:00.250Z", "end": "2026-01-05T09:25:00.250Z", "duration": 5400,
        "focusedTime": 1500, "outcome": "endedEarly", "blockedApps": ["XTerm"],
        "blockedWebsites": ["example.com"]})")
                              .object();
    EXPECT_EQ(toJson(session()), expected);
}

TEST(ListFormat, ShowsWhatAPresetBlocks) {
    const PresetEntry preset = {.id = u"X"_s,
                                .name = u"Deep work"_s,
                                .duration = 3000,
                                .categories = {u"News"_s, u"Gaming"_s},
                                .apps = {},
                                .websites = {u"example.com"_s}};
    EXPECT_EQ(presetTable({preset}), u"NAME       LENGTH  CATEGORIES    APPS  SITES\n"
                                     u"Deep work  50m     News, Gaming  -     example.com\n"_s);
    EXPECT_EQ(toJson(preset), QJsonDocument::fromJson(R"({
        "id": "X", "name": "Deep work", "duration": 3000, "categories": ["News", "Gaming"],
        "apps": [], "websites": ["example.com"]})")
                                  .object());
}

TEST(ListFormat, CountsWhatACategoryHoldsForPeopleAndTellsProgramsAll) {
    const CategoryEntry category = {
        .id = u"News"_s, .name = u"News"_s, .apps = {u"A"_s}, .websites = {u"b.org"_s, u"c.org"_s}};
    EXPECT_EQ(categoryTable({category}), u"ID    NAME  APPS  SITES\nNews  News  1     2\n"_s);
    EXPECT_EQ(toJson(category), QJsonDocument::fromJson(R"({
        "id": "News", "name": "News", "apps": ["A"], "websites": ["b.org", "c.org"]})")
                                    .object());
}

TEST(ListFormat, ShowsApplicationsByTheirNames) {
    const ApplicationEntry application = {.name = u"XTerm"_s, .id = u"debian-xterm"_s};
    EXPECT_EQ(applicationTable({application}), u"NAME   ID\nXTerm  debian-xterm\n"_s);
    EXPECT_EQ(toJson(application),
              QJsonDocument::fromJson(R"({"name": "XTerm", "id": "debian-xterm"})").object());
}

} // namespace
} // namespace tolvar
