#include "App/Client/BrowserStatus.h"

#include "Support/Texts.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using State = BrowserCompanion::State;

BrowserCompanion chromium(State state = State::setUp) {
    return {.id = u"chromium"_s,
            .name = u"Chromium"_s,
            .state = state,
            .processes = {u"chromium"_s, u"chromium-browser"_s},
            .obstacle = std::nullopt,
            .remainder = u"wave at it"_s,
            .leftover = {}};
}

BrowserCompanion snapOfFirefox() {
    return {.id = u"firefox"_s,
            .name = u"Firefox"_s,
            .state = State::notSetUp,
            .processes = {u"firefox"_s},
            .obstacle = u"it is a Snap"_s,
            .remainder = u"wave at it"_s,
            .leftover = {}};
}

QString stateColumn(const BrowserStatus& browser) {
    return browserTable({browser}).split(u'\n').at(1).section(u"  "_s, 2);
}

TEST(BrowserStatus, KnowsABrowserByTheNameOfItsProcessHoweverManyConnect) {
    EXPECT_EQ(browserStatus({chromium(), snapOfFirefox()},
                            {u"chromium-browser"_s, u"chromium-browser 2"_s}),
              (std::vector<BrowserStatus>{{chromium(), true}, {snapOfFirefox(), false}}));
}

TEST(BrowserStatus, OwnsUpToBrowsersThatNobodyExpected) {
    const auto browsers = browserStatus({}, {u"odd browser"_s, u"odd browser 2"_s});
    ASSERT_EQ(browsers.size(), 1u);
    EXPECT_EQ(browsers[0].companion.name, u"odd browser"_s);
    EXPECT_EQ(stateColumn(browsers[0]), u"connected, but not set up"_s);
}

TEST(BrowserStatus, SaysHowEachStands) {
    EXPECT_EQ(stateColumn({chromium(), true}), u"connected"_s);
    EXPECT_EQ(stateColumn({chromium(), false}), u"set up"_s);
    EXPECT_EQ(stateColumn({chromium(State::notSetUp), false}), u"not set up"_s);
    EXPECT_EQ(stateColumn({chromium(State::outOfDate), false}), u"out of date"_s);
    EXPECT_EQ(stateColumn({chromium(State::outOfDate), true}), u"connected, but out of date"_s);
    EXPECT_EQ(stateColumn({snapOfFirefox(), false}), u"cannot be reached: it is a Snap"_s);
    EXPECT_EQ(stateColumn({snapOfFirefox(), true}), u"connected, but not set up"_s);
}

TEST(BrowserStatus, SaysWhatIsLeftToDoOnlyOfThoseThatAreSetUpAndNotHeardFrom) {
    EXPECT_EQ(browserTable({{chromium(), false}}), u"NAME      BROWSER   STATE\n"
                                                   u"chromium  Chromium  set up\n"
                                                   u"Chromium: wave at it\n"_s);
    for (const auto& [companion, isConnected] :
         {std::pair(chromium(), true), std::pair(chromium(State::notSetUp), false),
          std::pair(chromium(State::outOfDate), false), std::pair(snapOfFirefox(), false)})
        EXPECT_FALSE(browserTable({{companion, isConnected}}).contains(u"wave"_s));
}

TEST(BrowserStatus, SaysThatThereIsNoBrowser) {
    EXPECT_EQ(browserTable({}), u"No browser that Tolvar knows is installed.\n"_s);
}

TEST(BrowserStatus, TellsProgramsTheSame) {
    const auto json = [](const BrowserStatus& browser) {
        return QJsonDocument(toJson(browser)).toJson(QJsonDocument::Compact).toStdString();
    };
    EXPECT_EQ(json({chromium(), true}),
              R"({"browser":"chromium","connected":true,"name":"Chromium","state":"connected"})");
    EXPECT_EQ(json({chromium(), false}),
              R"({"browser":"chromium","connected":false,"name":"Chromium",)"
              R"("remainder":"wave at it","state":"setUp"})");
    EXPECT_EQ(json({chromium(State::outOfDate), true}),
              R"({"browser":"chromium","connected":true,"name":"Chromium","state":"outOfDate"})");
    EXPECT_EQ(json({snapOfFirefox(), false}),
              R"({"browser":"firefox","connected":false,"name":"Firefox",)"
              R"("reason":"it is a Snap","state":"unreachable"})");
}

} // namespace
} // namespace tolvar
