#pragma once

#include "Motion/FrameSource.h"
#include "Motion/MotionSettings.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <vector>

namespace tolvar {

/// Something that an AnimationDriver moves.
class Animation {
public:
    virtual ~Animation() = default;

    /// Moves to the driver's time `now`. May add and remove animations, destroy itself, others, or
    /// the driver.
    virtual void advance(double now) = 0;
    /// Reduced motion was switched on: goes to the end at once, unless it is to play all the same.
    virtual void reduce() = 0;
};

/// Moves all animations of the program, frame by frame, while there are any; otherwise the source
/// of frames stands still. Outlives what it moves.
class AnimationDriver final : public QObject {
    Q_OBJECT
public:
    /// `frames` outlives the driver.
    explicit AnimationDriver(FrameSource& frames, const MotionSettings& settings = {});
    ~AnimationDriver() override;

    /// Seconds of animation time. Never goes back; the slow factor stretches it. Within a frame it
    /// is the time of that frame; while nothing moves it stands still.
    double now();

    const MotionSettings& settings() const { return m_settings; }
    /// Changes the switches for what moves now and later. With reduced motion whatever moves jumps
    /// to its end before `settingsChanged` is emitted.
    void setSettings(const MotionSettings& settings);

    /// Calls `animation` from the next frame on. Nothing happens if it is called already.
    void add(Animation& animation);
    /// Calls it no more, also in the frame that is going on. Nothing happens if it is not called.
    void remove(Animation& animation);
    /// Whether frames are being asked for.
    bool isAwake() const { return m_isAwake; }

Q_SIGNALS:
    /// A switch has another value: loops are to be stopped or begun.
    void settingsChanged(const tolvar::MotionSettings& settings);

private:
    void frame(double mediaTime);
    void advanceTo(double mediaTime);
    void visitMoving(const std::function<void(Animation&)>& visit);
    void sleepIfIdle();

    FrameSource& m_frames;
    MotionSettings m_settings;
    double m_now = 0;
    double m_mediaTime = 0; ///< that `m_now` stands for
    bool m_isAwake = false;
    int m_visits = 0;
    /// Slots emptied during a visit are removed after it.
    std::vector<Animation*> m_moving;
};

} // namespace tolvar
