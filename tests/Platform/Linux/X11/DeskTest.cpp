#include "Platform/Linux/X11/Desk.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

DeskWindow window(WindowId id, const QString& key, qint64 process, bool isHidden) {
    DeskWindow window;
    window.facts.id = id;
    window.facts.processIdentifier = process;
    window.application = {key, u"Name of "_s + key, u"entry of "_s + key, false};
    window.isHidden = isHidden;
    return window;
}

TEST(Desk, ListsEachApplicationOnceInTheOrderOfTheirWindows) {
    const Desk desk{
        {window(1, u"b"_s, 10, true), window(2, u"a"_s, 20, false), window(3, u"b"_s, 30, true)},
        2};
    const std::vector<RunningApplication> expected{
        {{u"b"_s}, u"Name of b"_s, u"entry of b"_s, 10, true, false},
        {{u"a"_s}, u"Name of a"_s, u"entry of a"_s, 20, false, true}};
    EXPECT_EQ(desk.applications(), expected);
}

TEST(Desk, TakesAnApplicationForHiddenOnlyWhenAllItsWindowsAre) {
    const Desk desk{{window(1, u"a"_s, 1, true), window(2, u"a"_s, 1, false)}, 0};
    EXPECT_FALSE(desk.application(u"a"_s)->isHidden);
}

TEST(Desk, KnowsNoFrontmostApplicationWhenAnotherWindowHasTheFocus) {
    const Desk desk{{window(1, u"a"_s, 1, false)}, 99};
    EXPECT_EQ(desk.frontmost(), std::nullopt);
    EXPECT_EQ(Desk().frontmost(), std::nullopt);
}

TEST(Desk, KnowsTheFrontmostApplicationByAnyOfItsWindows) {
    const Desk desk{{window(1, u"a"_s, 1, false), window(2, u"a"_s, 1, false)}, 2};
    EXPECT_EQ(desk.frontmost()->handle.key, u"a");
}

TEST(Desk, KnowsNoApplicationThatHasNoWindow) {
    EXPECT_EQ(Desk().application(u"a"_s), std::nullopt);
    EXPECT_TRUE(Desk().windowsOf(u"a"_s).empty());
}

} // namespace
} // namespace tolvar
