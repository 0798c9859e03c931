#pragma once

#include "Motion/AnimationDriver.h"
#include "Motion/Keyframes.h"

#include <QtGlobal>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace tolvar {

/// Plays keyframe tracks side by side: a shake, a pop, a note that floats up. While it does not
/// play, each value is the start of its track. With reduced motion it does not play.
class KeyframePlayer final : private Animation {
public:
    using Tracks = std::vector<KeyframeTrack>;
    /// Called in each frame while it plays, and when it is over; may destroy the player.
    using Changed = std::function<void()>;

    /// `driver` outlives the player.
    KeyframePlayer(AnimationDriver& driver, Tracks tracks, Changed changed = {});
    ~KeyframePlayer() override;
    Q_DISABLE_COPY_MOVE(KeyframePlayer)

    /// The value of a track, which must exist. A track that is over keeps its last value until the
    /// longest one is over too.
    double value(std::size_t track = 0) const;
    bool isPlaying() const { return m_begins.has_value(); }

    /// Plays from the start when `counter` is greater than at the call before. The first call only
    /// takes note of it, as does one with a smaller number.
    void setCounter(int counter);
    /// Plays from the start.
    void play();
    /// Plays these tracks instead, now and later.
    void play(Tracks tracks);
    /// Ends at once, as when nobody can see it any more.
    void finish();

private:
    void advance(double now) override;
    void reduce() override { finish(); }

    double duration() const;
    void tellChanged() const;

    AnimationDriver& m_driver;
    Tracks m_tracks;
    Changed m_changed;
    std::optional<int> m_counter;
    std::optional<double> m_begins; ///< time of the driver
    double m_now = 0;               ///< of the driver, in the present frame
};

} // namespace tolvar
