#include "Motion/KeyframePlayer.h"

#include <algorithm>
#include <utility>

namespace tolvar {

KeyframePlayer::KeyframePlayer(AnimationDriver& driver, Tracks tracks, Changed changed)
    : m_driver(driver)
    , m_tracks(std::move(tracks))
    , m_changed(std::move(changed)) {}

KeyframePlayer::~KeyframePlayer() {
    m_driver.remove(*this);
}

double KeyframePlayer::value(std::size_t track) const {
    const auto& played = m_tracks[track];
    return m_begins ? played.at(m_now - *m_begins).value : played.start();
}

void KeyframePlayer::setCounter(int counter) {
    const auto before = std::exchange(m_counter, counter);
    if (before && counter > *before)
        play();
}

void KeyframePlayer::play() {
    if (m_driver.settings().isReduced || duration() == 0) {
        finish();
        return;
    }
    m_now = m_driver.now();
    m_begins = m_now;
    m_driver.add(*this);
}

void KeyframePlayer::play(Tracks tracks) {
    m_tracks = std::move(tracks);
    play();
}

void KeyframePlayer::finish() {
    if (!m_begins)
        return;
    m_begins.reset();
    m_driver.remove(*this);
    tellChanged();
}

void KeyframePlayer::advance(double now) {
    m_now = now;
    if (now - *m_begins >= duration())
        finish();
    else
        tellChanged();
}

double KeyframePlayer::duration() const {
    double longest = 0;
    for (const auto& track : m_tracks)
        longest = std::max(longest, track.duration());
    return longest;
}

/// Calls a copy, as the callback may destroy this object and itself with it.
void KeyframePlayer::tellChanged() const {
    if (const auto changed = m_changed)
        changed();
}

} // namespace tolvar
