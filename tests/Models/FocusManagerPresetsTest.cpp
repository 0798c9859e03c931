#include "Models/FocusManagerFixture.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FocusManagerPresets : public FocusManagerFixture {
protected:
    FocusPreset saved(const FocusSession& session = plan()) {
        manager->savePreset(session);
        journal.take();
        return manager->savedPresets().back();
    }

    static FocusPreset preset(std::initializer_list<const char16_t*> categoryIDs,
                              std::initializer_list<const char16_t*> websites) {
        FocusPreset preset;
        preset.name = u"Deep work"_s;
        preset.duration = 1500;
        preset.categoryIDs = texts(categoryIDs);
        preset.customWebsites = texts(websites);
        preset.customApps = {u"Twitter"_s};
        return preset;
    }

    void loadWith(const std::vector<FocusPreset>& presets) {
        store(presets);
        quitAndReturn();
    }
};

TEST_F(FocusManagerPresets, AreSavedFromASessionWithItsExtendedLength) {
    auto session = plan();
    session.blockCategories = {*BlockCategory::builtIn(u"News"_s),
                               *BlockCategory::builtIn(u"Gaming"_s)};
    start(session);
    manager->extendSession(600);
    manager->stopSession();
    journal.take();
    manager->savePreset(lastFiled());
    EXPECT_EQ(journal.take(), texts({u"write savedPresets"}));
    ASSERT_EQ(manager->savedPresets().size(), 1u);
    const auto& preset = manager->savedPresets().front();
    EXPECT_EQ(preset.sourceSessionId, session.id);
    EXPECT_NE(preset.id, session.id);
    EXPECT_EQ(preset.name, u"Write report"_s);
    EXPECT_EQ(preset.duration, 2100);
    EXPECT_EQ(preset.categoryIDs, texts({u"News", u"Gaming"}));
    EXPECT_EQ(preset.customApps, texts({u"Slack"}));
    EXPECT_EQ(preset.customWebsites, texts({u"example.com"}));
    EXPECT_EQ(storedPresets(), manager->savedPresets());
}

TEST_F(FocusManagerPresets, AreSavedOncePerSession) {
    const auto session = plan();
    EXPECT_FALSE(manager->isSessionSaved(session));
    saved(session);
    EXPECT_TRUE(manager->isSessionSaved(session));
    manager->savePreset(session);
    EXPECT_EQ(journal.take(), Texts());
    EXPECT_EQ(manager->savedPresets().size(), 1u);
}

TEST_F(FocusManagerPresets, MayBeSavedAgainAfterTheyWereDeleted) {
    const auto session = plan();
    manager->deletePreset(saved(session));
    EXPECT_FALSE(manager->isSessionSaved(session));
    saved(session);
    EXPECT_EQ(manager->savedPresets().size(), 1u);
}

TEST_F(FocusManagerPresets, StandInTheOrderTheyWereSaved) {
    const std::vector<FocusPreset> inOrder = {saved(), saved(), saved()};
    EXPECT_EQ(manager->savedPresets(), inOrder);
    quitAndReturn();
    EXPECT_EQ(manager->savedPresets(), inOrder);
}

TEST_F(FocusManagerPresets, AreDeletedWithThoseOfTheSameSessionAndOnlyThose) {
    auto first = preset({}, {});
    first.sourceSessionId = QUuid::createUuid();
    auto twin = preset({}, {});
    twin.sourceSessionId = first.sourceSessionId;
    auto other = preset({}, {});
    other.sourceSessionId = QUuid::createUuid();
    const auto homemade = preset({}, {});
    loadWith({homemade, first, other, twin});
    journal.take();
    manager->deletePreset(manager->savedPresets()[1]);
    EXPECT_EQ(journal.take(), texts({u"write savedPresets"}));
    EXPECT_EQ(manager->savedPresets(), (std::vector{homemade, other}));
    EXPECT_EQ(storedPresets(), manager->savedPresets());
}

TEST_F(FocusManagerPresets, WithoutASessionAreDeletedAlone) {
    const std::vector presets = {preset({}, {}), preset({}, {}), preset({}, {})};
    loadWith(presets);
    manager->deletePreset(presets[1]);
    EXPECT_EQ(manager->savedPresets(), (std::vector{presets[0], presets[2]}));
}

TEST_F(FocusManagerPresets, AreDeletedWithEveryOtherOfTheSameIdentity) {
    const auto twin = preset({}, {});
    const auto other = preset({}, {});
    loadWith({twin, other, twin});
    manager->deletePreset(manager->savedPresets().front());
    EXPECT_EQ(manager->savedPresets(), std::vector{other});
}

TEST_F(FocusManagerPresets, MayBeDeletedThroughTheListItself) {
    const auto first = saved();
    saved();
    saved();
    while (manager->savedPresets().size() > 1)
        manager->deletePreset(manager->savedPresets()[1]);
    EXPECT_EQ(manager->savedPresets(), std::vector{first});
}

TEST_F(FocusManagerPresets, AreWrittenBackAlsoWhenAnUnknownOneIsDeleted) {
    const auto kept = saved();
    manager->deletePreset(preset({}, {}));
    EXPECT_EQ(journal.take(), texts({u"write savedPresets"}));
    EXPECT_EQ(manager->savedPresets(), std::vector{kept});
}

