#include "Models/CategoryStore.h"

#include "Models/RecordCoding.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Support/Texts.h"

#include <QUuid>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using test::Texts;
using test::texts;

const QString key = u"blockCategories"_s;

class CategoryStoreTest : public testing::Test {
protected:
    CategoryStoreTest() {
        QObject::connect(&store, &CategoryStore::categoriesChanged, &store, [this] {
            ++published;
            storedWhenPublished = stored();
        });
    }

    std::vector<BlockCategory> stored() const {
        const auto json = preferences.data(key);
        return json ? RecordCoding::decodeCategories(*json).value_or(nothing) : nothing;
    }
    Texts idsIn(const std::vector<BlockCategory>& categories) const {
        Texts ids;
        for (const auto& category : categories)
            ids.push_back(category.id);
        return ids;
    }
    Texts apps(const QString& id) const { return store.category(id)->apps; }
    Texts websites(const QString& id) const { return store.category(id)->websites; }

    /// One publication and one save, of the same list.
    void expectOneChange() {
        EXPECT_EQ(published, 1);
        EXPECT_EQ(stored(), store.categories());
        published = 0;
    }
    void expectNoChange() {
        EXPECT_EQ(published, 0);
        EXPECT_EQ(preferences.data(key), std::nullopt);
        EXPECT_EQ(store.categories(), BlockCategory::defaults());
    }

    const std::vector<BlockCategory> nothing;
    MemoryPreferences preferences;
    CategoryStore store{preferences};
    int published = 0;
    std::vector<BlockCategory> storedWhenPublished;
};

TEST_F(CategoryStoreTest, HoldsTheBuiltInCategoriesAtFirst) {
    EXPECT_EQ(idsIn(store.categories()), texts({u"Social Media", u"Shopping", u"News",
                                                u"Entertainment", u"Gaming", u"Messaging"}));
    expectNoChange();
}

TEST_F(CategoryStoreTest, TakesAStoredListAsItIs) {
    preferences.setData(key, R"([{"id":"Work","name":"","apps":["b","a"],"websites":[]},"News"])");
    const CategoryStore loaded(preferences);
    const BlockCategory work{
        .id = u"Work"_s, .name = u""_s, .apps = texts({u"b", u"a"}), .websites = {}};
    EXPECT_EQ(loaded.categories(), (std::vector{work, BlockCategory::defaults()[2]}));
}

TEST_F(CategoryStoreTest, TakesAnEmptyStoredListAsItIs) {
    preferences.setData(key, "[]");
    EXPECT_TRUE(CategoryStore(preferences).categories().empty());
}

TEST_F(CategoryStoreTest, LeavesAnUnreadableListStoredUntilTheNextChange) {
    preferences.setData(key, "not JSON");
    CategoryStore loaded(preferences);
    EXPECT_EQ(loaded.categories(), BlockCategory::defaults());
    loaded.rename(u"Unknown"_s, u"x"_s);
    EXPECT_EQ(preferences.data(key), "not JSON");
    loaded.rename(u"News"_s, u"Newspapers"_s);
    EXPECT_EQ(stored(), loaded.categories());
}

TEST_F(CategoryStoreTest, IgnoresAStoredValueThatIsNoDocument) {
    preferences.setText(key, u"[]"_s);
    EXPECT_EQ(CategoryStore(preferences).categories(), BlockCategory::defaults());
}

TEST_F(CategoryStoreTest, LoadsWhatItSaved) {
    store.addWebsite(u"example.com"_s, u"News"_s);
    store.rename(store.addCategory().id, u"Arbeit \U0001F3F0"_s);
    EXPECT_EQ(CategoryStore(preferences).categories(), store.categories());
}

TEST_F(CategoryStoreTest, PublishesAChangeBeforeItIsSaved) {
    store.rename(u"News"_s, u"One"_s);
    const auto first = stored();
    store.rename(u"News"_s, u"Two"_s);
    EXPECT_EQ(storedWhenPublished, first);
    EXPECT_EQ(store.category(u"News"_s)->name, u"Two"_s);
}

TEST_F(CategoryStoreTest, FindsACategoryByItsExactId) {
    EXPECT_EQ(store.category(u"News"_s), BlockCategory::defaults()[2]);
    EXPECT_EQ(store.category(u"news"_s), std::nullopt);
}

TEST_F(CategoryStoreTest, ChangesTheFirstOfTwoCategoriesWithOneId) {
    preferences.setData(key, R"(["Work","Work"])");
    CategoryStore loaded(preferences);
    loaded.rename(u"Work"_s, u"First"_s);
    EXPECT_EQ(loaded.categories()[0].name, u"First"_s);
    EXPECT_EQ(loaded.categories()[1].name, u"Work"_s);
    EXPECT_EQ(loaded.category(u"Work"_s)->name, u"First"_s);
}

