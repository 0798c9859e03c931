#include "Support/HandFrames.h"

#include <cmath>
#include <utility>

namespace tolvar::test {

void HandFrames::start(Callback callback) {
    m_callback = std::move(callback);
    ++m_starts;
}

void HandFrames::stop() {
    m_callback = nullptr;
    ++m_stops;
}

void HandFrames::advance(double seconds) {
    const double begin = m_mediaTime;
    const int whole = static_cast<int>(std::ceil(seconds * rate)) - 1;
    for (int frame = 1; frame <= whole; ++frame)
        jumpTo(begin + frame / rate);
    jumpTo(begin + seconds);
}

void HandFrames::jumpTo(double mediaTime) {
    m_mediaTime = mediaTime;
    const auto callback = m_callback;
    if (!callback)
        return;
    ++m_frames;
    callback(mediaTime);
}

} // namespace tolvar::test
