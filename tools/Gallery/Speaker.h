#pragma once

#include "Platform/Common/QtTimerService.h"
#include "Platform/Linux/Audio/WaveFileReader.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullSystemLog.h"
#include "Sound/SampledInterfaceSound.h"

#include <memory>

namespace tolvar::gallery {

/// The product's own sounds on the machine's output, with every sound switched on.
class Speaker {
public:
    Speaker();

    InterfaceSound& sound() { return m_sound; }

private:
    MemoryPreferences m_preferences;
    QtTimerService m_timers;
    NullSystemLog m_log;
    WaveFileReader m_reader;
    std::unique_ptr<AudioDevice> m_device;
    SampledInterfaceSound m_sound;
    InterfaceSound::Hold m_awake;
};

} // namespace tolvar::gallery
