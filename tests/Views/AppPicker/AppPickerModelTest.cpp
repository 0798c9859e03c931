#include "Views/AppPicker/AppPickerModel.h"

#include "Support/Texts.h"

#include <QLocale>

#include <gmock/gmock.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Row = AppPickerModel::Row;
using Kind = Row::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

class AppPickerModelTest : public testing::Test {
protected:
    void load(const std::set<QString>& selected) { model.loadInstalledApps(selected, installed); }

    std::vector<QString> installed{u"Browser"_s, u"Chat"_s, u"Mail"_s, u"Slack"_s};
    AppPickerModel model;
};

TEST_F(AppPickerModelTest, PinsWhatIsSelectedAboveTheOthers) {
    load({u"Mail"_s, u"Chat"_s});
    EXPECT_THAT(model.pinnedApps(), ElementsAre(u"Chat"_s, u"Mail"_s));
    EXPECT_THAT(model.otherApps(), ElementsAre(u"Browser"_s, u"Slack"_s));
}

TEST_F(AppPickerModelTest, PinsAnApplicationThatIsNotInstalled) {
    load({u"Gone"_s});
    EXPECT_THAT(model.pinnedApps(), ElementsAre(u"Gone"_s));
    EXPECT_EQ(model.otherApps(), installed);
}

TEST_F(AppPickerModelTest, SortsPinnedApplicationsCapitalsFirst) {
    load({u"zsh"_s, u"apple"_s, u"Zebra"_s, u"Ärger"_s, u"\U0001F600"_s, u"\uFB01"_s});
    EXPECT_THAT(model.pinnedApps(), ElementsAre(u"Zebra"_s, u"apple"_s, u"zsh"_s, u"Ärger"_s,
                                                u"\uFB01"_s, u"\U0001F600"_s));
}

TEST_F(AppPickerModelTest, KeepsBothOfOneName) {
    installed = {u"Chat"_s, u"Chat"_s, u"Mail"_s};
    load({});
    EXPECT_THAT(model.otherApps(), ElementsAre(u"Chat"_s, u"Chat"_s, u"Mail"_s));
    load({u"Chat"_s});
    EXPECT_THAT(model.pinnedApps(), ElementsAre(u"Chat"_s));
    EXPECT_THAT(model.otherApps(), ElementsAre(u"Mail"_s));
}

TEST_F(AppPickerModelTest, LeavesPinnedOnesWhereTheyAreWhenTheyAreUnticked) {
    load({u"Chat"_s});
    model.toggle(u"Chat"_s);
    EXPECT_FALSE(model.isSelected(u"Chat"_s));
    EXPECT_THAT(model.pinnedApps(), ElementsAre(u"Chat"_s));
}

TEST_F(AppPickerModelTest, LeavesTickedOnesAmongTheOthers) {
    load({u"Chat"_s});
    model.toggle(u"Slack"_s);
    EXPECT_TRUE(model.isSelected(u"Slack"_s));
    EXPECT_THAT(model.otherApps(), ElementsAre(u"Browser"_s, u"Mail"_s, u"Slack"_s));
}

TEST_F(AppPickerModelTest, TogglesThereAndBack) {
    load({u"Chat"_s});
    model.toggle(u"Mail"_s);
    model.toggle(u"Chat"_s);
    EXPECT_THAT(model.selectedApps(), ElementsAre(u"Mail"_s));
    model.toggle(u"Mail"_s);
    EXPECT_THAT(model.selectedApps(), IsEmpty());
}

TEST_F(AppPickerModelTest, ClearsAlsoWhatTheSearchHides) {
    load({u"Chat"_s, u"Gone"_s});
    model.setSearchText(u"mail"_s);
    model.clearSelection();
    EXPECT_THAT(model.selectedApps(), IsEmpty());
    EXPECT_THAT(model.pinnedApps(), ElementsAre(u"Chat"_s, u"Gone"_s));
}

