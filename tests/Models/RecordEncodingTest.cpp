#include "Models/RecordCoding.h"
#include "Support/Texts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using RecordCoding::encode;
using test::texts;

/// The document as another reader of JSON sees it.
QJsonValue parsed(const std::optional<QByteArray>& json) {
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(json.value_or("not encoded"), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

QJsonValue expected(const char* json) {
    return parsed(QByteArray(json));
}

FocusSession plainSession() {
    FocusSession session;
    session.id = QUuid::fromString(u"e621e1f8-c36c-495a-93fc-0c247a3e6e5f"_s);
    session.goal = u"Write report"_s;
    session.duration = 1500;
    session.pauseCount.reset();
    return session;
}

TEST(EncodingASession, LeavesAbsentFieldsOut) {
    EXPECT_EQ(parsed(encode(plainSession())), expected(R"({
        "id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "goal": "Write report", "duration": 1500,
        "blockedApps": [], "blockedWebsites": [], "blockCategories": [],
        "isActive": false, "isPaused": false, "totalPausedTime": 0})"));
}

TEST(EncodingASession, WritesEveryField) {
    auto session = plainSession();
    session.startTime = Date{789296400.25};
    session.endTime = Date{-1.5};
    session.blockedApps = texts({u"Slack"});
    session.blockedWebsites = texts({u"b.com", u"a.com"});
    session.blockCategories = {
        {.id = u"Work"_s, .name = u""_s, .apps = texts({u"Mail"}), .websites = {}}};
    session.isActive = true;
    session.isPaused = true;
    session.pausedAt = Date{0};
    session.totalPausedTime = 30.5;
    session.outcome = SessionOutcome::completed;
    session.focusedTime = 99.5;
    session.pauseCount = 0;
    EXPECT_EQ(parsed(encode(session)), expected(R"({
        "id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "goal": "Write report", "duration": 1500,
        "startTime": 789296400.25, "endTime": -1.5,
        "blockedApps": ["Slack"], "blockedWebsites": ["b.com", "a.com"],
        "blockCategories": [{"id": "Work", "name": "", "apps": ["Mail"], "websites": []}],
        "isActive": true, "isPaused": true, "pausedAt": 0, "totalPausedTime": 30.5,
        "outcome": "completed", "focusedTime": 99.5, "pauseCount": 0})"));
    session.outcome = SessionOutcome::endedEarly;
    EXPECT_EQ(parsed(encode(session))["outcome"_L1], u"endedEarly"_s);
}

TEST(EncodingASession, WritesNoLineBreaksOrBlanks) {
    const auto json = encode(plainSession());
    ASSERT_TRUE(json);
    EXPECT_TRUE(json->startsWith(R"({"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","goal":)"));
    EXPECT_FALSE(json->contains('\n'));
    EXPECT_FALSE(json->contains(", "));
}

TEST(EncodingASession, EscapesWhatJsonWantsEscaped) {
    auto session = plainSession();
    session.goal = u"\"\\/\b\f\n\r\t\u0001 \u00e9\U0001F3F0"_s + QChar(0);
    EXPECT_EQ(parsed(encode(session))["goal"_L1], session.goal);
}

TEST(EncodingASession, ReplacesLoneSurrogatesSoThatTheDocumentCanBeRead) {
    auto session = plainSession();
    session.goal = u"a"_s + QChar(0xD83C) + u"b"_s;
    const auto json = encode(session);
    ASSERT_TRUE(json);
    const auto read = RecordCoding::decodeSession(*json);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->goal.size(), 3);
    EXPECT_EQ(read->goal.front(), u'a');
    EXPECT_EQ(read->goal.back(), u'b');
}

TEST(EncodingASession, GivesNothingForANumberThatIsNotFinite) {
    const auto encodes = [](auto change) {
        auto session = plainSession();
        change(session);
        return encode(session).has_value() || encode(std::vector{plainSession(), session});
    };
    constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(encodes([](auto& session) { session.duration = nan; }));
    EXPECT_FALSE(encodes([](auto& session) { session.totalPausedTime = infinity; }));
    EXPECT_FALSE(encodes([](auto& session) { session.focusedTime = -infinity; }));
    EXPECT_FALSE(encodes([](auto& session) { session.startTime = Date{nan}; }));
    EXPECT_FALSE(encodes([](auto& session) { session.endTime = Date{infinity}; }));
    EXPECT_FALSE(encodes([](auto& session) { session.pausedAt = Date{infinity}; }));
}

TEST(EncodingPresets, WritesEveryField) {
    FocusPreset preset;
    preset.id = QUuid::fromString(u"e621e1f8-c36c-495a-93fc-0c247a3e6e5f"_s);
    preset.name = u"Mornings"_s;
    preset.duration = 2100.5;
    preset.customApps = texts({u"Slack"});
    preset.customWebsites = texts({u"example.com"});
    preset.categoryIDs = texts({u"News"});
    auto second = preset;
    second.sourceSessionId = preset.id;
    EXPECT_EQ(parsed(encode(std::vector{preset, second})), expected(R"([
        {"id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "name": "Mornings", "duration": 2100.5,
         "customApps": ["Slack"], "customWebsites": ["example.com"], "categoryIDs": ["News"]},
        {"id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F", "name": "Mornings", "duration": 2100.5,
         "sourceSessionId": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F",
         "customApps": ["Slack"], "customWebsites": ["example.com"], "categoryIDs": ["News"]}])"));
    preset.duration = std::numeric_limits<double>::infinity();
    EXPECT_EQ(encode(std::vector{preset}), std::nullopt);
}

TEST(EncodingCategories, AlwaysWritesObjects) {
    EXPECT_EQ(parsed(encode(std::vector{BlockCategory::fromBareName(u"Work"_s)})),
              expected(R"([{"id": "Work", "name": "Work", "apps": [], "websites": []}])"));
}

TEST(EncodingLists, WritesAnEmptyOne) {
    EXPECT_EQ(encode(std::vector<FocusSession>()), "[]");
    EXPECT_EQ(encode(std::vector<FocusPreset>()), "[]");
    EXPECT_EQ(encode(std::vector<BlockCategory>()), "[]");
}

} // namespace
} // namespace tolvar
