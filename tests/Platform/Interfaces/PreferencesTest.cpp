#include "Platform/Interfaces/Preferences.h"

#include "Platform/Null/MemoryPreferences.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <memory>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

/// Keeps values and counts how often it is asked to store some.
class CountingPreferences final : public Preferences {
public:
    int writes = 0;
    Changes lastChanges;

private:
    std::optional<Value> read(const QString& key) const override {
        const auto found = m_values.find(key);
        return found != m_values.end() ? found->second : std::nullopt;
    }
    void write(const Changes& changes) override {
        ++writes;
        lastChanges = changes;
        for (const auto& [key, change] : changes)
            m_values[key] = change;
    }

    Changes m_values;
};

class PreferencesTest : public testing::Test {
protected:
    Subscription count(const QString& key, int& times) {
        return preferences.observe(key, [&times] { ++times; });
    }

    CountingPreferences preferences;
};

TEST_F(PreferencesTest, ReadAnUnknownKeyAsNothing) {
    EXPECT_FALSE(preferences.boolean(u"a"_s));
    EXPECT_EQ(preferences.number(u"a"_s), 0);
    EXPECT_EQ(preferences.text(u"a"_s), QString());
    EXPECT_EQ(preferences.data(u"a"_s), std::nullopt);
    EXPECT_EQ(preferences.storedValue(u"a"_s), std::nullopt);
}

TEST_F(PreferencesTest, KeepValuesOfEachType) {
    preferences.setBoolean(u"flag"_s, true);
    preferences.setNumber(u"number"_s, 0.1);
    preferences.setText(u"text"_s, u"Tólvar"_s);
    preferences.setData(u"data"_s, QByteArray("\0x", 2));
    EXPECT_TRUE(preferences.boolean(u"flag"_s));
    EXPECT_EQ(preferences.number(u"number"_s), 0.1);
    EXPECT_EQ(preferences.text(u"text"_s), u"Tólvar"_s);
    EXPECT_EQ(preferences.data(u"data"_s), QByteArray("\0x", 2));
}

TEST_F(PreferencesTest, TellAnEmptyValueFromNone) {
    preferences.setData(u"data"_s, QByteArray());
    EXPECT_EQ(preferences.data(u"data"_s), QByteArray());
    preferences.remove(u"data"_s);
    EXPECT_EQ(preferences.data(u"data"_s), std::nullopt);
}

TEST_F(PreferencesTest, ReadTheFactoryValueOfAKeyThatIsNotStored) {
    preferences.registerDefaults({{u"flag"_s, true}, {u"number"_s, 0.8}, {u"text"_s, u"x"_s}});
    EXPECT_TRUE(preferences.boolean(u"flag"_s));
    EXPECT_EQ(preferences.number(u"number"_s), 0.8);
    EXPECT_EQ(preferences.text(u"text"_s), u"x"_s);
    EXPECT_EQ(preferences.storedValue(u"flag"_s), std::nullopt);
    EXPECT_EQ(preferences.writes, 0);

    preferences.setBoolean(u"flag"_s, false);
    EXPECT_FALSE(preferences.boolean(u"flag"_s));
    preferences.remove(u"flag"_s);
    EXPECT_TRUE(preferences.boolean(u"flag"_s));
}

TEST_F(PreferencesTest, AddFactoryValuesToThoseTheyHave) {
    preferences.registerDefaults({{u"a"_s, 1.0}, {u"b"_s, 2.0}});
    preferences.registerDefaults({{u"b"_s, 3.0}});
    EXPECT_EQ(preferences.number(u"a"_s), 1);
    EXPECT_EQ(preferences.number(u"b"_s), 3);
}

TEST_F(PreferencesTest, ReadAStoredValueOfAnotherTypeAsTheFactoryValue) {
    preferences.registerDefaults({{u"flag"_s, true}, {u"number"_s, 0.8}, {u"text"_s, u"x"_s}});
    preferences.setText(u"flag"_s, u"false"_s);
    preferences.setBoolean(u"number"_s, true);
    preferences.setData(u"text"_s, "y");
    EXPECT_TRUE(preferences.boolean(u"flag"_s));
    EXPECT_EQ(preferences.number(u"number"_s), 0.8);
    EXPECT_EQ(preferences.text(u"text"_s), u"x"_s);
    EXPECT_EQ(preferences.storedValue(u"text"_s), Preferences::Value(QByteArray("y")));
}

TEST_F(PreferencesTest, ReadAFactoryValueOfAnotherTypeAsNothing) {
    preferences.registerDefaults({{u"flag"_s, 1.0}, {u"data"_s, QByteArray("x")}});
    EXPECT_FALSE(preferences.boolean(u"flag"_s));
    EXPECT_EQ(preferences.data(u"data"_s), std::nullopt);
}

TEST_F(PreferencesTest, StoreEachChangeAtOnceOutsideATransaction) {
    preferences.setBoolean(u"a"_s, true);
    preferences.remove(u"a"_s);
    EXPECT_EQ(preferences.writes, 2);
}

