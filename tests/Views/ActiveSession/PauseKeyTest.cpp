#include "Views/ActiveSession/PauseKey.h"

#include "Views/Shared/ControlTest.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using Action = PauseKeyFace::Action;

const PauseKeyFace two{u"Pause, 2 left"_s, Symbol::pause, Action::pause, true, 2};
const PauseKeyFace resume{u"Resume"_s, Symbol::play, Action::resume, true, 0};
const PauseKeyFace one{u"Pause, 1 left"_s, Symbol::pause, Action::pause, true, 1};
const PauseKeyFace none{u"No pauses left"_s, Symbol::pause, Action::pause, false, 0};

class PauseKeyTest : public ControlTest {
protected:
    PauseKeyTest() { key.resize(114, key.sizeHint().height()); }

    /// How much warmer than grey the trailing part of the key is.
    double amber() {
        const QImage image = picture(key);
        double sum = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 80; x < image.width() - 4; ++x)
                sum += std::max(0, qRed(image.pixel(x, y)) - qBlue(image.pixel(x, y)));
        return sum;
    }
    QImage settledPicture(const PauseKeyFace& face) {
        key.setFace(face);
        settle();
        return picture(key);
    }

    int presses = 0;
    PauseKey& key = shown(new PauseKey(
        context(), [this] { ++presses; }, nullptr));
};

TEST_F(PauseKeyTest, IsCalledWhatItsTooltipSays) {
    for (const PauseKeyFace& face : {two, resume, one, none}) {
        key.setFace(face);
        EXPECT_EQ(accessible(key)->text(QAccessible::Name), face.name);
        EXPECT_EQ(key.toolTip(), face.name);
        EXPECT_EQ(key.isEnabled(), face.isEnabled);
        EXPECT_EQ(key.isLatched(), face.action == Action::resume);
    }
    EXPECT_EQ(accessible(key)->role(), QAccessible::Button);
    EXPECT_EQ(accessible(key)->childCount(), 0) << "the name says how many lamps there are";
}

TEST_F(PauseKeyTest, HasALabelSeventeenPointsHighAndThirteenAroundIt) {
    EXPECT_EQ(key.sizeHint().height(), 43);
}

TEST_F(PauseKeyTest, ActsOnAPressAndClicks) {
    key.setFace(two);
    press(key);
    release(key);
    EXPECT_EQ(presses, 1);
    EXPECT_THAT(journal.take(),
                ElementsAre(u"haptic generic"_s, u"play keyDown"_s, u"play keyUp"_s))
        << "no haptic of its own";
}

TEST_F(PauseKeyTest, ShowsALampForEachPauseLeft) {
    settledPicture(two);
    const double both = amber();
    settledPicture(one);
    EXPECT_NEAR(amber(), both / 2, both * 0.1);
    settledPicture(none);
    EXPECT_LT(amber(), both * 0.1);
}

TEST_F(PauseKeyTest, LeavesTheOtherLampsInPlace) {
    const QImage before = settledPicture(two);
    const QImage after = settledPicture(one);
    for (int y = 15; y < 28; ++y)
        for (int x = 99; x < 110; ++x)
            ASSERT_EQ(before.pixel(x, y), after.pixel(x, y)) << x << ", " << y;
}

TEST_F(PauseKeyTest, LetsLampsShrinkAsTheyGo) {
    settledPicture(two);
    const double both = amber();
    key.setFace(none);
    frames.advance(0.1);
    const double going = amber();
    EXPECT_LT(going, both * 0.95);
    EXPECT_GT(going, both * 0.1);
}

TEST_F(PauseKeyTest, ReplacesItsSymbolLittleByLittle) {
    const QImage pausing = settledPicture(none);
    PauseKeyFace playing = none;
    playing.symbol = Symbol::play;
    key.setFace(playing);
    EXPECT_EQ(picture(key), pausing) << "nothing jumps";
    frames.advance(0.12);
    const QImage between = picture(key);
    settle();
    const QImage after = picture(key);
    EXPECT_NE(between, pausing);
    EXPECT_NE(between, after);
    EXPECT_NE(after, pausing);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(PauseKeyTest, ChangesAtOnceWhereNobodySeesIt) {
    key.hide();
    key.setFace(two);
    key.setFace(resume);
    EXPECT_FALSE(frames.isRunning());
    key.show();
    EXPECT_EQ(picture(key), settledPicture(resume));
}

TEST_F(PauseKeyTest, EndsItsChangesWhenItIsHidden) {
    key.setFace(two);
    EXPECT_TRUE(frames.isRunning());
    key.hide();
    EXPECT_FALSE(frames.isRunning());
}

} // namespace
} // namespace tolvar::test
