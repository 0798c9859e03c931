#include "Platform/Linux/X11/ApplicationGrouping.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 ownProcess = 7;

MatchedWindow window(WindowId id, qint64 process, const QString& className,
                     const QString& entryId = {}) {
    MatchedWindow window;
    window.facts.id = id;
    window.facts.processIdentifier = process;
    window.facts.wmClass.className = className;
    window.entryId = entryId;
    window.entryName = entryId.isEmpty() ? QString() : u"Name of "_s + entryId;
    return window;
}

std::vector<ApplicationIdentity> grouped(const std::vector<MatchedWindow>& windows) {
    return groupIntoApplications(windows, ownProcess);
}

TEST(ApplicationGrouping, MakesOneApplicationOfAnEntryInSeveralProcesses) {
    const auto identities =
        grouped({window(1, 10, u"A"_s, u"chat"_s), window(2, 20, u"A"_s, u"chat"_s)});
    EXPECT_EQ(identities[0], identities[1]);
    EXPECT_EQ(identities[0].name, u"Name of chat");
    EXPECT_EQ(identities[0].entryId, u"chat");
}

TEST(ApplicationGrouping, TellsEntriesOfOneProcessApart) {
    const auto identities =
        grouped({window(1, 10, u"A"_s, u"writer"_s), window(2, 10, u"B"_s, u"calc"_s)});
    EXPECT_NE(identities[0].key, identities[1].key);
}

TEST(ApplicationGrouping, LetsAWindowWithoutAnEntryJoinTheOneItsProcessHas) {
    const auto identities = grouped({window(1, 10, u"Helper"_s), window(2, 10, u"A"_s, u"chat"_s)});
    EXPECT_EQ(identities[0], identities[1]);
}

TEST(ApplicationGrouping, KeepsAWindowWithoutAnEntryApartWhenItsProcessHasSeveral) {
    const auto identities = grouped({window(1, 10, u"Helper"_s), window(2, 10, u"A"_s, u"writer"_s),
                                     window(3, 10, u"B"_s, u"calc"_s)});
    EXPECT_EQ(identities[0].name, u"Helper");
    EXPECT_EQ(identities[0].entryId, u"");
}

TEST(ApplicationGrouping, NamesAProcessWithoutAnEntryByItsFirstClass) {
    const auto identities =
        grouped({window(1, 10, {}), window(2, 10, u"Tool"_s), window(3, 10, u"Other"_s)});
    EXPECT_EQ(identities[0].name, u"Tool");
    EXPECT_EQ(identities[0], identities[2]);
}

TEST(ApplicationGrouping, TellsProcessesWithoutAnEntryApartEvenOfOneClass) {
    const auto identities = grouped({window(1, 10, u"Tool"_s), window(2, 20, u"Tool"_s)});
    EXPECT_NE(identities[0].key, identities[1].key);
    EXPECT_EQ(identities[0].name, identities[1].name);
}

TEST(ApplicationGrouping, GroupsWindowsWithoutAProcessByTheirClient) {
    auto first = window(1, 0, u"Remote"_s);
    auto second = window(2, 0, u"Other"_s);
    first.facts.leader = second.facts.leader = 99;
    const auto identities = grouped({first, second, window(3, 0, u"Remote"_s)});
    EXPECT_EQ(identities[0], identities[1]);
    EXPECT_NE(identities[0].key, identities[2].key);
}

TEST(ApplicationGrouping, GroupsWindowsWithNeitherByTheirClass) {
    const auto identities = grouped(
        {window(1, 0, u"Remote"_s), window(2, 0, u"Remote"_s), window(3, 0, {}), window(4, 0, {})});
    EXPECT_EQ(identities[0], identities[1]);
    EXPECT_NE(identities[2].key, identities[3].key);
}

TEST(ApplicationGrouping, GivesADialogToTheApplicationItIsFor) {
    auto dialog = window(2, 20, u"Portal"_s, u"portal"_s);
    dialog.facts.transientFor = 1;
    auto dialogOfDialog = window(3, 30, u"Help"_s);
    dialogOfDialog.facts.transientFor = 2;
    const auto identities = grouped({dialogOfDialog, dialog, window(1, 10, u"A"_s, u"chat"_s)});
    EXPECT_EQ(identities[0].entryId, u"chat");
    EXPECT_EQ(identities[1].entryId, u"chat");
}

TEST(ApplicationGrouping, TakesADialogOfAWindowThatIsNotThereForItself) {
    auto dialog = window(2, 20, u"A"_s, u"chat"_s);
    dialog.facts.transientFor = 4711;
    EXPECT_EQ(grouped({dialog})[0].entryId, u"chat");
}

TEST(ApplicationGrouping, SurvivesDialogsThatAreForEachOther) {
    auto first = window(1, 10, u"A"_s);
    auto second = window(2, 10, u"A"_s);
    first.facts.transientFor = 2;
    second.facts.transientFor = 1;
    const auto identities = grouped({first, second});
    EXPECT_EQ(identities[0], identities[1]);
}

TEST(ApplicationGrouping, KnowsOurOwnWindowsAndTheDialogsForThem) {
    auto dialog = window(2, 20, u"Portal"_s);
    dialog.facts.transientFor = 1;
    const auto identities = grouped({window(1, ownProcess, u"Tolvar"_s, u"tolvar"_s), dialog});
    EXPECT_TRUE(identities[0].isOurs);
    EXPECT_TRUE(identities[1].isOurs);
}

} // namespace
} // namespace tolvar
