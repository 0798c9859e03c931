#include "Views/Shared/CardList.h"

#include "Support/HandClock.h"
#include "Support/ToleratedWarning.h"
#include "Views/Shared/ControlTest.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/WindowHand.h"
#include "Views/Theme/Instrument.h"

#include <QMenu>
#include <QPointingDevice>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

#include <memory>
#include <set>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

/// A card with a key on it, which shows the number of its record.
class NumberCard final : public QWidget {
public:
    NumberCard()
        : key(new QPushButton(u"Go"_s, this)) {
        key->setGeometry(10, 10, 60, 30);
    }

    int number = -1;
    QPushButton* key;
};

/// Records that are numbers.
class NumberSource final : public CardSource {
public:
    static QUuid id(int number) {
        return QUuid(static_cast<uint>(number), 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    }
    static int numberOf(const QUuid& id) { return static_cast<int>(id.data1); }

    QWidget* makeCard() override {
        ++made;
        return new NumberCard;
    }
    void fillCard(QWidget& card, const QUuid& id) override {
        ++filled;
        static_cast<NumberCard&>(card).number = numberOf(id);
    }
    std::vector<SwipeAction> actions(const QUuid& id) override {
        return {{.title = u"Delete"_s, .action = [this, id] { done.append(cardName(id)); }}};
    }
    QString cardName(const QUuid& id) const override { return u"Card %1"_s.arg(numberOf(id)); }

    int made = 0;
    int filled = 0;
    QStringList done;
};

/// Cards of 60 points, 10 apart, 20 from all edges, in a view of 300: rows 0 to 3 and a part of 4.
class CardListTest : public ControlTest {
protected:
    static constexpr int pitch = 70;

