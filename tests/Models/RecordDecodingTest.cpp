#include "Models/JsonObject.h"
#include "Models/RecordCoding.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <limits>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using RecordCoding::decodeCategories;
using RecordCoding::decodePresets;
using RecordCoding::decodeSession;
using RecordCoding::decodeSessions;
using test::JsonObject;
using test::texts;

const QUuid sessionId = QUuid::fromString(u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_s);
const QUuid presetId = QUuid::fromString(u"0F3C2A10-0000-4000-8000-00000000ABCD"_s);

const JsonObject category = {
    {"id", R"("Work")"},
    {"name", R"("Arbeit")"},
    {"apps", R"(["Slack","Mail"])"},
    {"websites", R"(["example.com"])"},
};

const JsonObject fullSession = {
    {"id", R"("E621E1F8-C36C-495A-93FC-0C247A3E6E5F")"},
    {"goal", R"("Write report")"},
    {"duration", "1500"},
    {"startTime", "789296400.25"},
    {"endTime", "789297900.25"},
    {"blockedApps", R"(["Slack"])"},
    {"blockedWebsites", R"(["example.com","WWW.Example.org"])"},
    {"blockCategories", category.list()},
    {"isActive", "true"},
    {"isPaused", "true"},
    {"pausedAt", "789296500"},
    {"totalPausedTime", "30.5"},
    {"outcome", R"("endedEarly")"},
    {"focusedTime", "99.5"},
    {"pauseCount", "2"},
};
const std::vector<QByteArray> optionalKeys = {"startTime", "endTime",     "pausedAt",
                                              "outcome",   "focusedTime", "pauseCount"};

const JsonObject fullPreset = {
    {"id", R"("0F3C2A10-0000-4000-8000-00000000ABCD")"},
    {"sourceSessionId", R"("E621E1F8-C36C-495A-93FC-0C247A3E6E5F")"},
    {"name", R"("Mornings")"},
    {"duration", "2100"},
    {"customApps", R"(["Slack"])"},
    {"customWebsites", R"(["example.com"])"},
    {"categoryIDs", R"(["News","Work"])"},
};

const BlockCategory workCategory{.id = u"Work"_s,
                                 .name = u"Arbeit"_s,
                                 .apps = texts({u"Slack", u"Mail"}),
                                 .websites = texts({u"example.com"})};

bool isOptional(const QByteArray& key) {
    return std::find(optionalKeys.begin(), optionalKeys.end(), key) != optionalKeys.end();
}

/// Whether the session decodes with this value of a key.
bool reads(const QByteArray& key, const QByteArray& value) {
    return decodeSession(fullSession.with(key, value).text()).has_value();
}

QString goalOf(const QByteArray& goalText) {
    const auto session = decodeSession(fullSession.with("goal", goalText).text());
    return session ? session->goal : u"(not read)"_s;
}

TEST(DecodingASession, ReadsEveryField) {
    const auto session = decodeSession(fullSession.text());
    FocusSession expected;
    expected.id = sessionId;
    expected.goal = u"Write report"_s;
    expected.duration = 1500;
    expected.startTime = Date{789296400.25};
    expected.endTime = Date{789297900.25};
    expected.blockedApps = texts({u"Slack"});
    expected.blockedWebsites = texts({u"example.com", u"WWW.Example.org"});
    expected.blockCategories = {workCategory};
    expected.isActive = true;
    expected.isPaused = true;
    expected.pausedAt = Date{789296500};
    expected.totalPausedTime = 30.5;
    expected.outcome = SessionOutcome::endedEarly;
    expected.focusedTime = 99.5;
    expected.pauseCount = 2;
    EXPECT_EQ(session, expected);
}

TEST(DecodingASession, ReadsMissingOptionalFieldsAsAbsent) {
    auto object = fullSession;
    for (const auto& key : optionalKeys)
        object = object.without(key);
    const auto session = decodeSession(object.text());
    ASSERT_TRUE(session);
    EXPECT_EQ(session->startTime, std::nullopt);
    EXPECT_EQ(session->endTime, std::nullopt);
    EXPECT_EQ(session->pausedAt, std::nullopt);
    EXPECT_EQ(session->outcome, std::nullopt);
    EXPECT_EQ(session->focusedTime, std::nullopt);
    EXPECT_EQ(session->pauseCount, std::nullopt);
}

