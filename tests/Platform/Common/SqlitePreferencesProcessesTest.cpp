#include "Platform/Common/PreferencesTest.h"
#include "Support/ChildProcess.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <memory>
#include <random>
#include <vector>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

/// A moment of no length in particular.
void spin(unsigned long turns) {
    for (; turns > 0; --turns)
        std::atomic_signal_fence(std::memory_order_seq_cst);
}

/// The processes of this test wait for each other as long as in real life.
class SharedPreferencesTest : public test::PreferencesTest {
protected:
    std::unique_ptr<SqlitePreferences> openPatiently() {
        return std::make_unique<SqlitePreferences>(m_file, m_log, m_clock, std::chrono::seconds(5));
    }
};

TEST_F(SharedPreferencesTest, LoseNothingThatTwoProcessesStoreAtOnce) {
    constexpr int rounds = 100;
    const auto hammer = [&](const QString& name) {
        const auto preferences = openPatiently();
        for (int i = 1; i <= rounds; ++i) {
            const Preferences::Transaction together(*preferences);
            preferences->setNumber(name, i);
            preferences->setNumber(name + u" %1"_s.arg(i), i);
            preferences->setText(u"shared a"_s, name + QString::number(i));
            preferences->setText(u"shared b"_s, name + QString::number(i));
        }
        EXPECT_TRUE(m_log.take().empty());
    };
    test::ChildProcess first([&] { hammer(u"first"_s); });
    test::ChildProcess second([&] { hammer(u"second"_s); });
    EXPECT_TRUE(first.succeeds());
    EXPECT_TRUE(second.succeeds());

    const auto preferences = openPatiently();
    for (const auto& name : {u"first"_s, u"second"_s}) {
        EXPECT_EQ(preferences->number(name), rounds);
        for (int i = 1; i <= rounds; ++i)
            EXPECT_EQ(preferences->number(name + u" %1"_s.arg(i)), i);
    }
    EXPECT_EQ(preferences->text(u"shared a"_s), preferences->text(u"shared b"_s));
    EXPECT_EQ(movedAside(), QStringList());
}

TEST_F(SharedPreferencesTest, AreMadeOnceByProcessesThatOpenThemAtOnce) {
    for (int round = 0; round < 5; ++round) {
        QDir(m_folder).removeRecursively();
        std::vector<std::unique_ptr<test::ChildProcess>> openers;
        for (int i = 0; i < 6; ++i)
            openers.push_back(std::make_unique<test::ChildProcess>([&, i] {
                openPatiently()->setNumber(u"opener %1"_s.arg(i), round);
                EXPECT_TRUE(m_log.take().empty());
            }));
        for (const auto& opener : openers)
            EXPECT_TRUE(opener->succeeds());
        const auto preferences = openPatiently();
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(preferences->storedValue(u"opener %1"_s.arg(i)), Value(double(round)));
    }
}

TEST_F(SharedPreferencesTest, AreRepairedOnceByProcessesThatFindThemDamagedAtOnce) {
    for (int round = 1; round <= 5; ++round) {
        QDir().mkpath(m_folder);
        put(m_file, "damaged");
        std::vector<std::unique_ptr<test::ChildProcess>> openers;
        for (int i = 0; i < 4; ++i)
            openers.push_back(std::make_unique<test::ChildProcess>([&, i] {
                openPatiently()->setNumber(u"opener %1"_s.arg(i), round);
                EXPECT_LE(m_log.take().size(), 1u);
            }));
        for (const auto& opener : openers)
            EXPECT_TRUE(opener->succeeds());
        EXPECT_EQ(movedAside().size(), round);
        const auto preferences = openPatiently();
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(preferences->storedValue(u"opener %1"_s.arg(i)), Value(double(round)));
    }
}

/// A child that stores one transaction after the other until it is killed, and says which are done.
class KilledPreferencesTest : public SharedPreferencesTest {
protected:
    KilledPreferencesTest() { EXPECT_EQ(pipe(m_pipe.data()), 0); }
    ~KilledPreferencesTest() override {
        for (const int end : m_pipe)
            close(end);
    }

    void storeForever(int first) {
        const auto preferences = openPatiently();
        for (int i = first;; ++i) {
            {
                const Preferences::Transaction together(*preferences);
                preferences->setNumber(u"number"_s, i);
                preferences->setData(u"document"_s,
                                     QByteArray(1000 + i % 7 * 20'000, char('a' + i % 26)));
                if (i % 2 == 0)
                    preferences->setBoolean(u"even"_s, true);
                else
                    preferences->remove(u"even"_s);
            }
            EXPECT_EQ(::write(m_pipe[1], &i, sizeof i), ssize_t(sizeof i));
        }
    }
    int nextDone() {
        int done = -1;
        EXPECT_EQ(::read(m_pipe[0], &done, sizeof done), ssize_t(sizeof done));
        return done;
    }
    /// What the child said before it was killed and nobody heard yet.
    int lastDone(int heard) {
        const int end = -1;
        EXPECT_EQ(::write(m_pipe[1], &end, sizeof end), ssize_t(sizeof end));
        for (int next = nextDone(); next != end; next = nextDone())
            heard = next;
        return heard;
    }

    std::array<int, 2> m_pipe{};
};

TEST_F(KilledPreferencesTest, HoldAllOrNothingOfEachTransactionAndAllThatWereDone) {
    std::mt19937 random(20260105);
    int stored = 0;
    for (int kills = 0; kills < 100; ++kills) {
        int heard = stored;
        {
            test::ChildProcess child([&] { storeForever(stored + 1); });
            for (auto wanted = random() % 5; wanted > 0; --wanted)
                heard = nextDone();
            // Somewhere in what comes next, be it the opening.
            spin(random() % 300'000);
        }
        const int done = lastDone(heard);
        const auto preferences = openPatiently();
        const auto number = static_cast<int>(preferences->number(u"number"_s));
        ASSERT_GE(number, done);
        ASSERT_LE(number, done + 1);
        if (number > 0) {
            ASSERT_EQ(preferences->data(u"document"_s),
                      QByteArray(1000 + number % 7 * 20'000, char('a' + number % 26)));
            ASSERT_EQ(preferences->storedValue(u"even"_s),
                      number % 2 == 0 ? std::optional(Value(true)) : std::nullopt);
        }
        stored = number;
    }
    EXPECT_GT(stored, 100);
    EXPECT_EQ(queried("PRAGMA integrity_check"), u"ok"_s);
    EXPECT_EQ(movedAside(), QStringList());
}

TEST_F(KilledPreferencesTest, OpenAfterAKillInTheMidstOfBeingMade) {
    std::mt19937 random(7);
    for (int kills = 0; kills < 40; ++kills) {
        QDir(m_folder).removeRecursively();
        {
            test::ChildProcess child([&] {
                const int ready = 1;
                EXPECT_EQ(::write(m_pipe[1], &ready, sizeof ready), ssize_t(sizeof ready));
                const auto preferences = openPatiently();
                pause();
            });
            nextDone();
            spin(random() % 2'000'000);
        }
        openPatiently()->setNumber(u"kills"_s, kills);
        ASSERT_EQ(openPatiently()->storedValue(u"kills"_s), Value(double(kills)));
        ASSERT_EQ(movedAside(), QStringList());
    }
}

} // namespace
} // namespace tolvar
