#pragma once

#include "Platform/Interfaces/AudioDevice.h"

#include <memory>

namespace tolvar {

/// The sound output of this desktop, by OpenAL Soft.
namespace OpenAlDevice {

/// A device that touches neither OpenAL nor a sound server before its first `start`. Not null;
/// where there is no output it does not run. To be called on the main thread, as it sets
/// environment variables by which OpenAL is configured (see configureOpenAlForInterfaceSounds).
///
/// The kind of output (PulseAudio, ALSA, ...) is found once per process, at the first `start`.
std::unique_ptr<AudioDevice> create();

} // namespace OpenAlDevice
} // namespace tolvar