TEST(DecodingASession, ReadsNullAsAbsentWhereAFieldIsOptional) {
    for (const auto& key : optionalKeys)
        EXPECT_EQ(decodeSession(fullSession.with(key, "null").text()),
                  decodeSession(fullSession.without(key).text()))
            << key.constData();
}

TEST(DecodingASession, FailsWithoutARequiredField) {
    for (const auto& key : fullSession.keys()) {
        EXPECT_EQ(decodeSession(fullSession.without(key).text()).has_value(), isOptional(key))
            << key.constData();
        EXPECT_EQ(reads(key, "null"), isOptional(key)) << key.constData();
    }
}

TEST(DecodingASession, FailsOnAValueOfTheWrongType) {
    const std::vector<QByteArray> values = {"true", "1",    R"("text")", "[]",
                                            "[1]",  "[[]]", "{}",        "[null]"};
    const std::vector<std::pair<QByteArray, std::vector<QByteArray>>> fitting = {
        {"id", {}},
        {"goal", {R"("text")"}},
        {"duration", {"1"}},
        {"startTime", {"1"}},
        {"endTime", {"1"}},
        {"blockedApps", {"[]"}},
        {"blockedWebsites", {"[]"}},
        {"blockCategories", {"[]"}},
        {"isActive", {"true"}},
        {"isPaused", {"true"}},
        {"pausedAt", {"1"}},
        {"totalPausedTime", {"1"}},
        {"outcome", {}},
        {"focusedTime", {"1"}},
        {"pauseCount", {"1"}},
    };
    ASSERT_EQ(fitting.size(), fullSession.keys().size());
    for (const auto& [key, fits] : fitting)
        for (const auto& value : values)
            EXPECT_EQ(reads(key, value), std::find(fits.begin(), fits.end(), value) != fits.end())
                << key.constData() << " as " << value.constData();
}

TEST(DecodingASession, TakesOnlyTrueAndFalseForAFlag) {
    EXPECT_TRUE(reads("isActive", "false"));
    for (const auto* value : {"0", "1", R"("true")", "TRUE", "null"})
        EXPECT_FALSE(reads("isActive", value)) << value;
}

TEST(DecodingASession, TakesOnlyTheTwoOutcomes) {
    EXPECT_EQ(decodeSession(fullSession.with("outcome", R"("completed")").text())->outcome,
              SessionOutcome::completed);
    for (const auto* value : {R"("Completed")", R"("ended")", R"("")", "0"})
        EXPECT_FALSE(reads("outcome", value)) << value;
}

TEST(DecodingASession, ReadsAWholeNumberHoweverItIsSpelled) {
    const auto count = [](const QByteArray& value) {
        return decodeSession(fullSession.with("pauseCount", value).text())->pauseCount;
    };
    EXPECT_EQ(count("2"), 2);
    EXPECT_EQ(count("2.0"), 2);
    EXPECT_EQ(count("20e-1"), 2);
    EXPECT_EQ(count("0.2E+1"), 2);
    EXPECT_EQ(count("-0"), 0);
    EXPECT_EQ(count("2147483647"), std::numeric_limits<int>::max());
    EXPECT_EQ(count("-2147483648"), std::numeric_limits<int>::min());
}

TEST(DecodingASession, FailsOnANumberThatIsNoInteger) {
    for (const auto* value :
         {"2.5", "1e-1", "2147483648", "-2147483649", "1e10", "1e308", R"("2")", "true"})
        EXPECT_FALSE(reads("pauseCount", value)) << value;
}