    CardListTest() {
        window.resize(400, 400);
        above = new QPushButton(u"Above"_s, &window);
        above->setGeometry(20, 10, 80, 30);
        list = new CardList(
            context(), clock, source,
            {.cardHeight = 60, .spacing = 10, .margins = {20, 20, 20, 20}, .swipe = {}}, &window);
        list->setGeometry(0, 50, 400, 300);
        below = new QPushButton(u"Below"_s, &window);
        below->setGeometry(20, 360, 80, 30);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    static std::vector<QUuid> upTo(int count) {
        std::vector<QUuid> ids;
        for (int i = 0; i < count; ++i)
            ids.push_back(NumberSource::id(i));
        return ids;
    }
    static std::vector<QUuid> without(std::vector<QUuid> ids, const std::set<int>& numbers) {
        std::erase_if(
            ids, [&](const QUuid& id) { return numbers.contains(NumberSource::numberOf(id)); });
        return ids;
    }
    void fillWith(int count) { list->setIds(upTo(count), CardList::Change::atOnce); }
    void change(std::vector<QUuid> ids) {
        list->setIds(std::move(ids), CardList::Change::animated);
    }
    void scrollTo(int value) { list->verticalScrollBar()->setValue(value); }
    int scrolled() const { return list->verticalScrollBar()->value(); }

    SwipeActionsContainer& row(int row) const { return *list->containerOf(row); }
    static int numberOn(const SwipeActionsContainer& row) {
        return static_cast<NumberCard&>(row.content()).number;
    }
    /// The numbers of the cards that can be seen, from the top.
    std::vector<int> seen() const {
        std::vector<std::pair<int, int>> cards;
        for (auto* row : list->viewport()->findChildren<SwipeActionsContainer*>())
            if (row->isVisible() && row->geometry().intersects(list->viewport()->rect()))
                cards.emplace_back(row->y(), numberOn(*row));
        std::ranges::sort(cards);
        std::vector<int> numbers;
        for (const auto& [top, number] : cards)
            numbers.push_back(number);
        return numbers;
    }
    static void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    int focusedRow() const { return list->rowOfWidget(QApplication::focusWidget()); }
    void nextFrame() { frames.advance(1 / HandFrames::rate); }

    HandClock clock;
    NumberSource source;
    QPushButton* above = nullptr;
    CardList* list = nullptr;
    QPushButton* below = nullptr;
    WindowHand hand{window};
};

TEST_F(CardListTest, ShowsTheRowsInView) {
    fillWith(10);
    EXPECT_THAT(seen(), ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(row(1).geometry(), QRect(20, 90, 360, 60));
    scrollTo(100);
    EXPECT_THAT(seen(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(row(1).y(), -10);
}

TEST_F(CardListTest, HasAFewWidgetsHoweverManyRowsThereAre) {
    fillWith(36'000);
    for (int value = 0; value <= list->verticalScrollBar()->maximum(); value += 9'973)
        scrollTo(value);
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    EXPECT_EQ(seen().back(), 35'999);
    EXPECT_LE(source.made, 8);
    EXPECT_LE(list->widgets().used + list->widgets().spare, 8U);
}

TEST_F(CardListTest, ShowsAnotherRecordOnTheSameCardAsIfItWereNew) {
    fillWith(100);
    row(2).setOpen(true, SwipeActionsContainer::Motion::atOnce);
    scrollTo(2000);
    scrollTo(40 * pitch);
    for (const int number : seen())
        EXPECT_FALSE(row(number).isOpen());
}

TEST_F(CardListTest, ScrollsByWheelAndTouchpad) {
    fillWith(100);
    const QPointF point = hand.middleOf(*list);
    hand.scroll(point, {.pixels = {}, .phase = Qt::NoScrollPhase, .angle = {0, -120}});
    EXPECT_EQ(scrolled(), 48);
    for (int i = 0; i < 8; ++i)
        hand.scroll(point, {.pixels = {}, .phase = Qt::NoScrollPhase, .angle = {0, -1}});
    EXPECT_EQ(scrolled(), 51) << "parts of points add up";
    clock.advance(1);
    hand.swipe(point, {1, -20}, 3);
    EXPECT_EQ(scrolled(), 111);
    hand.scroll(point, {.pixels = {0, -9}, .phase = Qt::ScrollMomentum});
    EXPECT_EQ(scrolled(), 120);
}

TEST_F(CardListTest, DoesNotScrollWhileARowIsSwiped) {
    fillWith(100);
    const QPointF point = hand.middleOf(row(1));
    hand.scroll(point, {.pixels = {}, .phase = Qt::ScrollBegin});
    hand.scroll(point, {.pixels = {-20, 3}});
    hand.scroll(point, {.pixels = {-20, 30}});
    hand.scroll(point, {.pixels = {}, .phase = Qt::ScrollEnd});
    hand.scroll(point, {.pixels = {0, -30}, .phase = Qt::ScrollMomentum});
    EXPECT_EQ(scrolled(), 0);
    EXPECT_EQ(list->openId(), NumberSource::id(1));
}

TEST_F(CardListTest, ScrollsByADragUpAndNeverSwipesByIt) {
    fillWith(100);
    hand.press(hand.middleOf(row(2)));
    hand.moveBy({0, -12});
    hand.moveBy({-60, -40});
    EXPECT_EQ(scrolled(), 40);
    EXPECT_EQ(row(2).content().x(), 0);
    hand.release();
}

TEST_F(CardListTest, HasOneRowOpenAtMost) {
    fillWith(10);
    QSignalSpy changed(list, &CardList::openIdChanged);
    hand.swipe(hand.middleOf(row(1)), {-20, 0}, 3);
    EXPECT_EQ(list->openId(), NumberSource::id(1));
    settle();
    hand.swipe(hand.middleOf(row(3)), {-20, 0}, 3);
    EXPECT_EQ(list->openId(), NumberSource::id(3));
    EXPECT_FALSE(row(1).isOpen());
    EXPECT_TRUE(row(3).isOpen());
    hand.swipe(hand.middleOf(row(3)), {20, 0}, 3);
    EXPECT_EQ(list->openId(), std::nullopt);
    EXPECT_EQ(changed.count(), 3);
}

TEST_F(CardListTest, KeepsARowOpenThatGoesOutOfViewAndComesBack) {
    fillWith(100);
    list->setOpenId(NumberSource::id(1));
    scrollTo(3000);
    EXPECT_FALSE(list->containerOf(1));
    scrollTo(0);
    EXPECT_TRUE(row(1).isOpen());
    EXPECT_EQ(row(1).offset(), -60) << "without another movement";
}

TEST_F(CardListTest, FadesARowOutAndMovesTheOthersUp) {
    fillWith(10);
    auto* stays = &row(2);
    source.made = source.filled = 0;
    change(without(upTo(10), {1}));
    EXPECT_EQ(&row(1), stays) << "it keeps its widgets";
    EXPECT_LE(source.filled, 1) << "nothing is built anew but what comes into view";
    EXPECT_EQ(stays->y(), 20 + 2 * pitch) << "it starts from where it was";
    EXPECT_THAT(seen(), testing::Contains(1)) << "which is still on its way out";
    nextFrame();
    nextFrame();
    EXPECT_LT(stays->y(), 20 + 2 * pitch);
    settle();
    EXPECT_EQ(stays->y(), 20 + pitch);
    EXPECT_THAT(seen(), ElementsAre(0, 2, 3, 4));
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(CardListTest, TakesNoClicksOnARowThatIsOnItsWayOut) {
    fillWith(10);
    auto& card = static_cast<NumberCard&>(row(1).content());
    QSignalSpy clicked(card.key, &QPushButton::clicked);
    const QPointF point = hand.middleOf(*card.key);
    change({});
    hand.click(point);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(CardListTest, EndsWhatAHandDoesAtARowThatGoes) {
    const ToleratedWarning offscreen(u"This plugin does not support"_s);
    fillWith(10);
    row(1).openMenu({});
    const QPointer<QMenu> menu = row(1).findChild<QMenu*>();
    ASSERT_TRUE(menu);
    change(without(upTo(10), {1}));
    EXPECT_TRUE(!menu || !menu->isVisible());
    hand.press(hand.middleOf(row(1)));
    hand.moveBy({-100, 0});
    change(without(upTo(10), {1, 2}));
    hand.moveBy({-10, 0});
    hand.release();
    EXPECT_EQ(list->openId(), std::nullopt);
    settle();
    EXPECT_THAT(seen(), ElementsAre(0, 3, 4, 5));
}

TEST_F(CardListTest, MakesRoomForARowAndFadesItIn) {
    fillWith(10);
    auto* first = &row(0);
    auto ids = upTo(10);
    ids.insert(ids.begin(), NumberSource::id(77));
    change(ids);
    EXPECT_EQ(first->y(), 20);
    EXPECT_EQ(row(0).y(), 20);
    EXPECT_TRUE(row(0).graphicsEffect());
    settle();
    EXPECT_EQ(first->y(), 20 + pitch);
    EXPECT_FALSE(row(0).graphicsEffect());
    EXPECT_THAT(seen(), ElementsAre(77, 0, 1, 2));
}

TEST_F(CardListTest, StaysUnderTheEyeWhenSomethingComesOrGoesAbove) {
    fillWith(100);
    scrollTo(50 * pitch);
    const auto before = seen();
    change(without(upTo(100), {3, 4}));
    EXPECT_EQ(seen(), before);
    EXPECT_EQ(scrolled(), 48 * pitch);
    auto ids = upTo(100);
    ids.insert(ids.begin(), NumberSource::id(777));
    change(ids);
    EXPECT_EQ(seen(), before);
    settle();
    EXPECT_EQ(seen(), before);
}

TEST_F(CardListTest, MovesWithoutAJumpWhenItBecomesTooShortForWhereItIs) {
    fillWith(10);
    scrollTo(list->verticalScrollBar()->maximum());
    const int before = row(8).y();
    change(without(upTo(10), {9}));
    EXPECT_NEAR(row(8).y(), before, 1);
    settle();
    EXPECT_EQ(row(8).y(), 300 - 20 - 60);
}

TEST_F(CardListTest, ChangesAtOnceWhileItIsNotSeen) {
    fillWith(10);
    window.hide();
    change(without(upTo(10), {1}));
    EXPECT_FALSE(frames.isRunning());
    window.show();
    EXPECT_THAT(seen(), ElementsAre(0, 2, 3, 4));
}

TEST_F(CardListTest, IsAtRestWhenItIsSeenAgainAfterItWasHiddenWhileItMoved) {
    fillWith(10);
    change(without(upTo(10), {1}));
    nextFrame();
    window.hide();
    EXPECT_FALSE(frames.isRunning());
    window.show();
    EXPECT_THAT(seen(), ElementsAre(0, 2, 3, 4));
    EXPECT_EQ(row(1).y(), 20 + pitch);
}

TEST_F(CardListTest, ClosesItsRowWhenItIsHidden) {
    fillWith(10);
    list->setOpenId(list->ids().at(1));
    window.hide();
    EXPECT_EQ(list->openId(), std::nullopt);
    window.show();
    EXPECT_FALSE(list->containerOf(1)->isOpen());
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(CardListTest, ClosesTheRowThatGoes) {
    fillWith(10);
    list->setOpenId(NumberSource::id(1));
    QSignalSpy changed(list, &CardList::openIdChanged);
    change(without(upTo(10), {1}));
    EXPECT_EQ(list->openId(), std::nullopt);
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(CardListTest, FillsOnlyWhatIsInViewWhenRecordsHaveChanged) {
    fillWith(1000);
    source.filled = 0;
    list->refresh();
    EXPECT_GE(source.filled, 4);
    EXPECT_LE(source.filled, 6);
}

TEST_F(CardListTest, GoesFromRowToRowByTheKeyboard) {
    fillWith(100);
    list->containerInView(0).setFocus(Qt::TabFocusReason);
    key(Qt::Key_Down);
    EXPECT_EQ(focusedRow(), 1);
    key(Qt::Key_Up);
    EXPECT_EQ(focusedRow(), 0);
    key(Qt::Key_PageDown);
    EXPECT_EQ(focusedRow(), 3);
    key(Qt::Key_End);
    EXPECT_EQ(focusedRow(), 99);
    EXPECT_EQ(scrolled(), list->verticalScrollBar()->maximum());
    key(Qt::Key_Down);
    EXPECT_EQ(focusedRow(), 99);
    key(Qt::Key_PageUp);
    EXPECT_EQ(focusedRow(), 96);
    key(Qt::Key_Home);
    EXPECT_EQ(focusedRow(), 0);
    EXPECT_EQ(scrolled(), 0);
    key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(focusedRow(), 0);
}

TEST_F(CardListTest, GoesFromRowToRowAlsoFromAKeyOnACard) {
    fillWith(10);
    static_cast<NumberCard&>(row(1).content()).key->setFocus();
    key(Qt::Key_Down);
    EXPECT_EQ(focusedRow(), 2);
}

TEST_F(CardListTest, IsOneStopToTabWithWhatIsInTheRow) {
    fillWith(100);
    above->setFocus();
    key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &row(0));
    key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), static_cast<NumberCard&>(row(0).content()).key);
    key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), below);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedRow(), 0);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), above);
}

TEST_F(CardListTest, ComesBackByTabToTheRowThatWasLeft) {
    fillWith(100);
    row(0).setFocus();
    key(Qt::Key_End);
    above->setFocus();
    scrollTo(0);
    key(Qt::Key_Tab);
    EXPECT_EQ(focusedRow(), 99);
    EXPECT_EQ(scrolled(), list->verticalScrollBar()->maximum()) << "and brings it into view";
}

TEST_F(CardListTest, BringsARowIntoViewThatTabGoesOnIn) {
    fillWith(100);
    row(1).setFocus();
    scrollTo(3000);
    key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), static_cast<NumberCard&>(row(1).content()).key);
    EXPECT_THAT(seen(), testing::Contains(1));
}

TEST_F(CardListTest, KeepsTheKeyboardOnARowThatIsScrolledOutOfView) {
    fillWith(100);
    row(1).setFocus();
    scrollTo(3000);
    EXPECT_EQ(focusedRow(), 1);
    key(Qt::Key_Down);
    EXPECT_EQ(focusedRow(), 2);
    EXPECT_THAT(seen(), testing::Contains(2));
}

TEST_F(CardListTest, HandsTheKeyboardToTheRowThatTakesThePlaceOfOneThatGoes) {
    fillWith(10);
    row(1).setFocus();
    change(without(upTo(10), {1}));
    EXPECT_EQ(focusedRow(), 1);
    EXPECT_EQ(numberOn(row(1)), 2);
    settle();
    key(Qt::Key_End);
    change(without(upTo(10), {1, 9}));
    EXPECT_EQ(numberOn(row(focusedRow())), 8) << "at the end it is the one before";
    change({});
    EXPECT_EQ(QApplication::focusWidget(), below) << "with no row left it goes on";
}

TEST_F(CardListTest, LeavesTheKeyboardWhereItIsWhenARowGoesThatDoesNotHaveIt) {
    fillWith(10);
    row(2).setFocus();
    change(without(upTo(10), {1}));
    EXPECT_EQ(numberOn(row(focusedRow())), 2);
    auto* key = static_cast<NumberCard&>(row(focusedRow()).content()).key;
    key->setFocus();
    change(without(upTo(10), {1, 4}));
    EXPECT_TRUE(key->hasFocus());
    above->setFocus();
    change(without(upTo(10), {1, 2}));
    EXPECT_TRUE(above->hasFocus());
}

TEST_F(CardListTest, AsksForTheDeletionOfTheRowWithTheKeyboard) {
    fillWith(10);
    QSignalSpy asked(list, &CardList::deleteRequested);
    row(3).setFocus();
    key(Qt::Key_Delete);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][0].toUuid(), NumberSource::id(3));
    EXPECT_THAT(source.done, IsEmpty()) << "which is for others to confirm";
}

