#include "App/MenuBar/ChosenStatusItem.h"

#include "Support/FakeStatusItem.h"
#include "Support/HandClock.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <utility>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Presence = StatusItemPlace::Presence;

constexpr Seconds grace = 2.5;

class ChosenStatusItemTest : public testing::Test {
protected:
    HandClock clock;
    FakeStatusItemPlace* bus = nullptr;
    FakeStatusItemPlace* tray = nullptr;
    FakeStatusItemPlace* pill = nullptr;
    std::unique_ptr<ChosenStatusItem> item;

    void begin(Presence busPresence, Presence trayPresence) {
        std::vector<std::unique_ptr<StatusItemPlace>> places;
        for (auto [place, presence] : {std::pair(&bus, busPresence), std::pair(&tray, trayPresence),
                                       std::pair(&pill, Presence::present)}) {
            places.push_back(std::make_unique<FakeStatusItemPlace>(presence));
            *place = static_cast<FakeStatusItemPlace*>(places.back().get());
        }
        item = std::make_unique<ChosenStatusItem>(std::move(places), clock);
    }

    /// Which of the places have the item: "bus", "tray", "pill", in this order.
    QString taken() const {
        QStringList names;
        for (const auto& [place, name] :
             {std::pair(bus, u"bus"_s), std::pair(tray, u"tray"_s), std::pair(pill, u"pill"_s)})
            if (place->isTaken())
                names.append(name);
        return names.join(u' ');
    }
};

TEST_F(ChosenStatusItemTest, PrefersTheBusToTheTray) {
    begin(Presence::present, Presence::present);
    EXPECT_EQ(taken(), u"bus"_s);
}

TEST_F(ChosenStatusItemTest, TakesTheTrayAtOnceWhereTheBusHasNoHost) {
    begin(Presence::absent, Presence::present);
    EXPECT_EQ(taken(), u"tray"_s);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(ChosenStatusItemTest, WaitsForTheBusToAnswerBeforeItTakesTheTray) {
    begin(Presence::unknown, Presence::present);
    EXPECT_EQ(taken(), u""_s);
    bus->become(Presence::absent);
    EXPECT_EQ(taken(), u"tray"_s);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(ChosenStatusItemTest, TakesTheTrayWhenTheBusDoesNotAnswerInTime) {
    begin(Presence::unknown, Presence::present);
    clock.advance(grace);
    EXPECT_EQ(taken(), u"tray"_s);
    bus->become(Presence::present);
    EXPECT_EQ(taken(), u"bus"_s);
}

TEST_F(ChosenStatusItemTest, ShowsNoPillBeforeATrayThatIsJustStarting) {
    begin(Presence::absent, Presence::absent);
    clock.advance(grace - 0.1);
    EXPECT_EQ(taken(), u""_s);
    tray->become(Presence::present);
    EXPECT_EQ(taken(), u"tray"_s);
    clock.advance(grace);
    EXPECT_EQ(taken(), u"tray"_s);
    EXPECT_EQ(pill->made, 0);
}

TEST_F(ChosenStatusItemTest, ShowsThePillWhereThereIsNoTray) {
    begin(Presence::absent, Presence::absent);
    clock.advance(grace);
    EXPECT_EQ(taken(), u"pill"_s);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(ChosenStatusItemTest, KeepsItsItemWhileAPanelStartsAnew) {
    begin(Presence::present, Presence::absent);
    bus->become(Presence::absent);
    clock.advance(grace - 0.1);
    bus->become(Presence::present);
    clock.advance(grace);
    EXPECT_EQ(bus->made, 1);
    EXPECT_EQ(taken(), u"bus"_s);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(ChosenStatusItemTest, GivesUpAPlaceThatStaysAway) {
    begin(Presence::absent, Presence::present);
    tray->become(Presence::absent);
    clock.advance(grace);
    EXPECT_EQ(taken(), u"pill"_s);
    tray->become(Presence::present);
    EXPECT_EQ(taken(), u"tray"_s);
}

TEST_F(ChosenStatusItemTest, PrefersTheTrayOfAPanelThatOffersBoth) {
    begin(Presence::unknown, Presence::present);
    bus->process = 7;
    tray->process = 7;
    bus->become(Presence::present);
    EXPECT_EQ(taken(), u"tray"_s);
    tray->become(Presence::absent);
    EXPECT_EQ(taken(), u"bus"_s);
    tray->become(Presence::present);
    EXPECT_EQ(taken(), u"tray"_s);
}

TEST_F(ChosenStatusItemTest, PrefersTheBusToTheTrayOfAnotherProgram) {
    begin(Presence::unknown, Presence::present);
    bus->process = 7;
    tray->process = 8;
    bus->become(Presence::present);
    EXPECT_EQ(taken(), u"bus"_s);
}

TEST_F(ChosenStatusItemTest, CarriesOverWhatItShows) {
    begin(Presence::absent, Presence::present);
    item->show({.length = 60, .label = u"24:59"_s, .isLabelHidden = false});
    bus->become(Presence::present);
    EXPECT_EQ(bus->item.content().label, u"24:59"_s);
}

TEST_F(ChosenStatusItemTest, TellsThatTheMeasuresAreOthers) {
    begin(Presence::absent, Presence::present);
    int told = 0;
    const auto subscription = item->observe({.measuresChanged = [&] { ++told; }});
    bus->item.thickness = 30;
    bus->become(Presence::present);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(item->iconOnlyLength(), 30);
}

TEST_F(ChosenStatusItemTest, PassesOnWhatHappensToTheItemThatIsShown) {
    begin(Presence::present, Presence::present);
    QStringList told;
    const auto subscription = item->observe(
        {.clicked = [&](auto claimed) { told += u"clicked %1"_s.arg(claimed->x()); },
         .chosen = [&](StatusCommand command) { told += u"chosen %1"_s.arg(int(command)); },
         .moved = [&] { told += u"moved"_s; },
         .measuresChanged = [&] { told += u"measures"_s; }});
    const auto happen = [](FakeStatusItem& source) {
        source.observers.call(&StatusItem::Observer::clicked, std::optional(QPoint(7, 0)));
        source.observers.call(&StatusItem::Observer::chosen, StatusCommand::quit);
        source.observers.call(&StatusItem::Observer::moved);
        source.observers.call(&StatusItem::Observer::measuresChanged);
    };
    happen(tray->item);
    EXPECT_EQ(told, QStringList());
    happen(bus->item);
    EXPECT_EQ(told, (QStringList{u"clicked 7"_s, u"chosen 5"_s, u"moved"_s, u"measures"_s}));
}

} // namespace
} // namespace tolvar::test
