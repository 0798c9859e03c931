#include "Views/ActiveSession/TimerDial.h"

#include "Views/ActiveSession/DialDrawing.h"
#include "Views/Shared/ControlTest.h"

#include <cmath>
#include <numbers>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

DialReading running(int remaining, Seconds duration = 1500) {
    return {.remainingSeconds = remaining,
            .progress = 1 - remaining / duration,
            .duration = duration,
            .isPaused = false,
            .pauseRemainingSeconds = 120};
}

DialReading paused(int remaining, int pauseLeft) {
    DialReading reading = running(remaining);
    reading.isPaused = true;
    reading.pauseRemainingSeconds = pauseLeft;
    return reading;
}

class TimerDialTest : public ControlTest {
protected:
    /// How much of the ring is lit, in parts of a turn, up to the first part that is not.
    double shownProgress() {
        constexpr int parts = 720;
        const QImage image = picture(dial);
        const QPointF middle = QRectF(image.rect()).center();
        for (int part = 0; part < parts; ++part) {
            const double angle = 2 * std::numbers::pi * (part + 0.5) / parts;
            const QPointF point =
                middle + DialMeasures::radius * QPointF(std::sin(angle), -std::cos(angle));
            if (image.pixelColor(point.toPoint()).red() < 150)
                return static_cast<double>(part) / parts;
        }
        return 1;
    }
    /// The light of the arc at three o'clock.
    int brightness() {
        return picture(dial)
            .pixelColor(static_cast<int>(dial.width() / 2.0 + DialMeasures::radius),
                        dial.height() / 2 - 30)
            .red();
    }
    /// The middle of the light of the last digit, as a height.
    double lastDigit() {
        QImage image(dial.size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        dial.render(&image, {}, {}, QWidget::DrawChildren);
        const int middle = dial.width() / 2;
        double sum = 0;
        double weighted = 0;
        for (int y = middle - 40; y < middle + 20; ++y)
            for (int x = middle + 32; x < middle + 58; ++x) {
                sum += qRed(image.pixel(x, y));
                weighted += qRed(image.pixel(x, y)) * (y + 0.5);
            }
        return weighted / sum;
    }
    TimerDial& appeared(const DialReading& reading) {
        dial.setReading(reading);
        window.show();
        settle();
        return dial;
    }

    /// The round end of the arc, which reaches beyond its length.
    static constexpr double roundEnd = 0.014;

    TimerDial& dial = *new TimerDial(driver, &window);
};

TEST_F(TimerDialTest, SweepsToTheProgressWhenItAppears) {
    dial.setReading(running(750));
    window.show();
    frames.advance(0.44);
    EXPECT_LT(shownProgress(), 0.001) << "not yet";
    frames.advance(0.3);
    const double way = shownProgress();
    EXPECT_GT(way, 0.05);
    EXPECT_LT(way, 0.45);
    settle();
    EXPECT_NEAR(shownProgress(), 0.5, roundEnd);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(TimerDialTest, BeginsItsSweepInTimeWhenATickComesBefore) {
    dial.setReading(running(750));
    window.show();
    frames.advance(0.3);
    dial.setReading(running(375));
    frames.advance(0.14);
    EXPECT_LT(shownProgress(), 0.001);
    frames.advance(0.2);
    EXPECT_GT(shownProgress(), 0.03);
    settle();
    EXPECT_NEAR(shownProgress(), 0.75, roundEnd);
}

TEST_F(TimerDialTest, SweepsOnlyTheFirstTime) {
    appeared(running(750));
    window.hide();
    window.show();
    EXPECT_NEAR(shownProgress(), 0.5, roundEnd);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(TimerDialTest, DoesNotWaitForASweepThatNobodySaw) {
    dial.setReading(running(750));
    window.show();
    frames.advance(0.1);
    window.hide();
    window.show();
    EXPECT_NEAR(shownProgress(), 0.5, roundEnd);
    dial.setReading(running(375));
    frames.advance(0.2);
    EXPECT_GT(shownProgress(), 0.52);
}

TEST_F(TimerDialTest, FollowsTheProgressOnASpring) {
    appeared(running(750));
    dial.setReading(running(375));
    EXPECT_NEAR(shownProgress(), 0.5, roundEnd);
    frames.advance(0.2);
    EXPECT_GT(shownProgress(), 0.52);
    EXPECT_LT(shownProgress(), 0.75);
    settle();
    EXPECT_NEAR(shownProgress(), 0.75, roundEnd);
}

TEST_F(TimerDialTest, ShowsTheFirstSecondOfALongSession) {
    appeared(running(7200, 7200));
    EXPECT_EQ(shownProgress(), 0);
    dial.setReading(running(7199, 7200));
    settle();
    EXPECT_GT(shownProgress(), 0);
}

TEST_F(TimerDialTest, DoesNotGoBeyondTheFullRing) {
    dial.setReading(running(0));
    window.show();
    for (int frame = 0; frame < 180; ++frame) {
        frames.advance(1 / HandFrames::rate);
        picture(dial);
    }
    EXPECT_EQ(shownProgress(), 1);
}

TEST_F(TimerDialTest, LetsItsDigitsFallAsTimeRunsOutAndRiseWhenThereIsMore) {
    appeared(running(8));
    const double atRest = lastDigit();
    dial.setReading(running(0));
    frames.advance(0.04);
    EXPECT_GT(lastDigit(), atRest + 0.5);
    settle();
    dial.setReading(running(8));
    frames.advance(0.04);
    EXPECT_LT(lastDigit(), atRest - 0.5);
}

TEST_F(TimerDialTest, BreathesWhileItIsPaused) {
    appeared(running(750));
    const int full = brightness();
    dial.setReading(paused(750, 120));
    frames.advance(1.5);
    const int breathedIn = brightness();
    frames.advance(1.5);
    const int breathedOut = brightness();
    EXPECT_LT(breathedIn, full * 0.65);
    EXPECT_LT(breathedOut, breathedIn * 0.75);
    frames.advance(1.5);
    EXPECT_NEAR(brightness(), breathedIn, 3) << "again and again";
    dial.setReading(running(750));
    settle();
    EXPECT_EQ(brightness(), full);
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(TimerDialTest, DoesNotMoveWhileItIsHidden) {
    appeared(paused(750, 120));
    EXPECT_TRUE(frames.isRunning());
    window.hide();
    EXPECT_FALSE(frames.isRunning());
    dial.setReading(running(375));
    EXPECT_FALSE(frames.isRunning());
    const QImage hidden = picture(dial);
    window.show();
    EXPECT_EQ(picture(dial), hidden);
    EXPECT_FALSE(frames.isRunning());
    dial.setReading(paused(375, 90));
    settle();
    window.hide();
    window.show();
    EXPECT_TRUE(frames.isRunning()) << "it breathes again when it is seen";
}

TEST_F(TimerDialTest, RestsWithReducedMotion) {
    driver.setSettings({.isReduced = true});
    dial.setReading(running(750));
    window.show();
    EXPECT_NEAR(shownProgress(), 0.5, roundEnd);
    dial.setReading(paused(749, 120));
    EXPECT_FALSE(frames.isRunning());
    EXPECT_LT(brightness(), 120);
    driver.setSettings({});
    EXPECT_TRUE(frames.isRunning()) << "and breathes when motion is not reduced any more";
}

TEST_F(TimerDialTest, SaysItsTimeAndCaptionAsText) {
    dial.setReading(running(1499));
    EXPECT_EQ(accessible(dial)->role(), QAccessible::StaticText);
    EXPECT_EQ(accessible(dial)->text(QAccessible::Name), u"24:59, of 25 minutes"_s);
    dial.setReading(paused(1499, 119));
    EXPECT_EQ(accessible(dial)->text(QAccessible::Name), u"24:59, Paused for 1:59"_s);
}

/// Counts what a dial draws anew.
class Redrawn final : public QObject {
public:
    explicit Redrawn(QWidget& widget) { widget.installEventFilter(this); }
    QRegion take() { return std::exchange(m_region, {}); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QRegion m_region;
};

int areaOf(const QRegion& region) {
    int area = 0;
    for (const QRect& rect : region)
        area += rect.width() * rect.height();
    return area;
}

TEST_F(TimerDialTest, DrawsOnlyWhatATickChanges) {
    appeared(running(750));
    QApplication::processEvents();
    Redrawn redrawn(dial);
    dial.setReading(running(749));
    for (int frame = 0; frame < 120; ++frame) {
        frames.advance(1 / HandFrames::rate);
        QApplication::processEvents();
    }
    const int area = areaOf(redrawn.take());
    EXPECT_GT(area, 0);
    EXPECT_LT(area, dial.width() * dial.height() / 10);
    dial.setReading(running(749));
    QApplication::processEvents();
    EXPECT_TRUE(redrawn.take().isEmpty()) << "nothing changed";
}

} // namespace
} // namespace tolvar::test