TEST_F(FocusManagerPresets, AreCountedByTheCategoryTheyUse) {
    loadWith({preset({u"News", u"Gaming"}, {}), preset({u"News", u"News"}, {}), preset({}, {})});
    EXPECT_EQ(manager->presetCount(u"News"_s), 2);
    EXPECT_EQ(manager->presetCount(u"Gaming"_s), 1);
    EXPECT_EQ(manager->presetCount(u"news"_s), 0);
    EXPECT_EQ(manager->presetCount(u"Shopping"_s), 0);
}

TEST_F(FocusManagerPresets, LoseWebsitesTheirBuiltInCategoriesHaveAndAreWrittenBackOnce) {
    auto cleaned = preset({u"News", u"my-own"}, {u"docs.org", u"CNN.com"});
    auto duplicated = cleaned;
    duplicated.customWebsites = texts({u"cnn.com", u"docs.org", u"bbc.com", u"CNN.com"});
    const auto untouched = preset({u"Gaming"}, {u"cnn.com"});
    loadWith({untouched, duplicated});
    EXPECT_EQ(journal.take(), texts({u"ask for permission", u"write savedPresets"}));
    EXPECT_EQ(manager->savedPresets(), (std::vector{untouched, cleaned}));
    EXPECT_EQ(storedPresets(), manager->savedPresets());

    quitAndReturn();
    EXPECT_EQ(journal.take(), texts({u"ask for permission"}));
    EXPECT_EQ(manager->savedPresets(), (std::vector{untouched, cleaned}));
}

TEST_F(FocusManagerPresets, StayStoredAsTheyAreWhileTheyCannotBeRead) {
    desk.preferences.setData(u"savedPresets"_s, "[1]");
    quitAndReturn();
    EXPECT_EQ(journal.take(), texts({u"ask for permission"}));
    EXPECT_TRUE(manager->savedPresets().empty());
    EXPECT_EQ(desk.preferences.data(u"savedPresets"_s), "[1]");
}

TEST_F(FocusManagerPresets, StayStoredAsTheyWereWhenOneCannotBeWritten) {
    const auto readable = saved();
    auto endless = plan();
    endless.duration = std::numeric_limits<double>::infinity();
    manager->savePreset(endless);
    EXPECT_EQ(journal.take(), Texts());
    EXPECT_EQ(storedPresets(), std::vector{readable});
    EXPECT_EQ(manager->savedPresets().size(), 2u);
}

class FocusManagerHistory : public FocusManagerFixture {
protected:
    void file(int count) {
        for (int number = 0; number < count; ++number) {
            start();
            clock.advance(minute);
            manager->stopSession();
        }
        journal.take();
    }
};

TEST_F(FocusManagerHistory, LosesOneEntryAndKeepsTheOrderOfTheRest) {
    file(3);
    const auto before = manager->sessionHistory();
    manager->deleteSession(before[1]);
    EXPECT_EQ(journal.take(), texts({u"write sessionHistory"}));
    EXPECT_EQ(manager->sessionHistory(), (std::vector{before[0], before[2]}));
    EXPECT_EQ(storedHistory(), manager->sessionHistory());
}

TEST_F(FocusManagerHistory, LosesEveryEntryWithTheSameIdentity) {
    file(2);
    auto twice = manager->sessionHistory();
    twice.push_back(twice.front());
    desk.preferences.setData(u"sessionHistory"_s, RecordCoding::encode(twice).value());
    quitAndReturn();
    EXPECT_EQ(manager->sessionHistory().size(), 3u) << "entries are taken as stored";
    manager->deleteSession(manager->sessionHistory().front());
    EXPECT_EQ(manager->sessionHistory(), std::vector{twice[1]});
}

TEST_F(FocusManagerHistory, MayBeDeletedThroughTheListItself) {
    file(4);
    const auto last = lastFiled();
    while (manager->sessionHistory().size() > 1)
        manager->deleteSession(manager->sessionHistory().front());
    EXPECT_EQ(manager->sessionHistory(), std::vector{last});
}

TEST_F(FocusManagerHistory, IsWrittenBackAlsoWhenAnUnknownEntryIsDeleted) {
    file(1);
    manager->deleteSession(plan());
    EXPECT_EQ(journal.take(), texts({u"write sessionHistory"}));
    EXPECT_EQ(manager->sessionHistory().size(), 1u);
}

TEST_F(FocusManagerHistory, IsClearedWhole) {
    file(3);
    manager->clearHistory();
    EXPECT_EQ(journal.take(), texts({u"write sessionHistory"}));
    EXPECT_TRUE(manager->sessionHistory().empty());
    EXPECT_TRUE(storedHistory().empty());
    EXPECT_EQ(desk.preferences.data(u"sessionHistory"_s), "[]");
}

TEST_F(FocusManagerHistory, LeavesTheRunningSessionAndThePresetsAlone) {
    file(1);
    manager->savePreset(lastFiled());
    start();
    manager->clearHistory();
    EXPECT_TRUE(manager->currentSession());
    EXPECT_EQ(manager->savedPresets().size(), 1u);
    EXPECT_TRUE(isSlackHidden());
}

} // namespace
} // namespace tolvar::test
