#pragma once

#include "Motion/AnimationDriver.h"
#include "Motion/TimerFrameSource.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullHapticPerformer.h"
#include "Sound/InterfaceSound.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Theme/Feedback.h"

#include <QDir>

namespace tolvar::gallery {

/// What the gallery's controls move and answer with.
class Studio {
public:
    /// `sound` outlives the studio.
    Studio(const MotionSettings& settings, InterfaceSound& sound);

    ControlContext context() { return {m_driver, m_feedback}; }
    AnimationDriver& driver() { return m_driver; }

private:
    TimerFrameSource m_frames;
    AnimationDriver m_driver;
    MemoryPreferences m_preferences;
    NullHapticPerformer m_haptics;
    Feedback m_feedback;
};

/// Draws every page into a PNG in `folder`, each control at rest in its state. Returns whether all
/// could be written.
bool render(const QDir& folder);

} // namespace tolvar::gallery