TEST_F(PreferencesTest, StoreATransactionAtItsEndInOneWrite) {
    preferences.setBoolean(u"gone"_s, true);
    {
        const Preferences::Transaction together(preferences);
        preferences.setNumber(u"a"_s, 1);
        preferences.setNumber(u"a"_s, 2);
        preferences.remove(u"gone"_s);
        EXPECT_EQ(preferences.writes, 1);
        EXPECT_EQ(preferences.number(u"a"_s), 2);
        EXPECT_FALSE(preferences.boolean(u"gone"_s));
        EXPECT_EQ(preferences.storedValue(u"gone"_s), std::nullopt);
    }
    EXPECT_EQ(preferences.writes, 2);
    EXPECT_EQ(preferences.lastChanges,
              (Preferences::Changes{{u"a"_s, 2.0}, {u"gone"_s, std::nullopt}}));
    EXPECT_EQ(preferences.number(u"a"_s), 2);
}

TEST_F(PreferencesTest, StoreOnlyAtTheEndOfTheOutermostTransaction) {
    {
        const Preferences::Transaction outer(preferences);
        {
            const Preferences::Transaction inner(preferences);
            preferences.setNumber(u"a"_s, 1);
        }
        preferences.setNumber(u"b"_s, 2);
        EXPECT_EQ(preferences.writes, 0);
    }
    EXPECT_EQ(preferences.writes, 1);
    EXPECT_EQ(preferences.lastChanges.size(), 2u);
}

TEST_F(PreferencesTest, StoreNothingForATransactionWithoutChanges) {
    { const Preferences::Transaction idle(preferences); }
    EXPECT_EQ(preferences.writes, 0);
    preferences.setNumber(u"a"_s, 1);
    EXPECT_EQ(preferences.writes, 1);
}

TEST_F(PreferencesTest, TellObserversOfTheirKeyOnly) {
    int a = 0;
    int b = 0;
    const auto first = count(u"a"_s, a);
    const auto second = count(u"a"_s, a);
    const auto other = count(u"b"_s, b);
    EXPECT_EQ(a, 0);
    preferences.setBoolean(u"a"_s, true);
    EXPECT_EQ(a, 2);
    EXPECT_EQ(b, 0);
}

TEST_F(PreferencesTest, TellObserversOnlyOfRealChanges) {
    int changes = 0;
    const auto subscription = count(u"a"_s, changes);
    preferences.remove(u"a"_s);
    EXPECT_EQ(changes, 0);
    preferences.setBoolean(u"a"_s, false);
    EXPECT_EQ(changes, 1);
    preferences.setBoolean(u"a"_s, false);
    EXPECT_EQ(changes, 1);
    preferences.setNumber(u"a"_s, 0);
    EXPECT_EQ(changes, 2);
    preferences.remove(u"a"_s);
    EXPECT_EQ(changes, 3);
}

TEST_F(PreferencesTest, TellObserversOnceAfterATransaction) {
    int changes = 0;
    int unchanged = 0;
    preferences.setNumber(u"same"_s, 1);
    const auto subscription = count(u"a"_s, changes);
    const auto other = count(u"same"_s, unchanged);
    {
        const Preferences::Transaction together(preferences);
        preferences.setNumber(u"a"_s, 1);
        preferences.setNumber(u"a"_s, 2);
        preferences.setNumber(u"same"_s, 5);
        preferences.setNumber(u"same"_s, 1);
        EXPECT_EQ(changes, 0);
    }
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(unchanged, 0);
}

TEST_F(PreferencesTest, ShowObserversTheNewValue) {
    double seen = 0;
    const auto subscription =
        preferences.observe(u"a"_s, [&] { seen = preferences.number(u"a"_s); });
    preferences.setNumber(u"a"_s, 3);
    EXPECT_EQ(seen, 3);
}

TEST_F(PreferencesTest, LetObserversChangePreferences) {
    const auto subscription =
        preferences.observe(u"a"_s, [&] { preferences.setNumber(u"b"_s, 1); });
    int b = 0;
    const auto other = count(u"b"_s, b);
    preferences.setNumber(u"a"_s, 1);
    EXPECT_EQ(preferences.number(u"b"_s), 1);
    EXPECT_EQ(b, 1);
}

TEST_F(PreferencesTest, NoLongerTellAnObserverThatWasDropped) {
    int changes = 0;
    auto subscription = count(u"a"_s, changes);
    subscription = Subscription();
    preferences.setNumber(u"a"_s, 1);
    EXPECT_EQ(changes, 0);
}

TEST_F(PreferencesTest, LetAnObserverDropItselfAndOthers) {
    int changes = 0;
    Subscription first;
    Subscription second;
    first = preferences.observe(u"a"_s, [&] {
        ++changes;
        first = Subscription();
        second = Subscription();
    });
    second = count(u"a"_s, changes);
    preferences.setNumber(u"a"_s, 1);
    preferences.setNumber(u"a"_s, 2);
    EXPECT_EQ(changes, 1);
}

TEST(Preferences, LetASubscriptionOutliveThem) {
    auto preferences = std::make_unique<MemoryPreferences>();
    auto subscription = preferences->observe(u"a"_s, [] { FAIL(); });
    preferences.reset();
    subscription = Subscription();
}

TEST(MemoryPreferences, ForgetWhatIsRemoved) {
    MemoryPreferences preferences;
    preferences.setText(u"a"_s, u"x"_s);
    EXPECT_EQ(preferences.storedValue(u"a"_s), Preferences::Value(u"x"_s));
    preferences.remove(u"a"_s);
    EXPECT_EQ(preferences.storedValue(u"a"_s), std::nullopt);
}

} // namespace
} // namespace tolvar