TEST(DecodingASession, ReadsDoublesToTheLastBit) {
    const auto duration = [](const QByteArray& value) {
        return decodeSession(fullSession.with("duration", value).text())->duration;
    };
    EXPECT_EQ(duration("0.1"), 0.1);
    EXPECT_EQ(duration("-1.5e3"), -1500);
    EXPECT_EQ(duration("789296400.123456789012345678901234567890"), 789296400.123456789);
    EXPECT_EQ(duration("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(duration("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(duration("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(std::bit_cast<quint64>(duration("-0.0")), std::bit_cast<quint64>(-0.0));
}

TEST(DecodingASession, FailsOnWhatIsNoFiniteJsonNumber) {
    for (const auto* value : {"1e400", "-1e400", "1e-400", "1.8e308", "NaN", "Infinity", "-Inf",
                              "+1", "01", "1.", ".5", "0x10", "1e", R"("1")", "--1"})
        EXPECT_FALSE(reads("duration", value)) << value;
}

TEST(DecodingASession, TakesAUuidOnlyInItsCanonicalForm) {
    EXPECT_EQ(
        decodeSession(fullSession.with("id", R"("e621e1f8-c36c-495a-93fc-0c247a3e6e5f")").text())
            ->id,
        sessionId);
    for (const auto* value :
         {R"("")", R"("{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}")",
          R"("E621E1F8C36C495A93FC0C247A3E6E5F")", R"("E621E1F8-C36C-495A-93FC-0C247A3E6E5")",
          R"("E621E1F8-C36C-495A-93FC-0C247A3E6E5F0")", R"("E621E1F8-C36C-495A-93FC-0C247A3E6E5G")",
          R"("E621E1F8-C36C-495A-93FC 0C247A3E6E5F")", R"("E621E1F-8C36C-495A-93FC-0C247A3E6E5F")",
          R"(" E621E1F8-C36C-495A-93FC-0C247A3E6E5")"})
        EXPECT_FALSE(reads("id", value)) << value;
    EXPECT_TRUE(reads("id", R"("00000000-0000-0000-0000-000000000000")"));
}

TEST(DecodingASession, UnescapesTexts) {
    EXPECT_EQ(goalOf(R"("a\"\\\/\b\f\n\r\tz")"), u"a\"\\/\b\f\n\r\tz"_s);
    EXPECT_EQ(goalOf(R"("\u00e9\u4F8B")"), u"\u00e9\u4F8B"_s);
    EXPECT_EQ(goalOf(R"("\uD83C\uDFF0")"), u"\U0001F3F0"_s);
    EXPECT_EQ(goalOf("\"\xF0\x9F\x8F\xB0\""), u"\U0001F3F0"_s);
    EXPECT_EQ(goalOf(R"("\uFEFFa\uFFFF")"), u"\uFEFFa\uFFFF"_s);
    EXPECT_EQ(goalOf(R"("a\u0000b")"), QString::fromUtf16(u"a\0b", 3));
    EXPECT_EQ(goalOf(R"("")"), u""_s);
}

TEST(DecodingASession, FailsOnLoneSurrogates) {
    for (const auto* value : {R"("\uD800")", R"("\uDC00")", R"("\uDFF0\uD83C")", R"("\uD83Cx")",
                              R"("\uD83C\u0041")", "\"\xED\xA0\x80\"", "\"\xED\xB0\x80\""})
        EXPECT_FALSE(reads("goal", value)) << value;
}

TEST(DecodingASession, FailsOnTextsThatAreNotUtf8) {
    for (const auto* value : {"\"\xFF\"", "\"\xC3\"", "\"\xC0\x80\"", "\"\xE2\x82\"",
                              "\"\xF5\x80\x80\x80\"", "\"\x80\""})
        EXPECT_FALSE(reads("goal", value)) << value;
}

TEST(DecodingASession, FailsOnControlCharactersInTexts) {
    EXPECT_FALSE(reads("goal", "\"a\nb\""));
    EXPECT_FALSE(reads("goal", "\"a\tb\""));
    EXPECT_FALSE(reads("goal", QByteArray("\"a\0b\"", 5)));
    EXPECT_FALSE(reads("goal", R"("\x41")"));
    EXPECT_FALSE(reads("goal", R"("\u12G4")"));
}

TEST(DecodingASession, IgnoresUnknownKeysWhateverTheyHold) {
    const auto expected = decodeSession(fullSession.text());
    for (const auto* value :
         {"null", "true", "1", "1e-400", R"("x")", "[]", "{}", R"([1,{"id":2,"apps":[[]]},"x"])",
          R"({"id":null,"goal":{"goal":[]}})"})
        EXPECT_EQ(decodeSession(fullSession.with("later", value).text()), expected) << value;
    EXPECT_EQ(decodeSession(fullSession.with("Goal", "5").with("", "6").text()), expected);
}

TEST(DecodingASession, StillWantsJsonBehindUnknownKeys) {
    for (const auto* value :
         {R"("\uDC00")", "\"\xFF\"", R"({"\uDC00":1})", R"(["\uD800"])", "[,]", "nul", "{1:2}"})
        EXPECT_FALSE(reads("later", value)) << value;
    EXPECT_FALSE(decodeSession(fullSession.with("\xFF", "1").text()));
}

TEST(DecodingASession, TakesKeysInAnyOrder) {
    const auto reversed =
        fullSession.with("blockCategories", category.reversed().list()).reversed();
    EXPECT_EQ(decodeSession(reversed.text()), decodeSession(fullSession.text()));
}

TEST(DecodingASession, TakesTheLastOfAKeyGivenTwice) {
    auto text = fullSession.text();
    text.chop(1);
    const auto session = decodeSession(
        text + R"(,"goal":"Last","blockedApps":["Zoom"],"blockCategories":[],"pausedAt":null})");
    ASSERT_TRUE(session);
    EXPECT_EQ(session->goal, u"Last"_s);
    EXPECT_EQ(session->blockedApps, texts({u"Zoom"}));
    EXPECT_TRUE(session->blockCategories.empty());
    EXPECT_EQ(session->pausedAt, std::nullopt);
}

TEST(DecodingASession, ReadsCategoriesAsObjectsAndBareNames) {
    const auto session = decodeSession(
        fullSession.with("blockCategories", R"(["Gaming",)" + category.text() + R"(,"Work"])")
            .text());
    ASSERT_TRUE(session);
    EXPECT_EQ(session->blockCategories, (std::vector{BlockCategory::defaults()[4], workCategory,
                                                     BlockCategory::fromBareName(u"Work"_s)}));
}

TEST(DecodingASession, ReadsABareNameBehindACategoryThatEndsWithAnUnknownKey) {
    const auto session = decodeSession(
        fullSession
            .with("blockCategories", "[" + category.with("later", "1").text() + R"(,"Work"])")
            .text());
    ASSERT_TRUE(session);
    EXPECT_EQ(session->blockCategories,
              (std::vector{workCategory, BlockCategory::fromBareName(u"Work"_s)}));
}

TEST(DecodingASession, FailsWithAnyOfItsCategories) {
    for (const auto& key : category.keys())
        EXPECT_FALSE(reads("blockCategories", category.without(key).list())) << key.constData();
    EXPECT_FALSE(reads("blockCategories", "[null]"));
    EXPECT_FALSE(reads("blockCategories", "[1]"));
    EXPECT_FALSE(reads("blockCategories", category.text()));
}

TEST(DecodingASession, WantsAnObject) {
    for (const auto* text : {"null", "true", "1", R"("Work")", "[]", "{}"})
        EXPECT_FALSE(decodeSession(text)) << text;
    EXPECT_FALSE(decodeSession(fullSession.list()));
}

TEST(DecodingSessions, KeepsTheirOrder) {
    const auto later = fullSession.with("goal", R"("Later")");
    const auto sessions = decodeSessions("[" + fullSession.text() + "," + later.text() + "]");
    ASSERT_TRUE(sessions);
    ASSERT_EQ(sessions->size(), 2u);
    EXPECT_EQ(sessions->at(0).goal, u"Write report"_s);
    EXPECT_EQ(sessions->at(1).goal, u"Later"_s);
    EXPECT_EQ(decodeSessions("[]"), std::vector<FocusSession>());
}

TEST(DecodingSessions, KeepsNothingOfOneForTheNext) {
    auto bare = fullSession.with("blockedApps", "[]").with("blockCategories", "[]");
    for (const auto& key : optionalKeys)
        bare = bare.without(key);
    const auto sessions = decodeSessions("[" + fullSession.text() + "," + bare.text() + "]");
    ASSERT_TRUE(sessions);
    EXPECT_EQ(sessions->at(1), decodeSession(bare.text()));
}

TEST(DecodingSessions, FailsWithAnyOfThem) {
    const auto broken = fullSession.without("isPaused");
    EXPECT_FALSE(decodeSessions("[" + fullSession.text() + "," + broken.text() + "]"));
    EXPECT_FALSE(decodeSessions("[" + fullSession.text() + ",null]"));
    EXPECT_FALSE(decodeSessions("[" + fullSession.text() + R"(,"Work"])"));
    EXPECT_FALSE(decodeSessions(fullSession.text()));
}

TEST(DecodingPresets, ReadsEveryField) {
    const auto presets = decodePresets(fullPreset.list());
    FocusPreset expected;
    expected.id = presetId;
    expected.sourceSessionId = sessionId;
    expected.name = u"Mornings"_s;
    expected.duration = 2100;
    expected.customApps = texts({u"Slack"});
    expected.customWebsites = texts({u"example.com"});
    expected.categoryIDs = texts({u"News", u"Work"});
    EXPECT_EQ(presets, std::vector{expected});
}

TEST(DecodingPresets, FailsWithoutARequiredField) {
    for (const auto& key : fullPreset.keys()) {
        const bool mayBeAbsent = key == "sourceSessionId";
        EXPECT_EQ(decodePresets(fullPreset.without(key).list()).has_value(), mayBeAbsent)
            << key.constData();
        EXPECT_EQ(decodePresets(fullPreset.with(key, "null").list()).has_value(), mayBeAbsent)
            << key.constData();
        EXPECT_FALSE(decodePresets(fullPreset.with(key, "true").list())) << key.constData();
    }
}

TEST(DecodingPresets, ReadsAMissingSourceAsAbsent) {
    EXPECT_EQ(decodePresets(fullPreset.without("sourceSessionId").list())->front().sourceSessionId,
              std::nullopt);
    EXPECT_FALSE(decodePresets(fullPreset.with("sourceSessionId", R"("x")").list()));
}

TEST(DecodingCategories, ReadsObjectsAndBareNames) {
    EXPECT_EQ(decodeCategories("[" + category.text() + R"(,"Gaming","Work","\uD83C\uDFF0"])"),
              (std::vector{workCategory, BlockCategory::defaults()[4],
                           BlockCategory::fromBareName(u"Work"_s),
                           BlockCategory::fromBareName(u"\U0001F3F0"_s)}));
    EXPECT_EQ(decodeCategories("[]"), std::vector<BlockCategory>());
}

TEST(DecodingCategories, FailsOnAMissingOrMistypedField) {
    for (const auto& key : category.keys()) {
        EXPECT_FALSE(decodeCategories(category.without(key).list())) << key.constData();
        EXPECT_FALSE(decodeCategories(category.with(key, "null").list())) << key.constData();
        EXPECT_FALSE(decodeCategories(category.with(key, "1").list())) << key.constData();
    }
    EXPECT_FALSE(decodeCategories(category.with("apps", R"([["a"]])").list()));
    EXPECT_FALSE(decodeCategories(category.with("apps", R"(["a",null])").list()));
    EXPECT_FALSE(decodeCategories(category.with("apps", R"({"0":"a"})").list()));
    EXPECT_FALSE(decodeCategories(R"("Work")"));
    EXPECT_FALSE(decodeCategories("[null]"));
}

class BrokenDocument : public testing::TestWithParam<QByteArray> {};

TEST_P(BrokenDocument, IsNotRead) {
    EXPECT_EQ(decodeCategories(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Texts, BrokenDocument,
                         testing::Values(QByteArray(), "", " ", "[", "]", "[]]", "[] []", "[]x",
                                         "[],", "['Work']", R"(["Work",])", R"([,"Work"])",
                                         R"(["Work" "Work"])", R"(["Work")", R"(["Work)", "[]//",
                                         "/**/[]", "\xEF\xBB\xBF[]", QByteArray("[]\0", 3),
                                         QByteArray("[\0]", 3), QByteArray("[]\0x", 4), "{]",
                                         R"([{"id":"a","name":"a","apps":[],"websites":[]]])"));

TEST(DecodingADocument, AllowsBlanksAround) {
    EXPECT_EQ(decodeCategories(" \t\r\n[ \n ]\n "), std::vector<BlockCategory>());
}

TEST(DecodingADocument, LeavesTheCallersBytesAlone) {
    const QByteArray document = R"(["a\nb"])";
    const QByteArray kept(document.constData(), document.size());
    EXPECT_TRUE(decodeCategories(document));
    EXPECT_EQ(document, kept);
}

TEST(DecodingADocument, ReadsBytesThatNoNulFollows) {
    const char bytes[] = {'[', ']', ']'};
    EXPECT_TRUE(decodeCategories(QByteArray::fromRawData(bytes, 2)));
}

TEST(DecodingADocument, SurvivesDeepNesting) {
    const QByteArray opened(2'000'000, '[');
    const QByteArray closed(2'000'000, ']');
    EXPECT_FALSE(decodeCategories(opened));
    EXPECT_FALSE(decodeCategories(opened + closed));
    EXPECT_FALSE(decodeSession(QByteArray("{\"a\":").repeated(1'000'000)));
    EXPECT_TRUE(reads("later", opened + closed));
    EXPECT_FALSE(reads("later", opened));
    EXPECT_FALSE(reads("goal", opened + closed));
}

} // namespace
} // namespace tolvar
