#include "Models/AppSettings.h"

#include "Models/CategoryStore.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Services/Updater.h"
#include "Support/FakeLoginItemService.h"
#include "Support/FakeUpdateSource.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

class AppSettingsTest : public testing::Test {
protected:
    AppSettingsTest() { preferences.registerDefaults(AppSettings::defaults()); }

    void resetAll() { AppSettings::resetAll(preferences, loginItem, updater, categories); }

    MemoryPreferences preferences;
    test::FakeLoginItemService loginItem;
    test::FakeUpdateSource updates;
    Updater updater{updates};
    CategoryStore categories{preferences};
};

TEST_F(AppSettingsTest, HaveTheirFactoryValuesAtFirst) {
    EXPECT_TRUE(preferences.boolean(u"showsMenuBarCountdown"_s));
    EXPECT_TRUE(preferences.boolean(u"keySoundsEnabled"_s));
    EXPECT_EQ(preferences.number(u"soundVolume"_s), 0.8);
    EXPECT_TRUE(preferences.boolean(u"sessionEndChimeEnabled"_s));
    EXPECT_FALSE(preferences.boolean(u"blockSoundEnabled"_s));
    EXPECT_TRUE(preferences.boolean(u"hapticsEnabled"_s));
    EXPECT_EQ(AppSettings::defaults().size(), 6u);
    for (const auto& [key, value] : AppSettings::defaults())
        EXPECT_EQ(preferences.storedValue(key), std::nullopt) << key.toStdString();
}

TEST_F(AppSettingsTest, AreNoLongerStoredAfterAReset) {
    preferences.setNumber(AppSettings::soundVolume, 0.3);
    preferences.setBoolean(AppSettings::hapticsEnabled, false);
    preferences.setBoolean(AppSettings::showsMenuBarCountdown, false);
    resetAll();
    EXPECT_EQ(preferences.number(AppSettings::soundVolume), 0.8);
    EXPECT_TRUE(preferences.boolean(AppSettings::hapticsEnabled));
    for (const auto& [key, value] : AppSettings::defaults())
        EXPECT_EQ(preferences.storedValue(key), std::nullopt) << key.toStdString();
}

TEST_F(AppSettingsTest, LeaveOtherPreferencesAloneInAReset) {
    preferences.setData(u"savedPresets"_s, "[]");
    preferences.setData(u"sessionHistory"_s, "[]");
    preferences.setText(u"settingsPane"_s, u"sound"_s);
    resetAll();
    EXPECT_EQ(preferences.data(u"savedPresets"_s), "[]");
    EXPECT_EQ(preferences.data(u"sessionHistory"_s), "[]");
    EXPECT_EQ(preferences.text(u"settingsPane"_s), u"sound"_s);
}

TEST_F(AppSettingsTest, TakeLoginUpdatesAndCategoriesAlongInAReset) {
    loginItem.current = LoginItemStatus::requiresApproval;
    categories.addCategory();
    resetAll();
    EXPECT_EQ(loginItem.current, LoginItemStatus::notRegistered);
    EXPECT_TRUE(updater.automaticallyChecksForUpdates());
    EXPECT_TRUE(updates.automatic);
    EXPECT_EQ(categories.categories(), BlockCategory::defaults());
    EXPECT_TRUE(preferences.data(u"blockCategories"_s).has_value());
}

TEST_F(AppSettingsTest, AreResetEvenWhenTheLoginItemCannotBe) {
    loginItem.current = LoginItemStatus::enabled;
    loginItem.error = u"No"_s;
    preferences.setNumber(AppSettings::soundVolume, 0.3);
    categories.addCategory();
    resetAll();
    EXPECT_EQ(loginItem.unregistrations, 1);
    EXPECT_EQ(preferences.number(AppSettings::soundVolume), 0.8);
    EXPECT_TRUE(updates.automatic);
    EXPECT_EQ(categories.categories(), BlockCategory::defaults());
}

TEST_F(AppSettingsTest, TellTheirObserversOfAReset) {
    preferences.setBoolean(AppSettings::showsMenuBarCountdown, false);
    std::vector<bool> seen;
    const auto subscription = preferences.observe(AppSettings::showsMenuBarCountdown, [&] {
        seen.push_back(preferences.boolean(AppSettings::showsMenuBarCountdown));
    });
    resetAll();
    EXPECT_EQ(seen, std::vector{true});
}

} // namespace
} // namespace tolvar
