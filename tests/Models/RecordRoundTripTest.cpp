#include "Models/RecordCoding.h"
#include "Support/SampleHistory.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <random>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

/// Records and documents at random, the same ones in every run.
class Random {
public:
    quint32 below(quint32 limit) { return m_engine() % limit; }
    bool flag() { return below(2) == 1; }
    template<typename List>
    const auto& oneOf(const List& list) {
        return list[below(static_cast<quint32>(std::size(list)))];
    }

    /// Any finite double, of every magnitude.
    double number() {
        const auto bits = quint64{m_engine()} << 32 | m_engine();
        const auto value = std::bit_cast<double>(bits);
        return std::isfinite(value) ? value : static_cast<double>(below(1000));
    }
    /// Any Unicode scalars, often ASCII.
    QString text() {
        QString text;
        for (auto length = below(12); length > 0; --length)
            text += QChar::fromUcs4(scalar());
        return text;
    }
    QUuid uuid() {
        QByteArray bytes;
        for (int i = 0; i < 16; ++i)
            bytes.append(static_cast<char>(below(256)));
        return QUuid::fromRfc4122(bytes);
    }
    template<typename Make>
    auto list(Make make) {
        std::vector<decltype(make())> list(below(4));
        for (auto& item : list)
            item = make();
        return list;
    }
    template<typename Make>
    auto maybe(Make make) {
        return flag() ? std::optional(make()) : std::nullopt;
    }

    std::vector<QString> texts() {
        return list([this] { return text(); });
    }
    BlockCategory category() {
        return {.id = text(), .name = text(), .apps = texts(), .websites = texts()};
    }
    FocusSession session() {
        const auto date = [this] { return Date{number()}; };
        FocusSession session;
        session.id = uuid();
        session.goal = text();
        session.duration = number();
        session.startTime = maybe(date);
        session.endTime = maybe(date);
        session.blockedApps = texts();
        session.blockedWebsites = texts();
        session.blockCategories = list([this] { return category(); });
        session.isActive = flag();
        session.isPaused = flag();
        session.pausedAt = maybe(date);
        session.totalPausedTime = number();
        session.outcome = maybe(
            [this] { return flag() ? SessionOutcome::completed : SessionOutcome::endedEarly; });
        session.focusedTime = maybe([this] { return number(); });
        session.pauseCount = maybe([this] { return static_cast<int>(m_engine()); });
        return session;
    }
    FocusPreset preset() {
        FocusPreset preset;
        preset.id = uuid();
        preset.sourceSessionId = maybe([this] { return uuid(); });
        preset.name = text();
        preset.duration = number();
        preset.categoryIDs = texts();
        preset.customApps = texts();
        preset.customWebsites = texts();
        return preset;
    }

private:
    char32_t scalar() {
        constexpr std::array<quint32, 4> limits = {0x80, 0x800, 0x10000, 0x110000};
        const char32_t scalar = below(oneOf(limits));
        return QChar::isSurrogate(scalar) ? U'\uFFFD' : scalar;
    }

    std::mt19937 m_engine{2001};
};

TEST(RecordsReadBack, AreEqualToWhatWasWritten) {
    Random random;
    for (int i = 0; i < 2000; ++i) {
        const auto sessions = random.list([&] { return random.session(); });
        EXPECT_EQ(RecordCoding::decodeSessions(RecordCoding::encode(sessions).value()), sessions);
        const auto presets = random.list([&] { return random.preset(); });
        EXPECT_EQ(RecordCoding::decodePresets(RecordCoding::encode(presets).value()), presets);
        const auto categories = random.list([&] { return random.category(); });
        EXPECT_EQ(RecordCoding::decodeCategories(RecordCoding::encode(categories).value()),
                  categories);
        const auto session = random.session();
        EXPECT_EQ(RecordCoding::decodeSession(RecordCoding::encode(session).value()), session);
    }
}

TEST(RecordsReadBack, AreEqualForALongHistory) {
    const auto history = test::sampleHistory(2000);
    const auto json = RecordCoding::encode(history).value();
    EXPECT_EQ(RecordCoding::decodeSessions(json), history);
}

/// Damages a document in one of the ways in which files and hands damage documents.
QByteArray mutated(QByteArray json, Random& random) {
    static const std::array<QByteArray, 22> tokens = {"null",
                                                      "true",
                                                      "2.5",
                                                      "2.0",
                                                      "1e400",
                                                      "-0",
                                                      "9223372036854775808",
                                                      "\"\"",
                                                      "[",
                                                      "]",
                                                      "{",
                                                      "}",
                                                      R"("\uD83C)",
                                                      R"("\uDFF0")",
                                                      R"("id")",
                                                      ",",
                                                      ":",
                                                      "\\",
                                                      "\"",
                                                      "\xFF",
                                                      "\xF0\x9F\x8F\xB0",
                                                      QByteArray(1, '\0')};
    const auto position = [&] { return random.below(static_cast<quint32>(json.size()) + 1); };
    const auto start = position();
    const auto length = random.below(20);
    switch (random.below(6)) {
    case 0:
        return json.replace(start, 1, QByteArray(1, static_cast<char>(random.below(256))));
    case 1:
        return json.remove(start, length);
    case 2:
        return json.insert(start, random.oneOf(tokens));
    case 3:
        return json.insert(position(), json.mid(start, length));
    case 4:
        return json.replace(start, length, random.oneOf(tokens));
    default:
        return json.left(start);
    }
}

/// Decodes the document damaged in many ways and counts how often it could still be read. What
/// could be read must be a value like any other.
template<typename Decode>
int readableMutations(const QByteArray& json, Decode decode, Random& random) {
    int readable = 0;
    for (int i = 0; i < 4000; ++i) {
        auto damaged = json;
        for (auto times = 1 + random.below(3); times > 0; --times)
            damaged = mutated(damaged, random);
        const auto value = decode(damaged);
        if (!value)
            continue;
        ++readable;
        const auto again = RecordCoding::encode(*value);
        EXPECT_TRUE(again && decode(*again) == value) << damaged.constData();
    }
    return readable;
}

/// Some damage goes unnoticed (another letter in a name), but most must be noticed.
void expectSomeOf4000(int readable) {
    EXPECT_GT(readable, 40);
    EXPECT_LT(readable, 2000);
}

TEST(DamagedSessions, AreRefusedOrReadAsSomethingSound) {
    Random random;
    const auto json = RecordCoding::encode(test::sampleHistory(3)).value();
    expectSomeOf4000(readableMutations(json, RecordCoding::decodeSessions, random));
    const auto one = RecordCoding::encode(test::sampleHistory(8).back()).value();
    expectSomeOf4000(readableMutations(one, RecordCoding::decodeSession, random));
}

TEST(DamagedPresets, AreRefusedOrReadAsSomethingSound) {
    Random random;
    std::vector<FocusPreset> presets;
    for (const auto& session : test::sampleHistory(3))
        presets.push_back(FocusPreset::from(session, session.goal));
    const auto json = RecordCoding::encode(presets).value();
    expectSomeOf4000(readableMutations(json, RecordCoding::decodePresets, random));
}

TEST(DamagedCategories, AreRefusedOrReadAsSomethingSound) {
    Random random;
    auto json = RecordCoding::encode(BlockCategory::defaults()).value();
    json.insert(1, R"("Gaming","W\u00f6rk \uD83C\uDFF0",)");
    expectSomeOf4000(readableMutations(json, RecordCoding::decodeCategories, random));
}

} // namespace
} // namespace tolvar
