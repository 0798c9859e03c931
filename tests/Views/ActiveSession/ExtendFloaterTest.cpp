#include "Views/ActiveSession/ExtendFloater.h"

#include "Views/Shared/ControlTest.h"
#include "Views/Theme/Instrument.h"

namespace tolvar::test {
namespace {

constexpr FloaterFrame atRest{.y = 0, .opacity = 0, .scale = 0.8};

class ExtendFloaterTest : public ControlTest {
protected:
    ExtendFloaterTest() {
        floater.placeOver({100, 120, 114, 43});
        window.show();
        floater.setTrigger(0);
    }

    ExtendFloater& floater = *new ExtendFloater(driver, &window);
};

TEST_F(ExtendFloaterTest, RestsWhenItAppears) {
    EXPECT_FALSE(frames.isRunning());
    EXPECT_EQ(floater.frame(), atRest);
}

TEST_F(ExtendFloaterTest, PopsRisesAndFades) {
    floater.setTrigger(1);
    frames.advance(0.12);
    EXPECT_NEAR(floater.frame().opacity, 1, 0.02);
    frames.advance(0.08);
    EXPECT_GT(floater.frame().scale, 1.02) << "it pops";
    frames.advance(0.31);
    EXPECT_NEAR(floater.frame().y, -30, 1);
    EXPECT_NEAR(floater.frame().scale, 1, 0.02);
    EXPECT_NEAR(floater.frame().opacity, 1, 0.02);
    frames.advance(0.36);
    EXPECT_LT(floater.frame().opacity, 0.02);
    EXPECT_LT(floater.frame().y, -35);
    frames.advance(0.06);
    EXPECT_EQ(floater.frame(), atRest);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(ExtendFloaterTest, FliesAgainAtEachIncrease) {
    floater.setTrigger(1);
    frames.advance(0.3);
    const double high = floater.frame().y;
    floater.setTrigger(2);
    frames.advance(1 / HandFrames::rate);
    EXPECT_GT(floater.frame().y, high + 10);
    settle();
    floater.setTrigger(2);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(ExtendFloaterTest, IsNotCutOnItsWay) {
    floater.setTrigger(1);
    for (int frame = 0; frame < 60; ++frame) {
        frames.advance(1 / HandFrames::rate);
        QImage image(floater.size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        floater.render(&image, {}, {}, QWidget::DrawChildren);
        for (int x = 0; x < image.width(); ++x) {
            ASSERT_EQ(qGray(image.pixel(x, 0)), 0) << "frame " << frame;
            ASSERT_EQ(qGray(image.pixel(x, image.height() - 1)), 0) << "frame " << frame;
        }
        for (int y = 0; y < image.height(); ++y) {
            ASSERT_EQ(qGray(image.pixel(0, y)), 0) << "frame " << frame;
            ASSERT_EQ(qGray(image.pixel(image.width() - 1, y)), 0) << "frame " << frame;
        }
    }
}

TEST_F(ExtendFloaterTest, SaysAllOfItInLettersOfItsOwn) {
    QFont huge = window.font();
    huge.setPixelSize(40);
    window.setFont(huge);
    floater.setTrigger(1);
    frames.advance(0.55);
    const QImage image = picture(floater);
    int left = image.width();
    int right = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const QColor color = image.pixelColor(x, y); color.red() > color.blue() + 60) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
    const QFontMetricsF metrics(Instrument::font(11, QFont::Medium));
    EXPECT_NEAR(right - left + 1, metrics.horizontalAdvance(QStringLiteral("+5 min")), 2.5);
}

TEST_F(ExtendFloaterTest, StandsOverTheMiddleOfTheTopEdge) {
    EXPECT_NEAR(floater.geometry().center().x(), 157, 1);
    EXPECT_GT(floater.geometry().bottom(), 130);
    EXPECT_LT(floater.geometry().top(), 120 - 40 + 5);
}

TEST_F(ExtendFloaterTest, DoesNotFlyWhereNobodySeesIt) {
    floater.setTrigger(1);
    window.hide();
    EXPECT_FALSE(frames.isRunning());
    floater.setTrigger(2);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(ExtendFloaterTest, LetsThePointerThrough) {
    EXPECT_EQ(window.childAt(floater.geometry().center()), nullptr);
}

} // namespace
} // namespace tolvar::test
