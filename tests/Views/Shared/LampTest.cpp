#include "Views/Shared/Lamp.h"

#include "Views/Shared/ControlTest.h"

namespace tolvar::test {
namespace {

class LampTest : public ControlTest {
protected:
    /// The light of the whole picture.
    double brightness() {
        const QImage image = picture(lamp);
        double sum = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                sum += qRed(image.pixel(x, y)) - qBlue(image.pixel(x, y));
        return sum;
    }

    Lamp& lamp = shown(new Lamp(driver));
};

TEST_F(LampTest, BlinksWhenItGoesOnAndIsBrighterThanOff) {
    const double off = brightness();
    lamp.setOn(true);
    frames.advance(0.12);
    const double blink = brightness();
    settle();
    const double on = brightness();
    EXPECT_GT(on, off);
    EXPECT_GT(blink, on) << "it is larger for a moment";
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(LampTest, IsLitAtOnceWhereNobodySeesIt) {
    Lamp unseen(driver);
    unseen.setOn(true);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(LampTest, DoesNotBlinkWhenItIsToldWhatItIs) {
    lamp.setOn(false);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(LampTest, BreathesBetweenFullAndFortyPercent) {
    lamp.setOn(true);
    settle();
    const double full = brightness();
    lamp.setBreathing(true);
    frames.advance(1.2);
    const double dim = brightness();
    EXPECT_LT(dim, full * 0.55);
    frames.advance(1.2);
    EXPECT_NEAR(brightness(), full, full * 0.02);
    lamp.setBreathing(false);
    settle();
    EXPECT_NEAR(brightness(), full, full * 0.001);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(LampTest, DoesNotBreatheWhileNobodySeesIt) {
    lamp.setOn(true);
    lamp.setBreathing(true);
    EXPECT_TRUE(frames.isRunning());
    lamp.hide();
    EXPECT_FALSE(frames.isRunning());
    lamp.show();
    EXPECT_TRUE(frames.isRunning());
}

TEST_F(LampTest, StaysAtFullLightWithReducedMotion) {
    lamp.setOn(true);
    settle();
    const double full = brightness();
    driver.setSettings({.isReduced = true});
    lamp.setBreathing(true);
    EXPECT_FALSE(frames.isRunning());
    EXPECT_NEAR(brightness(), full, full * 0.001);
    driver.setSettings({});
    EXPECT_TRUE(frames.isRunning()) << "and breathes again when motion is not reduced any more";
}

} // namespace
} // namespace tolvar::test