TEST_F(CategoryStoreTest, AppendsAnEmptyCategoryWithAFreshId) {
    const auto added = store.addCategory();
    expectOneChange();
    EXPECT_EQ(added.name, u""_s);
    EXPECT_TRUE(added.apps.empty());
    EXPECT_TRUE(added.websites.empty());
    EXPECT_EQ(added.id, QUuid::fromString(added.id).toString(QUuid::WithoutBraces).toUpper());
    EXPECT_EQ(store.categories().size(), 7u);
    EXPECT_EQ(store.categories().back(), added);
    EXPECT_NE(store.addCategory().id, added.id);
}

TEST_F(CategoryStoreTest, DeletesOnlyTheUsersOwnCategories) {
    store.deleteCategory(u"Gaming"_s);
    expectNoChange();
    const auto id = store.addCategory().id;
    published = 0;
    store.deleteCategory(id);
    expectOneChange();
    EXPECT_EQ(store.categories(), BlockCategory::defaults());
}

TEST_F(CategoryStoreTest, DeletesEveryCategoryOfTheId) {
    preferences.setData(key, R"(["Work","News","Work"])");
    CategoryStore loaded(preferences);
    loaded.deleteCategory(u"Work"_s);
    EXPECT_EQ(idsIn(loaded.categories()), texts({u"News"}));
}

TEST_F(CategoryStoreTest, RenamesToExactlyTheGivenName) {
    store.rename(u"News"_s, u"  Papers "_s);
    expectOneChange();
    EXPECT_EQ(store.category(u"News"_s)->name, u"  Papers "_s);
    store.rename(u"News"_s, u""_s);
    EXPECT_EQ(store.category(u"News"_s)->name, u""_s);
}

TEST_F(CategoryStoreTest, RestoresABuiltInCategoryWholly) {
    store.rename(u"News"_s, u"Papers"_s);
    store.removeApp(u"Reeder"_s, u"News"_s);
    store.addWebsite(u"example.com"_s, u"News"_s);
    published = 0;
    store.restoreDefaults(u"News"_s);
    expectOneChange();
    EXPECT_EQ(store.categories(), BlockCategory::defaults());
}

TEST_F(CategoryStoreTest, RestoresNothingOfTheUsersOwnOrOfADeletedCategory) {
    preferences.setData(key, R"([{"id":"Work","name":"W","apps":["a"],"websites":[]}])");
    CategoryStore loaded(preferences);
    const auto before = loaded.categories();
    loaded.restoreDefaults(u"Work"_s);
    loaded.restoreDefaults(u"News"_s);
    EXPECT_EQ(loaded.categories(), before);
}

TEST_F(CategoryStoreTest, SortsApplicationsNaturally) {
    store.setApps({u"zoom"_s, u"Arc"_s, u"App 10"_s, u"App 2"_s}, u"News"_s);
    expectOneChange();
    EXPECT_EQ(apps(u"News"_s), texts({u"App 2", u"App 10", u"Arc", u"zoom"}));
    store.setApps({}, u"News"_s);
    EXPECT_EQ(apps(u"News"_s), Texts());
}

TEST_F(CategoryStoreTest, RemovesAnApplicationByItsExactName) {
    store.removeApp(u"slack"_s, u"Messaging"_s);
    EXPECT_EQ(apps(u"Messaging"_s), BlockCategory::defaults()[5].apps);
    published = 0;
    store.removeApp(u"Slack"_s, u"Messaging"_s);
    expectOneChange();
    EXPECT_EQ(apps(u"Messaging"_s), texts({u"Discord", u"WhatsApp", u"Telegram", u"Messages"}));
}

TEST_F(CategoryStoreTest, RemovesEveryEntryOfAnApplication) {
    preferences.setData(
        key, R"([{"id":"W","name":"","apps":["a","b","a"],"websites":["x.y","z.y","x.y"]}])");
    CategoryStore loaded(preferences);
    loaded.removeApp(u"a"_s, u"W"_s);
    loaded.removeWebsite(u"x.y"_s, u"W"_s);
    EXPECT_EQ(loaded.category(u"W"_s)->apps, texts({u"b"}));
    EXPECT_EQ(loaded.category(u"W"_s)->websites, texts({u"z.y"}));
}

TEST_F(CategoryStoreTest, AddsANormalisedWebsiteAtTheEndOnce) {
    const auto id = store.addCategory().id;
    EXPECT_TRUE(store.addWebsite(u"zeit.de"_s, id));
    published = 0;
    EXPECT_TRUE(store.addWebsite(u"  https://WWW.Example.com/path \n"_s, id));
    expectOneChange();
    EXPECT_EQ(websites(id), texts({u"zeit.de", u"example.com"}));
    EXPECT_FALSE(store.addWebsite(u"Example.com"_s, id));
    EXPECT_EQ(published, 0);
    EXPECT_EQ(websites(id), texts({u"zeit.de", u"example.com"}));
}

