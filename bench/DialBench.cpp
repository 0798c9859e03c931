#include "Motion/AnimationDriver.h"
#include "Support/HandFrames.h"
#include "Views/ActiveSession/TimerDial.h"

#include <QApplication>
#include <QImage>

#include <benchmark/benchmark.h>

namespace tolvar::bench {
namespace {

/// A dial in a window, whose frames are made by hand.
class Stage {
public:
    Stage() {
        m_window.resize(m_dial.size());
        m_window.show();
        read(half, 0.5, false);
        m_frames.advance(settled);
        draw(m_window.rect());
    }

    void read(int remaining, double progress, bool isPaused) {
        m_dial.setReading({.remainingSeconds = remaining,
                           .progress = progress,
                           .duration = 2.0 * half,
                           .isPaused = isPaused,
                           .pauseRemainingSeconds = 100});
    }
    /// The next frame, drawn where `area` changes.
    void frame(const QRegion& area) {
        m_frames.advance(1 / test::HandFrames::rate);
        draw(area);
    }
    bool isMoving() const { return m_frames.isRunning(); }
    QRect whole() const { return m_dial.rect(); }
    /// Where the last digit stands.
    QRect digit() const { return {m_dial.width() / 2 + 30, m_dial.height() / 2 - 36, 32, 52}; }

    static constexpr int half = 750;

private:
    static constexpr double settled = 5;

    void draw(const QRegion& area) { m_dial.render(&m_image, area.boundingRect().topLeft(), area); }

    test::HandFrames m_frames;
    AnimationDriver m_driver{m_frames};
    QWidget m_window;
    TimerDial m_dial{m_driver, &m_window};
    QImage m_image = [this] {
        const double scale = m_dial.devicePixelRatioF();
        QImage image(m_dial.size() * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        return image;
    }();
};

/// The arc on its way through the whole dial, everything drawn anew.
void sweep(benchmark::State& state) {
    Stage stage;
    bool isEmpty = false;
    for ([[maybe_unused]] auto _ : state) {
        if (!stage.isMoving()) {
            isEmpty = !isEmpty;
            stage.read(Stage::half, isEmpty ? 0 : 1, false);
        }
        stage.frame(stage.whole());
    }
}
BENCHMARK(sweep)->Unit(benchmark::kMicrosecond);

/// The arc pulses; what is within the ring stays, but is drawn all the same here.
void breath(benchmark::State& state) {
    Stage stage;
    stage.read(Stage::half, 0.5, true);
    for ([[maybe_unused]] auto _ : state)
        stage.frame(stage.whole());
}
BENCHMARK(breath)->Unit(benchmark::kMicrosecond);

/// A digit rolls.
void roll(benchmark::State& state) {
    Stage stage;
    int remaining = Stage::half;
    for ([[maybe_unused]] auto _ : state) {
        if (!stage.isMoving())
            stage.read(--remaining > 0 ? remaining : Stage::half, 0.5, false);
        stage.frame(stage.digit());
    }
}
BENCHMARK(roll)->Unit(benchmark::kMicrosecond);

/// All digits, the caption and the arc.
void extension(benchmark::State& state) {
    Stage stage;
    bool isExtended = false;
    for ([[maybe_unused]] auto _ : state) {
        if (!stage.isMoving()) {
            isExtended = !isExtended;
            stage.read(isExtended ? 3999 : 1111, isExtended ? 0.2 : 0.8, isExtended);
            stage.read(isExtended ? 3999 : 1111, isExtended ? 0.2 : 0.8, false);
        }
        stage.frame(stage.whole());
    }
}
BENCHMARK(extension)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tolvar::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
