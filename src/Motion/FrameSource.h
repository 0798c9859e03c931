#pragma once

#include <functional>

namespace tolvar {

/// What tells that it is time for another frame.
class FrameSource {
public:
    /// Called once a frame with the media time of that frame.
    using Callback = std::function<void(double mediaTime)>;

    virtual ~FrameSource() = default;

    /// Begins to call `callback` for each frame, never before this function has returned.
    virtual void start(Callback callback) = 0;
    /// Ends the calls at once. May be called from within the callback, as may the destructor.
    virtual void stop() = 0;
    /// The media time now: seconds, monotonic, from an arbitrary beginning.
    virtual double mediaTime() const = 0;
};

} // namespace tolvar