TEST_F(CardListTest, OffersWhatConcernsItAllInEveryMenu) {
    const ToleratedWarning offscreen(u"This plugin does not support"_s);
    fillWith(1);
    list->setCommonActions({{.title = u"Clear…"_s}});
    row(0).openMenu({});
    auto* ofRow = row(0).findChild<QMenu*>();
    ASSERT_TRUE(ofRow);
    EXPECT_EQ(ofRow->actions().last()->text(), u"Clear…");
    ofRow->close();
    QContextMenuEvent event(QContextMenuEvent::Mouse, {200, 280}, {200, 280});
    QApplication::sendEvent(list->viewport(), &event);
    auto* ofList = list->findChild<QMenu*>({}, Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(ofList);
    ASSERT_EQ(ofList->actions().size(), 1);
    const QPointer<QMenu> guard(ofList);
    window.hide();
    EXPECT_TRUE(!guard || !guard->isVisible());
}

class CardListPullTest : public CardListTest {
protected:
    CardListPullTest() {
        fillWith(100);
        list->setPullable(true);
        QObject::connect(list, &CardList::pulled, list, [this](double points, CardList::Hand how) {
            last = points;
            isHeld = how == CardList::Hand::holds;
        });
        QObject::connect(list, &CardList::pullReleased, list,
                         [this](double points) { releases.push_back(points); });
    }

    void begin() { hand.scroll(point(), {.pixels = {}, .phase = Qt::ScrollBegin}); }
    void pull(int points) { hand.scroll(point(), {.pixels = {0, points}}); }
    void end() { hand.scroll(point(), {.pixels = {}, .phase = Qt::ScrollEnd}); }
    QPointF point() const { return hand.middleOf(*list); }

    double last = 0;
    bool isHeld = false;
    std::vector<double> releases;
};

TEST_F(CardListPullTest, IsPulledDownBeyondItsTopAndSpringsBack) {
    begin();
    pull(40);
    EXPECT_GT(last, 18);
    EXPECT_TRUE(isHeld);
    EXPECT_DOUBLE_EQ(list->pull(), last);
    EXPECT_EQ(row(0).y(), 20 + qRound(last));
    const double reached = last;
    end();
    EXPECT_THAT(releases, ElementsAre(reached));
    nextFrame();
    EXPECT_FALSE(isHeld);
    EXPECT_LT(last, reached);
    settle();
    EXPECT_EQ(last, 0);
    EXPECT_EQ(row(0).y(), 20);
}

TEST_F(CardListPullTest, IsPulledByADragOfTheMouse) {
    hand.press(point());
    hand.moveBy({0, 12});
    hand.moveBy({0, 40});
    EXPECT_GT(last, 18);
    hand.release();
    EXPECT_EQ(releases.size(), 1U);
}

TEST_F(CardListPullTest, IsPulledAsFarByADragThatIsToldOfAllAtOnce) {
    hand.press(point());
    hand.moveBy({0, 52});
    const double atOnce = last;
    EXPECT_GT(atOnce, 18);
    hand.release();
    settle();
    hand.press(point());
    hand.moveBy({0, 12});
    hand.moveBy({0, 40});
    EXPECT_DOUBLE_EQ(last, atOnce);
    hand.release();
}

TEST_F(CardListPullTest, IsNotReleasedWhenTheDragIsBrokenOff) {
    hand.press(point());
    hand.moveBy({0, 12});
    hand.moveBy({0, 40});
    hand.press(point(), Qt::RightButton);
    settle();
    EXPECT_EQ(last, 0);
    hand.release(Qt::RightButton);
    hand.release();
    EXPECT_THAT(releases, IsEmpty());
}

TEST_F(CardListPullTest, IsNotPulledByAGlide) {
    scrollTo(20);
    begin();
    pull(10);
    end();
    hand.scroll(point(), {.pixels = {0, 60}, .phase = Qt::ScrollMomentum});
    EXPECT_EQ(scrolled(), 0);
    EXPECT_EQ(list->pull(), 0);
    EXPECT_THAT(releases, IsEmpty());
}

TEST_F(CardListPullTest, IsNotPulledByAWheelWithNotches) {
    for (int i = 0; i < 5; ++i)
        hand.scroll(point(), {.pixels = {}, .phase = Qt::NoScrollPhase, .angle = {0, 120}});
    EXPECT_EQ(list->pull(), 0);
    clock.advance(1);
    EXPECT_THAT(releases, IsEmpty());
}

TEST_F(CardListPullTest, IsPulledByATouchpadWithoutPhasesThatBeginsAtTheTop) {
    const QPointingDevice pad(u"pad"_s, 7, QInputDevice::DeviceType::TouchPad,
                              QPointingDevice::PointerType::Finger,
                              QInputDevice::Capability::Scroll, 1, 0);
    const WindowHand::Scroll up{
        .pixels = {}, .phase = Qt::NoScrollPhase, .angle = {0, 120}, .device = &pad};
    scrollTo(10);
    hand.scroll(point(), up);
    hand.scroll(point(), up);
    EXPECT_EQ(list->pull(), 0) << "it was on its way to the top";
    clock.advance(0.15);
    hand.scroll(point(), up);
    EXPECT_GT(list->pull(), 18);
    EXPECT_THAT(releases, IsEmpty());
    clock.advance(0.15);
    EXPECT_EQ(releases.size(), 1U);
}

TEST_F(CardListPullTest, IsNotPulledUnlessItMayBe) {
    list->setPullable(false);
    begin();
    pull(60);
    EXPECT_EQ(list->pull(), 0);
    end();
    EXPECT_THAT(releases, IsEmpty());
}

TEST_F(CardListPullTest, LetsGoQuietlyWhenItHides) {
    begin();
    pull(60);
    window.hide();
    EXPECT_EQ(list->pull(), 0);
    EXPECT_FALSE(frames.isRunning());
    EXPECT_THAT(releases, IsEmpty());
}

class CardListFaceTest : public CardListTest {
protected:
    QAccessibleInterface* face() const { return accessible(*list); }
};

TEST_F(CardListFaceTest, IsAListOfAllItsRows) {
    fillWith(36'000);
    ASSERT_TRUE(face());
    EXPECT_EQ(face()->role(), QAccessible::List);
    EXPECT_EQ(face()->childCount(), 36'000);
    auto* near = face()->child(1);
    EXPECT_EQ(near->text(QAccessible::Name), u"Card 1");
    EXPECT_EQ(near->parent(), face());
    EXPECT_EQ(face()->indexOfChild(near), 1);
    EXPECT_FALSE(near->state().offscreen);
    auto* far = face()->child(30'000);
    EXPECT_EQ(far->text(QAccessible::Name), u"Card 30000");
    EXPECT_EQ(far->role(), QAccessible::ListItem);
    EXPECT_EQ(far->parent(), face());
    EXPECT_EQ(face()->indexOfChild(far), 30'000);
    EXPECT_TRUE(far->state().offscreen);
    EXPECT_EQ(scrolled(), 0) << "to be looked at it need not be in view";
    EXPECT_FALSE(face()->child(36'000));
}

TEST_F(CardListFaceTest, BringsARowIntoViewThatIsAskedToAct) {
    fillWith(1000);
    auto* far = face()->child(500);
    EXPECT_THAT(far->actionInterface()->actionNames(), testing::Contains(u"Delete"_s));
    far->actionInterface()->doAction(u"Delete"_s);
    EXPECT_THAT(source.done, ElementsAre(u"Card 500"_s));
    EXPECT_THAT(seen(), testing::Contains(500));
    EXPECT_FALSE(far->state().offscreen);
    face()->child(900)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(focusedRow(), 900);
    EXPECT_THAT(seen(), testing::Contains(900));
}

TEST_F(CardListFaceTest, HasRowsThatOutliveTheirRecords) {
    fillWith(1000);
    auto* far = face()->child(500);
    fillWith(10);
    EXPECT_EQ(face()->childCount(), 10);
    EXPECT_EQ(face()->child(0)->text(QAccessible::Name), u"Card 0");
    EXPECT_NE(face()->child(9), far);
}

TEST_F(CardListFaceTest, KnowsTheRowUnderAPoint) {
    fillWith(10);
    const QPoint point = list->viewport()->mapToGlobal(QPoint(200, 100));
    EXPECT_EQ(face()->childAt(point.x(), point.y())->text(QAccessible::Name), u"Card 1");
    const QPoint gap = list->viewport()->mapToGlobal(QPoint(200, 85));
    EXPECT_FALSE(face()->childAt(gap.x(), gap.y()));
}

} // namespace
} // namespace tolvar::test