TEST_F(AppPickerModelTest, FindsWhateverTheCaseInEitherSection) {
    model.setSearchText(u"SLA"_s);
    EXPECT_THAT(model.matchingSearch({u"Slack"_s, u"Mail"_s, u"Isla"_s}),
                ElementsAre(u"Slack"_s, u"Isla"_s));
    load({u"Slack"_s});
    model.setSearchText(u"SLA"_s);
    EXPECT_THAT(model.rows(),
                ElementsAre(Row{Kind::heading, u"Selected"_s}, Row{Kind::app, u"Slack"_s}));
    load({});
    model.setSearchText(u"SLA"_s);
    EXPECT_THAT(model.rows(),
                ElementsAre(Row{Kind::heading, u"Other apps"_s}, Row{Kind::app, u"Slack"_s}));
}

TEST_F(AppPickerModelTest, FindsEverythingWhileNothingIsSearched) {
    EXPECT_EQ(model.matchingSearch({u"b"_s, u"a"_s}), (std::vector{u"b"_s, u"a"_s}));
}

TEST_F(AppPickerModelTest, TakesSpacesInASearchAsTheyAre) {
    model.setSearchText(u" "_s);
    EXPECT_THAT(model.matchingSearch({u"Two Words"_s, u"One"_s}), ElementsAre(u"Two Words"_s));
}

TEST_F(AppPickerModelTest, TakesNothingInASearchForAPattern) {
    model.setSearchText(u".*"_s);
    EXPECT_THAT(model.matchingSearch({u"Mail"_s, u"a.*b"_s}), ElementsAre(u"a.*b"_s));
}

TEST_F(AppPickerModelTest, FindsLettersHoweverTheyAreComposed) {
    model.setSearchText(u"e\u0301CRAN"_s);
    EXPECT_THAT(model.matchingSearch({u"Grand \u00C9cran"_s, u"Ecran"_s}),
                ElementsAre(u"Grand \u00C9cran"_s));
}

TEST_F(AppPickerModelTest, KnowsTheLettersOfTheUsersLanguage) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Turkish));
    model.setSearchText(u"IŞIK"_s);
    EXPECT_THAT(model.matchingSearch({u"Gün ışık"_s, u"işik"_s}), ElementsAre(u"Gün ışık"_s));
    QLocale::setDefault(before);
}

TEST_F(AppPickerModelTest, HasNoHeadingAboveNothing) {
    load({});
    EXPECT_EQ(model.rows().front(), (Row{Kind::heading, u"Other apps"_s}));
    load({u"Browser"_s, u"Chat"_s, u"Mail"_s, u"Slack"_s});
    EXPECT_EQ(model.rows().front(), (Row{Kind::heading, u"Selected"_s}));
    EXPECT_EQ(model.rows().size(), 5u);
}

TEST_F(AppPickerModelTest, SaysWhatItCouldNotFind) {
    load({u"Chat"_s});
    EXPECT_EQ(model.emptyText(), QString());
    model.setSearchText(u"%1 quilt"_s);
    EXPECT_THAT(model.rows(), IsEmpty());
    EXPECT_EQ(model.emptyText(), u"No apps match “%1 quilt”");
}

TEST_F(AppPickerModelTest, SaysThatThereIsNothingToChooseFrom) {
    installed = {};
    load({});
    EXPECT_EQ(model.emptyText(), u"No apps found on this computer");
}

TEST_F(AppPickerModelTest, CountsInWords) {
    load({});
    EXPECT_EQ(model.countText(), u"No apps selected");
    model.toggle(u"Chat"_s);
    EXPECT_EQ(model.countText(), u"1 app selected");
    model.toggle(u"Mail"_s);
    EXPECT_EQ(model.countText(), u"2 apps selected");
}

TEST_F(AppPickerModelTest, BeginsAfreshEachTime) {
    load({u"Chat"_s});
    model.setSearchText(u"mail"_s);
    model.toggle(u"Mail"_s);
    load(model.selectedApps());
    EXPECT_EQ(model.searchText(), QString());
    EXPECT_THAT(model.pinnedApps(), ElementsAre(u"Chat"_s, u"Mail"_s));
}

} // namespace
} // namespace tolvar::test
