#pragma once

#include "Platform/Interfaces/AudioDevice.h"

#include <QString>

#include <optional>

namespace tolvar {

/// Decodes recorded sounds.
class AudioFileReader {
public:
    virtual ~AudioFileReader() = default;

    /// The whole file in its own format, or nothing when it is missing or cannot be read.
    virtual std::optional<AudioBuffer> read(const QString& path) const = 0;
};

} // namespace tolvar