TEST_F(CategoryStoreTest, KnowsAnInternationalNameInEverySpelling) {
    EXPECT_TRUE(store.addWebsite(u"M\u00fcnchen.de"_s, u"News"_s));
    EXPECT_FALSE(store.addWebsite(u"https://xn--mnchen-3ya.de/"_s, u"News"_s));
    EXPECT_EQ(websites(u"News"_s).back(), u"xn--mnchen-3ya.de"_s);
}

TEST_F(CategoryStoreTest, AddsNothingToAnUnknownCategory) {
    EXPECT_FALSE(store.addWebsite(u"example.com"_s, u"Unknown"_s));
    expectNoChange();
}

class RejectedWebsite : public CategoryStoreTest,
                        public testing::WithParamInterface<const char16_t*> {};

TEST_P(RejectedWebsite, IsNotAdded) {
    EXPECT_FALSE(store.addWebsite(QString::fromUtf16(GetParam()), u"News"_s));
    expectNoChange();
}

INSTANTIATE_TEST_SUITE_P(Texts, RejectedWebsite,
                         testing::Values(u"", u"   ", u"example", u"localhost", u"localhost:8080",
                                         u".example", u"example.", u"example.com.", u".", u"..",
                                         u"foo_bar.example.com", u"https://foo_bar.example.com/",
                                         u"*.example.com", u"my site.com", u"https:example.com",
                                         u"about:blank", u"[::1]", u"2001:db8::1", u"a,b.com",
                                         u"exa%2Fmple.com", u"\U0001F3F0\u200b\u2028.com"));

class AcceptedWebsite
    : public CategoryStoreTest,
      public testing::WithParamInterface<std::pair<const char16_t*, const char16_t*>> {};

TEST_P(AcceptedWebsite, IsAddedAsItsHost) {
    EXPECT_TRUE(store.addWebsite(QString::fromUtf16(GetParam().first), u"News"_s));
    EXPECT_EQ(websites(u"News"_s).back(), QString::fromUtf16(GetParam().second));
}

INSTANTIATE_TEST_SUITE_P(Texts, AcceptedWebsite,
                         testing::Values(std::pair(u"a..b", u"a..b"), std::pair(u"-x.y", u"-x.y"),
                                         std::pair(u"https://a..b/path", u"a..b"),
                                         std::pair(u"example.com:8080/x", u"example.com"),
                                         std::pair(u"https://user:pw@example.com", u"example.com"),
                                         std::pair(u"mailto:x@example.com", u"example.com"),
                                         std::pair(u"WWW.WWW.example.com", u"www.example.com"),
                                         std::pair(u"192.168.1.1", u"192.168.1.1"),
                                         std::pair(u"\u4F8B\u3048.\u30C6\u30B9\u30C8",
                                                   u"xn--r8jz45g.xn--zckzah")));

TEST_F(CategoryStoreTest, RemovesAWebsiteAsItIsStored) {
    store.removeWebsite(u"HTTPS://cnn.com"_s, u"News"_s);
    EXPECT_EQ(websites(u"News"_s), BlockCategory::defaults()[2].websites);
    published = 0;
    store.removeWebsite(u"cnn.com"_s, u"News"_s);
    expectOneChange();
    EXPECT_EQ(websites(u"News"_s).size(), 4u);
}

TEST_F(CategoryStoreTest, ChangesNothingForAnUnknownId) {
    const auto unknown = u"Unknown"_s;
    store.deleteCategory(unknown);
    store.rename(unknown, u"x"_s);
    store.restoreDefaults(unknown);
    store.setApps({u"x"_s}, unknown);
    store.removeApp(u"x"_s, unknown);
    store.removeWebsite(u"cnn.com"_s, unknown);
    expectNoChange();
}

TEST_F(CategoryStoreTest, GoesBackToTheBuiltInListAsAWhole) {
    store.addCategory();
    store.rename(u"News"_s, u"Papers"_s);
    published = 0;
    store.restoreAllDefaults();
    expectOneChange();
    EXPECT_EQ(store.categories(), BlockCategory::defaults());
}

TEST_F(CategoryStoreTest, IsTheSharedOneWhileItLives) {
    EXPECT_EQ(&CategoryStore::shared(), &store);
    {
        const CategoryStore second(preferences);
        EXPECT_EQ(&CategoryStore::shared(), &store);
    }
    EXPECT_EQ(&CategoryStore::shared(), &store);
}

} // namespace
} // namespace tolvar
