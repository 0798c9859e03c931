#pragma once

#include "Platform/Interfaces/AudioDevice.h"

#include <QString>

namespace tolvar::test {

/// Writes a WAV file of 32-bit floating-point samples; fails the test when that fails.
void writeWave(const QString& path, const AudioBuffer& buffer);

/// A buffer whose every sample is `level`.
AudioBuffer level(float level, std::size_t frames, const AudioFormat& format);

} // namespace tolvar::test
